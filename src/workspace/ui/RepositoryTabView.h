// What one repository tab shows: the changes page (the default) or the history page, switched by
// the tab's workspace model. It is made once per tab and kept while the tab is
// hidden, so its scroll position and selection survive a switch. Splitter positions are
// remembered by name.
#pragma once

#include <QWidget>

#include <optional>
#include <string>

class QDialog;
class QSplitter;
class QStackedWidget;
class QTabBar;

namespace orvel {

class ChangesPage;
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
    ChangesPage& changesPage() const { return *changesPage_; }
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
    void changeEvent(QEvent* event) override;

  private:
    void showCreateBranch(const std::string& hash);
    void showCreateTag(const std::string& hash);
    void restoreSplitterStates();
    // The changes and history pages, one shown at a time as the workspace model says.
    void buildPages();
    void showActivePage();
    // Puts the diff pane below the history (a commit's file) or beside the changes lists, or
    // hides it (nothing).
    void showDiffPane(std::optional<bool> belowHistory);
    void openSheet(QDialog* sheet);
    void retranslate();

    WorkspaceTabState& tab_;
    UserDefaults& defaults_;
    SidebarView* sidebar_;
    RepoHistoryPane* historyPane_;
    DiffPane* diffPane_;
    ChangesPage* changesPage_;
    QTabBar* pageSwitch_;
    QStackedWidget* pages_;
    QSplitter* historyAndDiff_;
    bool graphPainted_ = false;
};

} // namespace orvel
