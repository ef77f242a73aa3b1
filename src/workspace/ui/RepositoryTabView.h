// What one repository tab shows: its history page for now; the changes page, sidebar and
// toolbar join it as they come. It is made once per tab and kept while the tab is hidden, so its
// scroll positions and selections survive a switch. Splitter positions are remembered by name.
#pragma once

#include <QWidget>

#include <string>

class QLabel;

namespace orvel {

class UserDefaults;
class WorkspaceTabState;

class RepositoryTabView final : public QWidget {
    Q_OBJECT

  public:
    RepositoryTabView(WorkspaceTabState& tab, UserDefaults& defaults, QWidget* parent = nullptr);
    ~RepositoryTabView() override;

    WorkspaceTabState& tab() const { return tab_; }

    // Writes the state of every named splitter, so that the next tab opens with the same layout.
    void saveSplitterStates() const;

  signals:
    // The history has been painted with its commits for the first time.
    void graphPainted();

  protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void showCreateBranch(const std::string& hash);
    void showCreateTag(const std::string& hash);
    void restoreSplitterStates();
    void showCounts(int staged, int unstaged);
    void retranslate();

    WorkspaceTabState& tab_;
    UserDefaults& defaults_;
    QLabel* placeholder_;
    int staged_ = 0;
    int unstaged_ = 0;
    bool graphPainted_ = false;
};

} // namespace orvel
