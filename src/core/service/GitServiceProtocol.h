// The one interface through which upper layers reach a repository. Operations stand in contract
// order; each is a coroutine that may fail with GitServiceError, a child-process error
// (std::system_error) or a file-system error. Arguments are taken by value: coroutines outlive
// their callers' temporaries. Each takes a stop token last: an operation whose token has been
// triggered before it reaches the queue fails with OperationCancelled and runs nothing.
#pragma once

#include "core/records/BlameEntry.h"
#include "core/records/BranchEntry.h"
#include "core/records/CommitEntry.h"
#include "core/records/CommitSearchType.h"
#include "core/records/DiffContext.h"
#include "core/records/DiffResult.h"
#include "core/records/FileChange.h"
#include "core/records/GraphCommit.h"
#include "core/records/HunkLines.h"
#include "core/records/MergePrediction.h"
#include "core/records/RebasePlan.h"
#include "core/records/RemoteEntry.h"
#include "core/records/RepoEntry.h"
#include "core/records/StashEntry.h"
#include "core/records/TagEntry.h"
#include "core/records/UndoEntry.h"
#include "core/service/CommitPageChannel.h"
#include "core/service/OperationResults.h"

#include <QCoro/QCoroTask>

#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace orvel {

class MergePredictionCache;

class GitServiceProtocol {
  public:
    virtual ~GitServiceProtocol() = default;

    virtual QCoro::Task<RepoEntry> open(std::string path, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<StatusResult> status(RepoEntry repo, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> stage(RepoEntry repo, std::string path, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> stageFiles(RepoEntry repo, std::vector<std::string> paths,
                                         std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> stageAll(RepoEntry repo, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> unstage(RepoEntry repo, std::string path,
                                      std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> unstageFiles(RepoEntry repo, std::vector<std::string> paths,
                                           std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> unstageAll(RepoEntry repo, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> stageHunk(RepoEntry repo, std::string path, DiffHunk hunk,
                                        std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> unstageHunk(RepoEntry repo, std::string path, DiffHunk hunk,
                                          std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> discardHunk(RepoEntry repo, std::string path, DiffHunk hunk,
                                          std::stop_token cancellation = {}) = 0;
    // Chosen lines of hunks of `file`, read again at the moment of the action as the hunks are.
    virtual QCoro::Task<void> stageLines(RepoEntry repo, FileChange file, std::vector<HunkLines> lines,
                                         std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> unstageLines(RepoEntry repo, FileChange file, std::vector<HunkLines> lines,
                                           std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> discardLines(RepoEntry repo, FileChange file, std::vector<HunkLines> lines,
                                           std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> discardChanges(RepoEntry repo, std::string path, bool includeStaged,
                                             std::stop_token cancellation = {}) = 0;
    // Unstages each of `unstage`, then restores each of `restore` from the index and deletes each
    // of `remove` (a folder with all it holds, but one holding a repository of its own is refused),
    // path by path, so that one failure doesn't stop the others; the bytes they had and what the
    // index held for them go to the undo journal first, as one entry. Gives back the paths that failed.
    virtual QCoro::Task<std::vector<DiscardFailure>> discardPaths(RepoEntry repo, std::vector<std::string> restore,
                                                                  std::vector<std::string> remove,
                                                                  std::vector<std::string> unstage = {},
                                                                  std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<CommitEntry> commit(RepoEntry repo, std::string message,
                                            std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<CommitEntry> amendCommit(RepoEntry repo, std::string message,
                                                 std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::vector<CommitEntry>> commitHistory(RepoEntry repo, long limit,
                                                                std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::vector<GraphCommit>> commitGraph(RepoEntry repo, long limit,
                                                              std::stop_token cancellation = {}) = 0;
    // The commits of the graph after the first `skip` of them, down to the root, pushed to `pages`
    // while git prints them; ends when git has ended, or with OperationCancelled once `pages` closes.
    virtual QCoro::Task<void> streamCommitGraph(RepoEntry repo, long skip, std::shared_ptr<CommitPageChannel> pages,
                                                std::stop_token cancellation = {}) = 0;
    // The whole record of one commit: its body and git's abbreviation of its hash.
    virtual QCoro::Task<CommitEntry> commitDetails(RepoEntry repo, std::string hash,
                                                   std::stop_token cancellation = {}) = 0;
    // The full hash of the commit a hash, prefix, branch or tag names, or nothing.
    virtual QCoro::Task<std::optional<std::string>> resolveCommit(RepoEntry repo, std::string name,
                                                                  std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<DiffResult> diff(RepoEntry repo, DiffContext context, std::optional<int> contextLines,
                                         std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<DiffResult> commitDiff(RepoEntry repo, std::string hash,
                                               std::optional<int> contextLines,
                                               std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::vector<FileChange>> commitFileChanges(RepoEntry repo, std::string hash,
                                                                   std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::vector<BlameEntry>> blame(RepoEntry repo, std::string path,
                                                       std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::vector<BranchEntry>> branches(RepoEntry repo,
                                                           std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> createBranch(RepoEntry repo, std::string name,
                                           std::optional<std::string> startPoint,
                                           std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> checkoutBranch(RepoEntry repo, std::string name,
                                             std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> checkoutNewBranch(RepoEntry repo, std::string name, std::string startPoint,
                                                std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> deleteBranch(RepoEntry repo, std::string name, bool force,
                                           std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> renameBranch(RepoEntry repo, std::string oldName, std::string newName,
                                           std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> deleteRemoteBranch(RepoEntry repo, std::string remote, std::string branch,
                                                 std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<MergeResult> merge(RepoEntry repo, std::string branch,
                                           std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<MergeResult> fastForwardMerge(RepoEntry repo, std::string branch,
                                                      std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<RebaseResult> rebase(RepoEntry repo, std::string onto,
                                             std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::vector<RebaseTodoEntry>> rebaseTodoList(RepoEntry repo, std::string onto,
                                                                     std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<InteractiveRebaseResult> interactiveRebase(RepoEntry repo, RebasePlan plan,
                                                                   std::stop_token cancellation = {}) = 0;
    // What merging `branch` into HEAD, picking or reverting `commit` onto HEAD, or each row of
    // `plan` will do, without changing the repository; they run outside the repository's queue. A
    // git too old to tell, or a failure of git, answers unknown with the reason. A rebase's steps
    // already worked out in `cache` are taken from it, and new ones stored there.
    virtual QCoro::Task<MergePrediction> predictMerge(RepoEntry repo, std::string branch,
                                                      std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<MergePrediction> predictPick(RepoEntry repo, std::string commit, bool revert,
                                                     std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::vector<MergePrediction>>
    predictRebase(RepoEntry repo, RebasePlan plan, std::shared_ptr<MergePredictionCache> cache,
                  std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> pushBranch(RepoEntry repo, std::string branch, std::string remote,
                                         std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::string> tagDetail(RepoEntry repo, std::string name,
                                               std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::vector<RemoteEntry>> listRemotes(RepoEntry repo,
                                                              std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> addRemote(RepoEntry repo, std::string name, std::string url,
                                        std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> removeRemote(RepoEntry repo, std::string name,
                                           std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> fetch(RepoEntry repo, std::string remote, bool prune,
                                    std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<MergeResult> pull(RepoEntry repo, std::string remote, PullStrategy strategy,
                                          std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> push(RepoEntry repo, std::string remote, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> forcePush(RepoEntry repo, std::string remote,
                                        std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<OperationResult> cherryPick(RepoEntry repo, std::string hash,
                                                    std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<OperationResult> revert(RepoEntry repo, std::string hash,
                                                std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> reset(RepoEntry repo, std::string hash, ResetMode mode,
                                    std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::vector<TagEntry>> listTags(RepoEntry repo,
                                                        std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> createTag(RepoEntry repo, std::string name, std::optional<std::string> hash,
                                        std::optional<std::string> message,
                                        std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> pushTag(RepoEntry repo, std::string name, std::string remote,
                                      std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> deleteTag(RepoEntry repo, std::string name,
                                        std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> checkoutTag(RepoEntry repo, std::string name,
                                          std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> stashSave(RepoEntry repo, std::optional<std::string> message,
                                        bool includeUntracked, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<OperationResult> stashPop(RepoEntry repo, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<OperationResult> stashApply(RepoEntry repo, long index,
                                                    std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> stashDrop(RepoEntry repo, long index, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::vector<StashEntry>> stashList(RepoEntry repo,
                                                           std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> stashFile(RepoEntry repo, std::string path,
                                        std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> resolveConflictUsingOurs(RepoEntry repo, std::string path,
                                                       std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> resolveConflictUsingTheirs(RepoEntry repo, std::string path,
                                                         std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> abortMerge(RepoEntry repo, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> abortRebase(RepoEntry repo, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> abortCherryPick(RepoEntry repo, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> abortRevert(RepoEntry repo, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<InteractiveRebaseResult> rebaseContinue(RepoEntry repo,
                                                                std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<InteractiveRebaseResult> rebaseSkip(RepoEntry repo,
                                                            std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::string> readBlob(RepoEntry repo, std::string hash,
                                              std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<void> writeResolvedFile(RepoEntry repo, std::string path, std::string content,
                                                std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::string> readWorkTreeFile(RepoEntry repo, std::string path,
                                                      std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::vector<CommitEntry>> fileHistory(RepoEntry repo, std::string path, long limit,
                                                              std::stop_token cancellation = {}) = 0;
    // The operation in progress, from the marker files in the git directory: no git runs.
    virtual QCoro::Task<RepositoryState> repositoryState(RepoEntry repo,
                                                         std::stop_token cancellation = {}) = 0;
    // The message git prepared for the commit that ends a stopped merge, pick or revert, without
    // its comment lines; nothing when git prepared none.
    virtual QCoro::Task<std::optional<std::string>>
    preparedCommitMessage(RepoEntry repo, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::optional<std::string>> defaultBranch(RepoEntry repo,
                                                                  std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::vector<std::string>> mergedBranches(RepoEntry repo, std::string target,
                                                                 std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::optional<std::string>> currentBranch(RepoEntry repo,
                                                                  std::stop_token cancellation = {}) = 0;
    // The entries of the undo journal, newest first.
    virtual QCoro::Task<std::vector<UndoEntry>> undoHistory(RepoEntry repo, std::stop_token cancellation = {}) = 0;
    // Brings back what the entry `id` kept; fails, changing nothing, when newer work is in the way.
    virtual QCoro::Task<void> undo(RepoEntry repo, std::string id, std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<RepoEntry> cloneRepository(std::string url, std::string path,
                                                   std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<RepoEntry> initRepository(std::string path, std::optional<std::string> initialBranch,
                                                  std::stop_token cancellation = {}) = 0;
    virtual QCoro::Task<std::vector<std::string>> searchCommits(RepoEntry repo, std::string query,
                                                                CommitSearchType scope,
                                                                std::stop_token cancellation = {}) = 0;
    // Writes git's commit-graph file when it is missing or older than the refs; answers whether
    // it wrote one.
    virtual QCoro::Task<bool> updateCommitGraph(RepoEntry repo, std::stop_token cancellation = {}) = 0;
};

} // namespace orvel
