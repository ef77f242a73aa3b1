// One open repository with everything that hangs on it: its models, its file-system watcher and
// the loads that keep them current. The panes never know each other; they raise signals and the
// tab tells the others what to do.
#pragma once

#include "core/records/BranchEntry.h"
#include "core/records/GraphCommit.h"
#include "core/records/RepoEntry.h"
#include "core/support/LoadGeneration.h"

#include <QObject>
#include <QString>
#include <QUuid>

#include <QCoro/QCoroTask>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

class ChangesPaneViewModel;
class ContentViewModel;
class ConflictBannerViewModel;
class DiffDetailViewModel;
class FileSystemWatcher;
class GitConfigProtocol;
class GitServiceProtocol;
class RepoGraphPaneViewModel;
class SidebarViewModel;
class ToastManager;
class UserDefaults;
class WorkspaceViewModel;

class WorkspaceTabState final : public QObject {
    Q_OBJECT

  public:
    struct Options {
        // Keep git's commit-graph file current after the first graph load ("maintainCommitGraph").
        bool maintainCommitGraph = true;
        std::chrono::milliseconds watcherDebounce{500};
        // The settings store, read where a setting is used, so that a change applies to the open
        // tab: the large-file thresholds of the diff, the prune of the fetch after a push.
        const UserDefaults* defaults = nullptr;
        // Where a commit refused for want of an identity writes the one the user gives.
        std::shared_ptr<GitConfigProtocol> gitConfig;
    };

    WorkspaceTabState(RepoEntry repo, std::shared_ptr<GitServiceProtocol> service, ToastManager& toasts,
                      Options options, QObject* parent = nullptr);
    ~WorkspaceTabState() override;

    const QUuid& id() const { return id_; }
    const RepoEntry& repo() const { return repo_; }
    const std::shared_ptr<GitServiceProtocol>& service() const { return service_; }
    ToastManager& toasts() const { return toasts_; }
    const std::optional<std::string>& currentBranchName() const { return currentBranchName_; }
    // The local and remote branches of the last branch read: the remote of a fetch and the
    // ahead and behind counts come from it.
    const std::vector<BranchEntry>& branches() const { return branches_; }
    // The current branch, or the short hash of a detached HEAD; empty until the first read.
    QString headName() const;
    // What the tab bar and the window title show: the repository's folder and its head, as in
    // "orvel — main"; the folder alone until the head is read.
    QString title() const;
    // The sidebar lists at least one stash: there is something to pop.
    bool hasStashes() const;
    RepoGraphPaneViewModel& graph() const { return *graph_; }
    ChangesPaneViewModel& changes() const { return *changes_; }
    WorkspaceViewModel& workspace() const { return *workspace_; }
    ContentViewModel& content() const { return *content_; }
    ConflictBannerViewModel& conflictBanner() const { return *conflictBanner_; }
    SidebarViewModel& sidebar() const { return *sidebar_; }
    DiffDetailViewModel& diff() const { return *diff_; }
    bool isWatching() const { return fileWatcher_ != nullptr; }
    FileSystemWatcher* fileWatcher() const { return fileWatcher_.get(); }

    // The full load of a new tab: graph, branch name, working-tree counts, the watcher.
    // `newestPage` is the graph's first read when the opening already started it.
    void loadData(std::optional<QCoro::Task<std::vector<GraphCommit>>> newestPage = std::nullopt);
    void loadCurrentBranch();
    // The light reload after something changed; a later refresh supersedes an earlier one.
    void refresh();
    // After a fetch or pull: the branches (with their ahead and behind counts) and the graph.
    void reloadAfterFetch();
    void startFileWatcher();
    // Stops the watcher and makes every running load stale, as closing the tab does.
    void cancelAllTasks();

  signals:
    void titleChanged();
    void branchesChanged();
    void stashesChanged();

  private:
    QCoro::Task<void> readCurrentBranch();
    // Both status reads side by side; the graph's working-tree row follows the changes' lists.
    QCoro::Task<void> refreshWorkingTree();
    // A commit from the changes page: the graph and the branch name follow.
    void commitSucceeded();
    // The first graph load, then git's commit-graph file when it needs writing.
    QCoro::Task<void> loadGraphAndMaintain(std::optional<QCoro::Task<std::vector<GraphCommit>>> newestPage);
    void watchLimitReached();
    // The sidebar read the branches: the tab's name follows the checked-out one.
    void branchesLoaded(const std::vector<BranchEntry>& branches);
    void checkoutComplete();
    // The conflict banner follows the changes page's state and files.
    void showConflicts();

    QUuid id_ = QUuid::createUuid();
    RepoEntry repo_;
    std::shared_ptr<GitServiceProtocol> service_;
    ToastManager& toasts_;
    Options options_;
    std::optional<std::string> currentBranchName_;
    std::optional<std::string> detachedHead_;
    std::vector<BranchEntry> branches_;
    std::unique_ptr<RepoGraphPaneViewModel> graph_;
    std::unique_ptr<WorkspaceViewModel> workspace_;
    std::unique_ptr<ChangesPaneViewModel> changes_;
    std::unique_ptr<ContentViewModel> content_;
    std::unique_ptr<ConflictBannerViewModel> conflictBanner_;
    std::unique_ptr<SidebarViewModel> sidebar_;
    std::unique_ptr<DiffDetailViewModel> diff_;
    std::unique_ptr<FileSystemWatcher> fileWatcher_;
    bool toldWatchLimit_ = false;
    LoadGeneration branchLoads_;
    LoadGeneration maintenance_;
};

} // namespace orvel
