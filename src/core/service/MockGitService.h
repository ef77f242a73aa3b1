// An in-memory git service with canned records, so that views can be shown and view models
// exercised without git. Tests replace the canned records through the public fields, or derive
// to hold an answer back or make one fail.
// Records are returned as explicit copies: QCoro's co_return moves from a named lvalue.
#pragma once

#include "core/service/GitServiceProtocol.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

class MockGitService : public GitServiceProtocol {
  public:
    MockGitService();

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

    // The canned repository: `open` answers it with the requested path.
    RepoEntry repository;
    StatusResult workingTree;
    std::optional<std::string> defaultBranchName;
    // `diff` answers the first two for `unstaged` and `staged`, and `historyDiff` for a commit, a
    // stash or a range, as `commitDiff` does; the hunk actions move hunks between the first two.
    DiffResult unstagedDiff = sampleUnstagedDiff();
    DiffResult stagedDiff = sampleStagedDiff();
    DiffResult historyDiff = sampleHistoryDiff();
    std::vector<FileChange> commitFiles = sampleCommitFiles();

    static DiffResult sampleUnstagedDiff();
    static DiffResult sampleStagedDiff();
    static DiffResult sampleHistoryDiff();
    static std::vector<FileChange> sampleCommitFiles();

    // The canned graph, newest first; the history is HEAD's first-parent line through it, and a
    // commit or an amend changes it.
    std::vector<GraphCommit> graph = sampleGraph();

    static std::vector<GraphCommit> sampleGraph();

    // The canned remotes, sorted by name as `git remote -v` reads; adding and removing change them,
    // and fetch, pull and push accept only these names.
    std::vector<RemoteEntry> remotes = sampleRemotes();

    static std::vector<RemoteEntry> sampleRemotes();

    // The branch operations change this list as git would change the refs, and fail with git's
    // words where git would. Merges and rebases read the graph: a target HEAD already holds is up
    // to date, one ahead of HEAD is a fast-forward; diverged histories depend on file contents
    // this service lacks and answer `mergeOutcome` or `rebaseOutcome` (a conflict stops there).
    std::vector<BranchEntry> branchList = sampleBranches();
    MergeResult mergeOutcome = merge::Merged{};
    RebaseResult rebaseOutcome = rebase::Success{};
    InteractiveRebaseResult rebaseStepOutcome = rebase::Success{}; // of rebaseContinue and rebaseSkip
    // `rebaseTodoList` reads HEAD's first-parent line of `graph` back to the commit that `onto` names
    // (a hash, a prefix of one or a ref); `interactiveRebase` keeps the plan it was given and
    // answers `interactiveRebaseOutcome`.
    std::optional<RebasePlan> lastRebasePlan;
    InteractiveRebaseResult interactiveRebaseOutcome = rebase::Success{};
    // The predictions answer these: merges and picks by branch or commit (clean when absent), a plan
    // with `rebasePredictions` one by one (clean past its end); the last plan asked about is kept.
    std::map<std::string, MergePrediction> predictions;
    std::vector<MergePrediction> rebasePredictions;
    std::optional<RebasePlan> lastPredictedPlan;
    // How often `updateCommitGraph` ran; it answers that it wrote the file.
    int commitGraphUpdates = 0;

    // The canned tags, stashes (newest first, "stash@{0}" first), blame runs by path and blob
    // contents by hash. Stash, tag and reset operations change them and `repository`; a resolved
    // file lands in `resolvedFiles` and is staged in the working tree.
    std::vector<TagEntry> tags = sampleTags();
    std::vector<StashEntry> stashes = sampleStashes();
    std::map<std::string, std::vector<BlameEntry>> blames = sampleBlames();
    std::map<std::string, std::string> blobs = sampleBlobs();
    std::map<std::string, std::string> resolvedFiles;
    // Working-tree files by path; a resolved file reads back as it was written.
    std::map<std::string, std::string> workTreeFiles;
    // The message git would have prepared for the commit that ends a stop.
    std::optional<std::string> preparedMessage;

    static std::vector<TagEntry> sampleTags();
    static std::vector<StashEntry> sampleStashes();
    static std::map<std::string, std::vector<BlameEntry>> sampleBlames();
    static std::map<std::string, std::string> sampleBlobs();

  private:
    // Puts a new entry at "stash@{0}" holding `files`, and renumbers the rest.
    void pushStash(const std::string& message, std::vector<FileChange> files, bool includesUntracked);
    // Brings back the files of the stash at `index`, as far as this service saw them saved.
    void applyStash(long index);
    std::string wipMessage() const;
    static CommitEntry entryOf(const GraphCommit& commit);
    // Makes the commit that a commit or an amend with `message` leaves at HEAD.
    CommitEntry commitStaged(const std::string& message, bool amend);
    // Adds a commit with `message` on top of HEAD, or in its place for an amend, and moves HEAD
    // and its branch to it.
    GraphCommit& addCommit(const std::string& message, bool amend);
    // Moves HEAD, and the branch it is on, to `hash`.
    void moveHead(const std::string& hash);
    // The hash that a branch name, a tag name or a hash names; empty when none.
    std::string resolve(const std::string& revision) const;
    // Whether `ancestor` is `commit` or reachable from it through parents in `graph`.
    bool reaches(const std::string& commit, const std::string& ancestor) const;
    // Merges and rebases that stop leave `files` unmerged; an abort takes them back out.
    void stopWithConflicts(const std::vector<ConflictEntry>& files, RepositoryState state);
    void abortStop(RepositoryState state, const std::string& command, const std::string& words);

    int madeCommits_ = 0;
    std::map<std::string, std::vector<FileChange>> stashedFiles_; // by stash hash
    static std::vector<BranchEntry> sampleBranches();
    BranchEntry* findBranch(const std::string& fullRefName);
};

} // namespace orvel
