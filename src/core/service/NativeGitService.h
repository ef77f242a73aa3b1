// The git service over the git command line: every operation writes its entry log line and hands
// one block to the repository's queue, where the commands run through the executor.
#pragma once

#include "core/commands/UndoJournal.h"
#include "core/process/GitExecutorProtocol.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/GitServiceProtocol.h"
#include "core/service/RemoteNameCache.h"

#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

namespace orvel {

class NativeGitService final : public GitServiceProtocol {
  public:
    NativeGitService(std::shared_ptr<GitExecutorProtocol> executor, std::shared_ptr<GitOpRunner> opRunner);

    QCoro::Task<RepoEntry> open(std::string path, std::stop_token cancellation = {}) override;
    QCoro::Task<StatusResult> status(RepoEntry repo, std::stop_token cancellation = {}) override;
    QCoro::Task<void> stage(RepoEntry repo, std::string path, std::stop_token cancellation = {}) override;
    QCoro::Task<void> stageFiles(RepoEntry repo, std::vector<std::string> paths,
                                 std::stop_token cancellation = {}) override;
    QCoro::Task<void> stageAll(RepoEntry repo, std::stop_token cancellation = {}) override;
    QCoro::Task<void> unstage(RepoEntry repo, std::string path, std::stop_token cancellation = {}) override;
    QCoro::Task<void> unstageFiles(RepoEntry repo, std::vector<std::string> paths,
                                   std::stop_token cancellation = {}) override;
    QCoro::Task<void> unstageAll(RepoEntry repo, std::stop_token cancellation = {}) override;
    QCoro::Task<void> stageHunk(RepoEntry repo, std::string path, DiffHunk hunk,
                                std::stop_token cancellation = {}) override;
    QCoro::Task<void> unstageHunk(RepoEntry repo, std::string path, DiffHunk hunk,
                                  std::stop_token cancellation = {}) override;
    QCoro::Task<void> discardHunk(RepoEntry repo, std::string path, DiffHunk hunk,
                                  std::stop_token cancellation = {}) override;
    QCoro::Task<void> stageLines(RepoEntry repo, FileChange file, std::vector<HunkLines> lines,
                                 std::stop_token cancellation = {}) override;
    QCoro::Task<void> unstageLines(RepoEntry repo, FileChange file, std::vector<HunkLines> lines,
                                   std::stop_token cancellation = {}) override;
    QCoro::Task<void> discardLines(RepoEntry repo, FileChange file, std::vector<HunkLines> lines,
                                   std::stop_token cancellation = {}) override;
    QCoro::Task<void> discardChanges(RepoEntry repo, std::string path, bool includeStaged,
                                     std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<DiscardFailure>> discardPaths(RepoEntry repo, std::vector<std::string> restore,
                                                          std::vector<std::string> remove,
                                                          std::vector<std::string> unstage = {},
                                                          std::stop_token cancellation = {}) override;
    QCoro::Task<CommitEntry> commit(RepoEntry repo, std::string message,
                                    std::stop_token cancellation = {}) override;
    QCoro::Task<CommitEntry> amendCommit(RepoEntry repo, std::string message,
                                         std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<CommitEntry>> commitHistory(RepoEntry repo, long limit,
                                                        std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<GraphCommit>> commitGraph(RepoEntry repo, long limit,
                                                      std::stop_token cancellation = {}) override;
    QCoro::Task<void> streamCommitGraph(RepoEntry repo, long skip, std::shared_ptr<CommitPageChannel> pages,
                                        std::stop_token cancellation = {}) override;
    QCoro::Task<CommitEntry> commitDetails(RepoEntry repo, std::string hash,
                                           std::stop_token cancellation = {}) override;
    QCoro::Task<std::optional<std::string>> resolveCommit(RepoEntry repo, std::string name,
                                                          std::stop_token cancellation = {}) override;
    QCoro::Task<DiffResult> diff(RepoEntry repo, DiffContext context, std::optional<int> contextLines,
                                 std::stop_token cancellation = {}) override;
    QCoro::Task<DiffResult> commitDiff(RepoEntry repo, std::string hash, std::optional<int> contextLines,
                                       std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<FileChange>> commitFileChanges(RepoEntry repo, std::string hash,
                                                           std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<BlameEntry>> blame(RepoEntry repo, std::string path,
                                               std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<BranchEntry>> branches(RepoEntry repo,
                                                   std::stop_token cancellation = {}) override;
    QCoro::Task<void> createBranch(RepoEntry repo, std::string name, std::optional<std::string> startPoint,
                                   std::stop_token cancellation = {}) override;
    QCoro::Task<void> checkoutBranch(RepoEntry repo, std::string name,
                                     std::stop_token cancellation = {}) override;
    QCoro::Task<void> checkoutNewBranch(RepoEntry repo, std::string name, std::string startPoint,
                                        std::stop_token cancellation = {}) override;
    QCoro::Task<void> deleteBranch(RepoEntry repo, std::string name, bool force,
                                   std::stop_token cancellation = {}) override;
    QCoro::Task<void> renameBranch(RepoEntry repo, std::string oldName, std::string newName,
                                   std::stop_token cancellation = {}) override;
    QCoro::Task<void> deleteRemoteBranch(RepoEntry repo, std::string remote, std::string branch,
                                         std::stop_token cancellation = {}) override;
    QCoro::Task<MergeResult> merge(RepoEntry repo, std::string branch,
                                   std::stop_token cancellation = {}) override;
    QCoro::Task<MergeResult> fastForwardMerge(RepoEntry repo, std::string branch,
                                              std::stop_token cancellation = {}) override;
    QCoro::Task<RebaseResult> rebase(RepoEntry repo, std::string onto,
                                     std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<RebaseTodoEntry>> rebaseTodoList(RepoEntry repo, std::string onto,
                                                             std::stop_token cancellation = {}) override;
    QCoro::Task<InteractiveRebaseResult> interactiveRebase(RepoEntry repo, RebasePlan plan,
                                                           std::stop_token cancellation = {}) override;
    QCoro::Task<MergePrediction> predictMerge(RepoEntry repo, std::string branch,
                                              std::stop_token cancellation = {}) override;
    QCoro::Task<MergePrediction> predictPick(RepoEntry repo, std::string commit, bool revert,
                                             std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<MergePrediction>> predictRebase(RepoEntry repo, RebasePlan plan,
                                                            std::shared_ptr<MergePredictionCache> cache,
                                                            std::stop_token cancellation = {}) override;
    QCoro::Task<void> pushBranch(RepoEntry repo, std::string branch, std::string remote,
                                 std::stop_token cancellation = {}) override;
    QCoro::Task<std::string> tagDetail(RepoEntry repo, std::string name,
                                       std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<RemoteEntry>> listRemotes(RepoEntry repo,
                                                      std::stop_token cancellation = {}) override;
    QCoro::Task<void> addRemote(RepoEntry repo, std::string name, std::string url,
                                std::stop_token cancellation = {}) override;
    QCoro::Task<void> removeRemote(RepoEntry repo, std::string name,
                                   std::stop_token cancellation = {}) override;
    QCoro::Task<void> fetch(RepoEntry repo, std::string remote, bool prune,
                            std::stop_token cancellation = {}) override;
    QCoro::Task<MergeResult> pull(RepoEntry repo, std::string remote, PullStrategy strategy,
                                  std::stop_token cancellation = {}) override;
    QCoro::Task<void> push(RepoEntry repo, std::string remote, std::stop_token cancellation = {}) override;
    QCoro::Task<void> forcePush(RepoEntry repo, std::string remote,
                                std::stop_token cancellation = {}) override;
    QCoro::Task<OperationResult> cherryPick(RepoEntry repo, std::string hash,
                                            std::stop_token cancellation = {}) override;
    QCoro::Task<OperationResult> revert(RepoEntry repo, std::string hash,
                                        std::stop_token cancellation = {}) override;
    QCoro::Task<void> reset(RepoEntry repo, std::string hash, ResetMode mode,
                            std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<TagEntry>> listTags(RepoEntry repo, std::stop_token cancellation = {}) override;
    QCoro::Task<void> createTag(RepoEntry repo, std::string name, std::optional<std::string> hash,
                                std::optional<std::string> message,
                                std::stop_token cancellation = {}) override;
    QCoro::Task<void> pushTag(RepoEntry repo, std::string name, std::string remote,
                              std::stop_token cancellation = {}) override;
    QCoro::Task<void> deleteTag(RepoEntry repo, std::string name, std::stop_token cancellation = {}) override;
    QCoro::Task<void> checkoutTag(RepoEntry repo, std::string name,
                                  std::stop_token cancellation = {}) override;
    QCoro::Task<void> stashSave(RepoEntry repo, std::optional<std::string> message, bool includeUntracked,
                                std::stop_token cancellation = {}) override;
    QCoro::Task<OperationResult> stashPop(RepoEntry repo, std::stop_token cancellation = {}) override;
    QCoro::Task<OperationResult> stashApply(RepoEntry repo, long index,
                                            std::stop_token cancellation = {}) override;
    QCoro::Task<void> stashDrop(RepoEntry repo, long index, std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<StashEntry>> stashList(RepoEntry repo,
                                                   std::stop_token cancellation = {}) override;
    QCoro::Task<void> stashFile(RepoEntry repo, std::string path, std::stop_token cancellation = {}) override;
    QCoro::Task<void> resolveConflictUsingOurs(RepoEntry repo, std::string path,
                                               std::stop_token cancellation = {}) override;
    QCoro::Task<void> resolveConflictUsingTheirs(RepoEntry repo, std::string path,
                                                 std::stop_token cancellation = {}) override;
    QCoro::Task<void> abortMerge(RepoEntry repo, std::stop_token cancellation = {}) override;
    QCoro::Task<void> abortRebase(RepoEntry repo, std::stop_token cancellation = {}) override;
    QCoro::Task<void> abortCherryPick(RepoEntry repo, std::stop_token cancellation = {}) override;
    QCoro::Task<void> abortRevert(RepoEntry repo, std::stop_token cancellation = {}) override;
    QCoro::Task<InteractiveRebaseResult> rebaseContinue(RepoEntry repo,
                                                        std::stop_token cancellation = {}) override;
    QCoro::Task<InteractiveRebaseResult> rebaseSkip(RepoEntry repo,
                                                    std::stop_token cancellation = {}) override;
    QCoro::Task<std::string> readBlob(RepoEntry repo, std::string hash,
                                      std::stop_token cancellation = {}) override;
    QCoro::Task<void> writeResolvedFile(RepoEntry repo, std::string path, std::string content,
                                        std::stop_token cancellation = {}) override;
    QCoro::Task<std::string> readWorkTreeFile(RepoEntry repo, std::string path,
                                              std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<CommitEntry>> fileHistory(RepoEntry repo, std::string path, long limit,
                                                      std::stop_token cancellation = {}) override;
    QCoro::Task<RepositoryState> repositoryState(RepoEntry repo, std::stop_token cancellation = {}) override;
    QCoro::Task<std::optional<std::string>> preparedCommitMessage(RepoEntry repo,
                                                                  std::stop_token cancellation = {}) override;
    QCoro::Task<std::optional<std::string>> defaultBranch(RepoEntry repo,
                                                          std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<std::string>> mergedBranches(RepoEntry repo, std::string target,
                                                         std::stop_token cancellation = {}) override;
    QCoro::Task<std::optional<std::string>> currentBranch(RepoEntry repo,
                                                          std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<UndoEntry>> undoHistory(RepoEntry repo, std::stop_token cancellation = {}) override;
    QCoro::Task<void> undo(RepoEntry repo, std::string id, std::stop_token cancellation = {}) override;
    QCoro::Task<RepoEntry> cloneRepository(std::string url, std::string path,
                                           std::stop_token cancellation = {}) override;
    QCoro::Task<RepoEntry> initRepository(std::string path, std::optional<std::string> initialBranch,
                                          std::stop_token cancellation = {}) override;
    QCoro::Task<std::vector<std::string>> searchCommits(RepoEntry repo, std::string query, CommitSearchType scope,
                                                        std::stop_token cancellation = {}) override;
    QCoro::Task<bool> updateCommitGraph(RepoEntry repo, std::stop_token cancellation = {}) override;

    const std::shared_ptr<GitOpRunner>& opRunner() const { return opRunner_; }

    // The bound of the undo journal for the operations queued from now on.
    void setUndoLimits(UndoLimits limits);

  private:
    // Queues `block` behind the earlier operations of the repository at `repoPath`; on a worker it
    // is called with the executor and that path. The one way an operation reaches the queue.
    template <typename Block>
    auto queued(const std::string& repoPath, std::stop_token cancellation, Block block) {
        return opRunner_->serializedExecute(
            repoPath, [git = executor_, repoPath, block = std::move(block)] { return block(*git, repoPath); },
            std::move(cancellation));
    }

    // As queued, with what `block` changes kept in the undo journal first: the bytes of `paths`,
    // the values of the refs that `refs(git, repoPath)` names. Every destructive operation, and
    // every discard however it changes the files, is queued through here.
    template <typename Refs, typename Block>
    auto journalled(const std::string& repoPath, std::stop_token cancellation, UndoAction action, std::string subject,
                    std::vector<std::string> paths, Refs refs, Block block) {
        return queued(repoPath, std::move(cancellation),
                      [limits = undoLimits(), action, subject = std::move(subject), paths = std::move(paths),
                       refs = std::move(refs), block = std::move(block)](GitExecutorProtocol& git,
                                                                         const std::string& repoPath) {
                          // With the journal off, not even the refs are read.
                          const bool on = limits.entries > 0;
                          return UndoJournal::journalAround(git, repoPath, limits, action, subject, paths,
                                                            on ? refs(git, repoPath) : std::vector<std::string>(),
                                                            [&] { return block(git, repoPath); });
                      });
    }
    // As queued, for a step that may end a merge or rebase stopped earlier: when it does, the
    // journal keeps the branch as it was before that merge or rebase began.
    template <typename Block>
    auto resuming(const std::string& repoPath, std::stop_token cancellation, Block block) {
        return queued(repoPath, std::move(cancellation),
                      [limits = undoLimits(), block = std::move(block)](GitExecutorProtocol& git,
                                                                        const std::string& repoPath) {
                          return UndoJournal::passingResult([&] { return block(git, repoPath); },
                                                            [&](const std::function<void()>& run) {
                                                                UndoJournal::journalResumed(git, repoPath, limits, run);
                                                            });
                      });
    }
    template <typename Block>
    auto queuedDiscard(const std::string& repoPath, std::stop_token cancellation, std::vector<std::string> paths,
                       Block block) {
        return journalled(repoPath, std::move(cancellation), UndoAction::discard, {}, std::move(paths),
                          [](GitExecutorProtocol&, const std::string&) { return std::vector<std::string>(); },
                          std::move(block));
    }
    UndoLimits undoLimits() const;
    // The refs of an operation that moves the one ref `name`.
    static auto fixedRefs(std::string name) {
        return [name = std::move(name)](GitExecutorProtocol&, const std::string&) { return std::vector{name}; };
    }

    // Whether git signs under the configuration `key`, asked outside the queue.
    QCoro::Task<bool> signingSetting(const std::string& repoPath, std::string_view key);
    using CommitCommand = CommitEntry (*)(GitExecutorProtocol&, const std::string&, const std::string&, bool);
    // A commit or an amend: the signing setting first, then the command and its read-back.
    QCoro::Task<CommitEntry> commitWith(CommitCommand command, RepoEntry repo, std::string message,
                                        std::stop_token cancellation);
    using HunkCommand = void (*)(GitExecutorProtocol&, const std::string&, const std::string&,
                                 const DiffHunk&);
    // One of the three hunk actions: the entry line, the block, and the failure line.
    QCoro::Task<void> hunkAction(const char* name, HunkCommand command, RepoEntry repo, std::string path,
                                 DiffHunk hunk, std::stop_token cancellation);
    using LinesCommand = void (*)(GitExecutorProtocol&, const std::string&, const FileChange&,
                                  const std::vector<HunkLines>&);
    // One of the three line actions, as a hunk action is run.
    QCoro::Task<void> linesAction(const char* name, LinesCommand command, RepoEntry repo, FileChange file,
                                  std::vector<HunkLines> lines, std::stop_token cancellation);

    std::shared_ptr<GitExecutorProtocol> executor_;
    std::shared_ptr<GitOpRunner> opRunner_;
    // One for the whole service, not per repository; adding or removing a remote clears it.
    std::shared_ptr<RemoteNameCache> remoteNames_ = std::make_shared<RemoteNameCache>();
    mutable std::mutex undoLimitsMutex_;
    UndoLimits undoLimits_;
};

} // namespace orvel
