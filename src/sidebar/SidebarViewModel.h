// The state of a tab's left column: local and remote branches (as folder trees), tags, stashes,
// and every action on them with the checks before a checkout, the force question after a refused
// delete and the result of a merge, rebase or pull. A refresh that finds the same refs costs two
// git calls, the branches and the stashes (a stash moves no branch): the trees and the other
// details (default branch, tags, merged branches) are kept.
#pragma once

#include "core/records/MergePrediction.h"
#include "core/records/RebasePlan.h"
#include "core/records/RepoEntry.h"
#include "core/support/LoadGeneration.h"
#include "sidebar/BranchTree.h"
#include "sidebar/SidebarFilterViewModel.h"

#include <QObject>
#include <QString>
#include <QTimer>
#include <QUuid>

#include <QCoro/QCoroTask>

#include <chrono>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace orvel {

class GitServiceProtocol;
class ToastManager;

// The plan an interactive rebase onto a branch starts from, read when the user asked for it.
struct InteractiveRebaseContext {
    QUuid id;
    std::string ontoBranch;
    std::vector<RebaseTodoEntry> entries;
};

// Lives on the GUI thread; git runs only through the service. Every action tells its outcome in a
// toast and, where it changed what the tab shows, reloads and raises checkoutComplete().
class SidebarViewModel final : public QObject {
    Q_OBJECT

  public:
    // Above this many local branches the costly merged-branch query is not asked.
    static constexpr std::size_t mergedQueryLimit = 200;
    // How long a click on a branch waits for the graph to acknowledge it.
    static constexpr std::chrono::milliseconds navigationFallback{2000};

    SidebarViewModel(std::shared_ptr<GitServiceProtocol> service, ToastManager& toasts,
                     QObject* parent = nullptr);

    const std::shared_ptr<GitServiceProtocol>& service() const { return service_; }
    ToastManager& toasts() const { return toasts_; }
    const std::optional<RepoEntry>& repo() const { return repo_; }
    // The checked-out local branch, or null on a detached HEAD.
    const BranchEntry* currentBranch() const;
    const std::vector<BranchEntry>& localBranches() const { return localBranches_; }
    const std::vector<BranchEntry>& remoteBranches() const { return remoteBranches_; }
    bool isLoading() const { return isLoading_; }
    bool isLoadingDetails() const { return isLoadingDetails_; }
    const std::optional<QString>& loadError() const { return loadError_; }
    const std::vector<BranchTreeNode>& localTree() const { return localTree_; }
    const std::vector<RemoteGroup>& remoteGroupedTree() const { return remoteGroupedTree_; }
    const std::vector<RemoteTreeGroup>& remoteGroupedTreeNodes() const { return remoteGroupedTreeNodes_; }
    const std::optional<std::string>& mainBranchName() const { return mainBranchName_; }
    const std::set<std::string>& mergedBranchNames() const { return mergedBranchNames_; }
    const std::vector<TagEntry>& localTags() const { return localTags_; }
    const std::set<std::string>& remoteTagNames() const { return remoteTagNames_; }
    const std::vector<StashEntry>& stashEntries() const { return stashEntries_; }
    const std::optional<InteractiveRebaseContext>& interactiveRebaseContext() const {
        return interactiveRebaseContext_;
    }
    const std::optional<BranchEntry>& pendingForceDeleteBranch() const { return pendingForceDeleteBranch_; }
    const std::optional<BranchEntry>& pendingRemoteDeleteBranch() const { return pendingRemoteDeleteBranch_; }
    const std::optional<TagEntry>& pendingDeleteTag() const { return pendingDeleteTag_; }
    const std::optional<StashEntry>& pendingDropStash() const { return pendingDropStash_; }
    const std::optional<BranchEntry>& pendingMerge() const { return pendingMerge_; }
    // What the pending merge will do, as its question says it: "Checking…" until git has answered.
    QString pendingMergeForecast() const;
    const std::optional<std::string>& selectedBranchHash() const { return selectedBranchHash_; }
    const std::optional<std::string>& selectedBranchName() const { return selectedBranchName_; }
    bool isNavigatingToCommit() const { return isNavigatingToCommit_; }
    SidebarFilterViewModel& filter() { return filter_; }
    const SidebarFilterViewModel& filter() const { return filter_; }

    // Loads. A load overtaken by a newer one changes nothing.
    QCoro::Task<void> loadBranches(RepoEntry repo);
    QCoro::Task<void> loadStashes(RepoEntry repo);
    // Loads the last repository again, as the Retry of a failed load does.
    void retry();

    // A click on a branch: the graph is asked to show its commit (branchSelected), and the
    // navigation counts as under way until the graph acknowledges it or the fall-back passes.
    void selectBranch(const BranchEntry& branch);
    void acknowledgeNavigation();

    QCoro::Task<void> checkoutBranch(std::string name);
    QCoro::Task<void> checkoutRemoteBranch(BranchEntry branch);
    QCoro::Task<void> checkoutTag(TagEntry tag);
    QCoro::Task<void> pushTag(TagEntry tag, std::string remote);
    QCoro::Task<void> fastForward(BranchEntry branch);
    QCoro::Task<void> pushBranch(BranchEntry branch);
    QCoro::Task<void> mergeBranch(BranchEntry branch);
    QCoro::Task<void> rebaseOnto(BranchEntry branch);
    // Reads the commits an interactive rebase onto `branch` would replay into
    // interactiveRebaseContext and raises interactiveRebaseRequested; the plan editor takes them
    // from there and runs the rebase.
    QCoro::Task<void> loadRebaseTodo(BranchEntry branch);
    void clearInteractiveRebaseContext();
    // Creates the branch at `startPoint`, checked out when asked; a checkout reloads as one does.
    QCoro::Task<void> createBranch(std::string name, std::string startPoint, bool checkout);
    // Tags `hash` (HEAD when empty); a message makes the tag annotated.
    QCoro::Task<void> createTag(std::string name, std::optional<std::string> message, std::string hash);
    // The new name is checked by the branch-name rules before git sees it.
    QCoro::Task<void> renameBranch(BranchEntry branch, QString newName);
    // A delete git refuses as not fully merged sets pendingForceDeleteBranch and shows nothing.
    QCoro::Task<void> deleteBranch(BranchEntry branch);
    QCoro::Task<void> pullBranch(BranchEntry branch);
    // Answers the text for the detail sheet; empty after a failure.
    QCoro::Task<QString> tagDetail(TagEntry tag);
    QCoro::Task<void> applyStash(StashEntry stash);
    QCoro::Task<void> applyAndDropStash(StashEntry stash);

    // The confirmations: a request sets its pending field, which the view shows as a question;
    // confirming runs the action on the pending value and clears it, cancelling only clears it.
    void requestRemoteDelete(const BranchEntry& branch);
    void requestDeleteTag(const TagEntry& tag);
    void requestDropStash(const StashEntry& stash);
    // Also predicts the merge while the question is open; confirming never waits for that.
    void requestMerge(const BranchEntry& branch);
    void cancelPending();
    QCoro::Task<void> forceDeleteBranch();
    QCoro::Task<void> deleteRemoteBranch();
    QCoro::Task<void> deleteTag();
    QCoro::Task<void> dropStash();
    QCoro::Task<void> confirmMerge();

  signals:
    // The lists, the trees, isLoading or loadError changed.
    void branchesChanged();
    // Tags, stashes, the default branch, the merged branches or isLoadingDetails changed.
    void detailsChanged();
    // A pending field was set or cleared.
    void pendingChanged();
    // The prediction of the pending merge arrived.
    void pendingMergeForecastChanged();
    void selectionChanged();
    // Every successful branch load, with the whole list as git gave it.
    void branchesLoaded(const std::vector<orvel::BranchEntry>& branches);
    // HEAD, the working tree or the refs changed under an action: the tab reloads the graph, the
    // branch name and the working-tree status.
    void checkoutComplete();
    // The user clicked a branch, a tag or a stash: the graph shows its commit.
    void branchSelected(const orvel::BranchEntry& branch);
    // The plan of an interactive rebase onto the branch `target` is in interactiveRebaseContext.
    void interactiveRebaseRequested(const std::string& target);

  private:
    bool checkRepository();
    // Reloads the branches and tells the tab that HEAD, the working tree or the refs changed.
    void reloadAfterCheckout();
    // Reads the tags again, after one was created.
    QCoro::Task<void> reloadTags();
    QCoro::Task<void> loadDetails(LoadTicket ticket, RepoEntry repo, std::set<std::string> refs);
    // Whether "stash@{index}" still names the stash's commit; when not, the rows follow git and the
    // user is told. A failed read is told with `failureFormat`.
    QCoro::Task<bool> stashStillListed(StashEntry stash, const char* logOp, const char* failureFormat);
    void reload();
    void updateFilterSources();

    std::shared_ptr<GitServiceProtocol> service_;
    ToastManager& toasts_;
    std::vector<BranchEntry> localBranches_;
    std::vector<BranchEntry> remoteBranches_;
    bool isLoading_ = false;
    bool isLoadingDetails_ = false;
    std::optional<QString> loadError_;
    std::optional<RepoEntry> repo_;
    std::optional<InteractiveRebaseContext> interactiveRebaseContext_;
    std::optional<BranchEntry> pendingForceDeleteBranch_;
    std::optional<BranchEntry> pendingRemoteDeleteBranch_;
    std::optional<TagEntry> pendingDeleteTag_;
    std::optional<StashEntry> pendingDropStash_;
    std::optional<BranchEntry> pendingMerge_;
    std::optional<MergePrediction> pendingMergePrediction_;
    LoadGeneration mergePredictions_;
    std::optional<std::string> selectedBranchHash_;
    std::optional<std::string> selectedBranchName_;
    bool isNavigatingToCommit_ = false;
    std::optional<std::string> mainBranchName_;
    std::set<std::string> mergedBranchNames_;
    std::vector<TagEntry> localTags_;
    std::set<std::string> remoteTagNames_;
    std::vector<StashEntry> stashEntries_;
    std::vector<BranchTreeNode> localTree_;
    std::vector<RemoteGroup> remoteGroupedTree_;
    std::vector<RemoteTreeGroup> remoteGroupedTreeNodes_;
    // The refs when the details were last read.
    std::set<std::string> cachedRefFingerprint_;
    QTimer navigationAck_;
    LoadGeneration branchLoads_;
    LoadGeneration stashLoads_;
    LoadGeneration tagLoads_;
    SidebarFilterViewModel filter_;
};

} // namespace orvel
