// The git service over the git command line: every operation writes its entry log line and hands
// one block to the repository's queue, where the commands run through the executor.
#pragma once

#include "core/parsers/LogParser.h"
#include "core/process/GitExecutorProtocol.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/GitServiceProtocol.h"

#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>

namespace orvel {

class NativeGitService final : public GitServiceProtocol {
  public:
    NativeGitService(std::shared_ptr<GitExecutorProtocol> executor, std::shared_ptr<GitOpRunner> opRunner);

    QCoro::Task<RepoEntry> open(std::string path) override;
    QCoro::Task<StatusResult> status(RepoEntry repo) override;
    QCoro::Task<void> stage(RepoEntry repo, std::string path) override;
    QCoro::Task<void> stageFiles(RepoEntry repo, std::vector<std::string> paths) override;
    QCoro::Task<void> stageAll(RepoEntry repo) override;
    QCoro::Task<void> unstage(RepoEntry repo, std::string path) override;
    QCoro::Task<void> unstageFiles(RepoEntry repo, std::vector<std::string> paths) override;
    QCoro::Task<void> unstageAll(RepoEntry repo) override;
    QCoro::Task<void> stageHunk(RepoEntry repo, std::string path, DiffHunk hunk) override;
    QCoro::Task<void> unstageHunk(RepoEntry repo, std::string path, DiffHunk hunk) override;
    QCoro::Task<void> discardHunk(RepoEntry repo, std::string path, DiffHunk hunk) override;
    QCoro::Task<void> discardChanges(RepoEntry repo, std::string path, bool includeStaged) override;
    QCoro::Task<CommitEntry> commit(RepoEntry repo, std::string message) override;
    QCoro::Task<CommitEntry> amendCommit(RepoEntry repo, std::string message) override;
    QCoro::Task<std::vector<CommitEntry>> commitHistory(RepoEntry repo, long limit) override;
    QCoro::Task<std::vector<GraphCommit>> commitGraph(RepoEntry repo, long limit) override;
    QCoro::Task<DiffResult> diff(RepoEntry repo, DiffContext context,
                                 std::optional<int> contextLines) override;
    QCoro::Task<DiffResult> commitDiff(RepoEntry repo, std::string hash,
                                       std::optional<int> contextLines) override;
    QCoro::Task<std::vector<FileChange>> commitFileChanges(RepoEntry repo, std::string hash) override;
    QCoro::Task<std::vector<BlameEntry>> blame(RepoEntry repo, std::string path) override;
    QCoro::Task<std::vector<BranchEntry>> branches(RepoEntry repo) override;
    QCoro::Task<void> createBranch(RepoEntry repo, std::string name,
                                   std::optional<std::string> startPoint) override;
    QCoro::Task<void> checkoutBranch(RepoEntry repo, std::string name) override;
    QCoro::Task<void> checkoutNewBranch(RepoEntry repo, std::string name, std::string startPoint) override;
    QCoro::Task<void> deleteBranch(RepoEntry repo, std::string name, bool force) override;
    QCoro::Task<void> renameBranch(RepoEntry repo, std::string oldName, std::string newName) override;
    QCoro::Task<void> deleteRemoteBranch(RepoEntry repo, std::string remote, std::string branch) override;
    QCoro::Task<MergeResult> merge(RepoEntry repo, std::string branch) override;
    QCoro::Task<MergeResult> fastForwardMerge(RepoEntry repo, std::string branch) override;
    QCoro::Task<RebaseResult> rebase(RepoEntry repo, std::string onto) override;
    QCoro::Task<std::vector<RebaseTodoEntry>> rebaseTodoList(RepoEntry repo, std::string onto) override;
    QCoro::Task<InteractiveRebaseResult> interactiveRebase(RepoEntry repo, RebasePlan plan) override;
    QCoro::Task<void> pushBranch(RepoEntry repo, std::string branch, std::string remote) override;
    QCoro::Task<std::string> tagDetail(RepoEntry repo, std::string name) override;
    QCoro::Task<std::vector<RemoteEntry>> listRemotes(RepoEntry repo) override;
    QCoro::Task<void> addRemote(RepoEntry repo, std::string name, std::string url) override;
    QCoro::Task<void> removeRemote(RepoEntry repo, std::string name) override;
    QCoro::Task<void> fetch(RepoEntry repo, std::string remote, bool prune) override;
    QCoro::Task<MergeResult> pull(RepoEntry repo, std::string remote, PullStrategy strategy) override;
    QCoro::Task<void> push(RepoEntry repo, std::string remote) override;
    QCoro::Task<void> forcePush(RepoEntry repo, std::string remote) override;
    QCoro::Task<OperationResult> cherryPick(RepoEntry repo, std::string hash) override;
    QCoro::Task<OperationResult> revert(RepoEntry repo, std::string hash) override;
    QCoro::Task<void> reset(RepoEntry repo, std::string hash, ResetMode mode) override;
    QCoro::Task<std::vector<TagEntry>> listTags(RepoEntry repo) override;
    QCoro::Task<void> createTag(RepoEntry repo, std::string name, std::optional<std::string> hash,
                                std::optional<std::string> message) override;
    QCoro::Task<void> pushTag(RepoEntry repo, std::string name, std::string remote) override;
    QCoro::Task<void> deleteTag(RepoEntry repo, std::string name) override;
    QCoro::Task<void> checkoutTag(RepoEntry repo, std::string name) override;
    QCoro::Task<void> stashSave(RepoEntry repo, std::optional<std::string> message,
                                bool includeUntracked) override;
    QCoro::Task<OperationResult> stashPop(RepoEntry repo) override;
    QCoro::Task<OperationResult> stashApply(RepoEntry repo, long index) override;
    QCoro::Task<void> stashDrop(RepoEntry repo, long index) override;
    QCoro::Task<std::vector<StashEntry>> stashList(RepoEntry repo) override;
    QCoro::Task<void> stashFile(RepoEntry repo, std::string path) override;
    QCoro::Task<void> resolveConflictUsingOurs(RepoEntry repo, std::string path) override;
    QCoro::Task<void> resolveConflictUsingTheirs(RepoEntry repo, std::string path) override;
    QCoro::Task<void> abortMerge(RepoEntry repo) override;
    QCoro::Task<void> abortRebase(RepoEntry repo) override;
    QCoro::Task<void> abortCherryPick(RepoEntry repo) override;
    QCoro::Task<void> abortRevert(RepoEntry repo) override;
    QCoro::Task<InteractiveRebaseResult> rebaseContinue(RepoEntry repo) override;
    QCoro::Task<InteractiveRebaseResult> rebaseSkip(RepoEntry repo) override;
    QCoro::Task<std::string> readBlob(RepoEntry repo, std::string hash) override;
    QCoro::Task<void> writeResolvedFile(RepoEntry repo, std::string path, std::string content) override;
    QCoro::Task<std::vector<CommitEntry>> fileHistory(RepoEntry repo, std::string path, long limit) override;
    QCoro::Task<std::optional<std::string>> defaultBranch(RepoEntry repo) override;
    QCoro::Task<std::vector<std::string>> mergedBranches(RepoEntry repo, std::string target) override;
    QCoro::Task<std::optional<std::string>> currentBranch(RepoEntry repo) override;
    QCoro::Task<RepoEntry> cloneRepository(std::string url, std::string path) override;
    QCoro::Task<RepoEntry> initRepository(std::string path,
                                          std::optional<std::string> initialBranch) override;
    QCoro::Task<bool> updateCommitGraph(RepoEntry repo, std::stop_token stop = {}) override;

    const std::shared_ptr<GitOpRunner>& opRunner() const { return opRunner_; }

    // Drops the remote names commitGraph keeps, so that the next graph load reads them anew;
    // adding or removing a remote calls it when it has finished.
    void resetCachedRemoteNames();

  private:
    std::shared_ptr<GitExecutorProtocol> executor_;
    std::shared_ptr<GitOpRunner> opRunner_;
    // Read by `git remote` once per service, not once per graph load. Worker threads and the
    // coroutines both reach it, hence the mutex.
    std::optional<RemoteNameSet> cachedRemoteNames_;
    mutable std::mutex cachedRemoteNamesMutex_;
};

} // namespace orvel
