#include "workspace/WorkspaceTabState.h"

#include "changes/ChangesPaneViewModel.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "diff/DiffDetailViewModel.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "merge/ConflictBannerViewModel.h"
#include "notices/ToastManager.h"
#include "settings/LocalizationManager.h"
#include "sidebar/SidebarViewModel.h"
#include "workspace/ContentViewModel.h"
#include "workspace/FileSystemWatcher.h"
#include "workspace/RemoteChoice.h"
#include "workspace/RepositoryWatchPaths.h"
#include "workspace/WorkspaceViewModel.h"

#include <QPointer>

#include <filesystem>

namespace orvel {

WorkspaceTabState::WorkspaceTabState(RepoEntry repo, std::shared_ptr<GitServiceProtocol> service,
                                     ToastManager& toasts, Options options, QObject* parent)
    : QObject(parent), repo_(std::move(repo)), service_(std::move(service)), toasts_(toasts),
      options_(options), currentBranchName_(repo_.currentBranch),
      graph_(std::make_unique<RepoGraphPaneViewModel>(repo_, service_, toasts_)),
      workspace_(std::make_unique<WorkspaceViewModel>()),
      changes_(std::make_unique<ChangesPaneViewModel>(repo_, service_, toasts_)),
      content_(std::make_unique<ContentViewModel>(service_)),
      conflictBanner_(std::make_unique<ConflictBannerViewModel>(repo_, service_, toasts_)),
      sidebar_(std::make_unique<SidebarViewModel>(service_, toasts_)),
      diff_(std::make_unique<DiffDetailViewModel>(repo_, service_, options_.defaults)) {
    if (!currentBranchName_)
        detachedHead_ = repo_.headHash;
    changes_->setDefaults(options_.defaults);
    changes_->setConfigService(options_.gitConfig);
    connect(changes_.get(), &ChangesPaneViewModel::commitSucceeded, this,
            &WorkspaceTabState::commitSucceeded);
    connect(changes_.get(), &ChangesPaneViewModel::stashCompleted, this, [this] {
        qCDebug(lcApp, "op=tab.stashComplete");
        sidebar_->loadBranches(repo_);
    });
    // The graph's working-tree row counts the changes page's rows, moved optimistically or read.
    connect(changes_.get(), &ChangesPaneViewModel::listsChanged, this, [this] {
        graph_->setWorkingTreeCounts(static_cast<int>(changes_->stagedFiles().size()),
                                     static_cast<int>(changes_->unstagedFiles().size()));
        showConflicts();
    });
    // The banner shows what the changes page read, so that a refresh reads the state once.
    connect(changes_.get(), &ChangesPaneViewModel::repoStateChanged, this, &WorkspaceTabState::showConflicts);
    // Its merge editor opens on the conflicted file selected there.
    connect(changes_.get(), &ChangesPaneViewModel::selectionChanged, this, [this] {
        std::vector<std::string> paths;
        for (const FileChange& file : changes_->selectedFiles(false))
            paths.push_back(file.path);
        conflictBanner_->setSelectedPaths(std::move(paths));
    });
    // A reset, pick or revert from the graph's menu changed the repository.
    connect(graph_.get(), &RepoGraphPaneViewModel::repositoryChanged, this, &WorkspaceTabState::refresh);
    connect(conflictBanner_.get(), &ConflictBannerViewModel::repositoryChanged, this,
            &WorkspaceTabState::refresh);
    connect(sidebar_.get(), &SidebarViewModel::branchesLoaded, this, &WorkspaceTabState::branchesLoaded);
    connect(sidebar_.get(), &SidebarViewModel::detailsChanged, this, &WorkspaceTabState::stashesChanged);
    connect(sidebar_.get(), &SidebarViewModel::checkoutComplete, this, &WorkspaceTabState::checkoutComplete);
    connect(sidebar_.get(), &SidebarViewModel::branchSelected, this, [this](const BranchEntry& branch) {
        graph_->reveal(branch.hash);
        workspace_->setActiveTab(WorkspaceTab::repoHistory);
        sidebar_->acknowledgeNavigation();
    });
    // A hunk staged, unstaged or discarded from the diff pane.
    connect(diff_.get(), &DiffDetailViewModel::needsStatusRefresh, this, &WorkspaceTabState::refresh);
    qCDebug(lcApp, "op=repo.tab.opened count=1");
}

WorkspaceTabState::~WorkspaceTabState() {
    cancelAllTasks();
    qCDebug(lcApp, "op=repo.tab.closed count=1");
}

QString WorkspaceTabState::headName() const {
    if (currentBranchName_)
        return QString::fromStdString(*currentBranchName_);
    if (detachedHead_)
        return QString::fromStdString(detachedHead_->substr(0, 7));
    return {};
}

// The folder tells two clones on the same branch apart; the branch tells two worktrees apart.
QString WorkspaceTabState::title() const {
    const QString folder = QString::fromStdString(std::filesystem::path(repo_.path).filename().string());
    const QString head = headName();
    return head.isEmpty() ? folder : QStringLiteral("%1 — %2").arg(folder, head);
}

void WorkspaceTabState::showConflicts() {
    conflictBanner_->update(changes_->repoState(), changes_->unstagedFiles());
}

bool WorkspaceTabState::hasStashes() const {
    return !sidebar_->stashEntries().empty();
}

void WorkspaceTabState::loadData(std::optional<QCoro::Task<std::vector<GraphCommit>>> newestPage) {
    // The graph's read is queued first: it is what the user waits for.
    loadGraphAndMaintain(std::move(newestPage));
    refreshWorkingTree();
    loadCurrentBranch();
    sidebar_->loadBranches(repo_);
    if (!fileWatcher_)
        startFileWatcher();
}

void WorkspaceTabState::loadCurrentBranch() {
    readCurrentBranch();
}

void WorkspaceTabState::refresh() {
    qCDebug(lcApp, "op=sidebar.refreshRequested reason=user");
    refreshWorkingTree();
    graph_->load();
    sidebar_->loadBranches(repo_);
    diff_->reloadWorkingTree();
}

void WorkspaceTabState::branchesLoaded(const std::vector<BranchEntry>& branches) {
    if (branches != branches_) {
        branches_ = branches;
        emit branchesChanged();
    }
    const BranchEntry* current = currentLocalBranch(branches);
    // A detached HEAD is named by its commit, which only a fresh read gives.
    if (!current) {
        loadCurrentBranch();
        return;
    }
    if (currentBranchName_ == current->name && !detachedHead_)
        return;
    currentBranchName_ = current->name;
    detachedHead_.reset();
    emit titleChanged();
}

void WorkspaceTabState::checkoutComplete() {
    qCDebug(lcApp, "op=tab.checkoutComplete");
    graph_->load();
    loadCurrentBranch();
    refreshWorkingTree();
}

void WorkspaceTabState::reloadAfterFetch() {
    graph_->load();
    sidebar_->loadBranches(repo_);
}

void WorkspaceTabState::startFileWatcher() {
    fileWatcher_.reset();
    QPointer<WorkspaceTabState> self(this);
    // Both callbacks come on the watcher's thread; the tab is only touched on its own. The
    // watcher is stopped before the tab goes, so `self` is still valid when they are posted.
    auto onChange = [self] {
        QMetaObject::invokeMethod(
            self,
            [self] {
                qCDebug(lcWatcher, "op=sidebar.refreshRequested reason=watcher");
                self->refresh();
            },
            Qt::QueuedConnection);
    };
    auto onLimit = [self] {
        QMetaObject::invokeMethod(
            self, [self] { self->watchLimitReached(); }, Qt::QueuedConnection);
    };
    fileWatcher_ = std::make_unique<FileSystemWatcher>(
        repositoryWatchPaths(repo_), options_.watcherDebounce,
        std::move(onChange), std::move(onLimit));
}

void WorkspaceTabState::cancelAllTasks() {
    if (fileWatcher_) {
        fileWatcher_->stop();
        fileWatcher_.reset();
    }
    branchLoads_.cancel();
    maintenance_.cancel();
    changes_->dismissAmendPush();
}

void WorkspaceTabState::commitSucceeded() {
    graph_->load();
    loadCurrentBranch();
    sidebar_->loadBranches(repo_);
}

void WorkspaceTabState::watchLimitReached() {
    fileWatcher_.reset();
    if (std::exchange(toldWatchLimit_, true))
        return;
    toasts_.show(localized("Live refresh is off for %1: the system's limit of file watches is reached. "
                           "Changes made outside Orvel show after a manual refresh.",
                           title()),
                 ToastType::warning);
}

QCoro::Task<void> WorkspaceTabState::readCurrentBranch() {
    auto ticket = branchLoads_.begin(this);
    auto service = service_;
    const RepoEntry repo = repo_;
    try {
        const std::vector<BranchEntry> branches = co_await service->branches(repo);
        if (!ticket.isCurrent())
            co_return;
        if (branches != branches_) {
            branches_ = branches;
            emit branchesChanged();
        }
        std::optional<std::string> name;
        if (const BranchEntry* current = currentLocalBranch(branches))
            name = current->name;
        std::optional<std::string> detachedHead;
        if (!name) {
            // A detached HEAD has no branch to name the tab: its commit does.
            const RepoEntry reopened = co_await service->open(repo.path);
            if (!ticket.isCurrent())
                co_return;
            detachedHead = reopened.headHash;
        }
        if (name == currentBranchName_ && detachedHead == detachedHead_)
            co_return;
        currentBranchName_ = std::move(name);
        detachedHead_ = std::move(detachedHead);
        emit titleChanged();
    } catch (const std::exception& error) {
        // The tab keeps the last name it had.
        if (ticket.isCurrent())
            qCDebug(lcApp, "op=tab.loadCurrentBranch reason=%s", redactForLog(error.what()).c_str());
    }
}

QCoro::Task<void> WorkspaceTabState::refreshWorkingTree() {
    auto changesRead = changes_->refreshStatus();
    auto contentRead = content_->refreshStatus(repo_);
    co_await std::move(changesRead);
    co_await std::move(contentRead);
}

QCoro::Task<void> WorkspaceTabState::loadGraphAndMaintain(std::optional<QCoro::Task<std::vector<GraphCommit>>> newestPage) {
    auto ticket = maintenance_.begin(this);
    co_await graph_->load(std::move(newestPage));
    if (!ticket.isCurrent() || !options_.maintainCommitGraph)
        co_return;
    auto service = service_;
    const std::string path = repo_.path;
    try {
        // After the first graph load, so that writing the file never delays it.
        if (co_await service->updateCommitGraph(repo_, ticket.stopToken()))
            qCDebug(lcGraph, "op=commitGraph.written path=%s", path.c_str());
    } catch (const std::exception& error) {
        qCDebug(lcGraph, "op=commitGraph.write reason=%s", redactForLog(error.what()).c_str());
    }
}

} // namespace orvel
