// What one repository tab shows: its history (the commit graph) for now; the changes page,
// sidebar and toolbar join it as they come. It is made once per tab and kept while the tab is
// hidden, so its scroll position and selection survive a switch. Splitter positions are
// remembered by name.
#pragma once

#include <QWidget>

#include <string>

namespace orvel {

class DiffPane;
class GraphPane;
class RepoHistoryPane;
class SidebarView;
class UserDefaults;
class WorkspaceTabState;

class RepositoryTabView final : public QWidget {
    Q_OBJECT

  public:
    RepositoryTabView(WorkspaceTabState& tab, UserDefaults& defaults, QWidget* parent = nullptr);
    ~RepositoryTabView() override;

    WorkspaceTabState& tab() const { return tab_; }
    GraphPane& graphPane() const;
    DiffPane& diffPane() const { return *diffPane_; }

    // Writes the state of every named splitter, so that the next tab opens with the same layout.
    void saveSplitterStates() const;

  public slots:
    // Reads the commits between `target` and HEAD and opens the plan of an interactive rebase.
    void showInteractiveRebase(const std::string& target);

  signals:
    // The graph has been painted with its commits for the first time.
    void graphPainted();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void showCreateBranch(const std::string& hash);
    void showCreateTag(const std::string& hash);
    void restoreSplitterStates();

    WorkspaceTabState& tab_;
    UserDefaults& defaults_;
    SidebarView* sidebar_;
    RepoHistoryPane* historyPane_;
    DiffPane* diffPane_;
    bool graphPainted_ = false;
};

} // namespace orvel
