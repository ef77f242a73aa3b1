// An in-memory git service with canned records, so that views can be shown and view models
// exercised without git. Tests replace the canned records through the public fields.
// Records are returned as explicit copies: QCoro's co_return moves from a named lvalue.
#pragma once

#include "core/service/GitServiceProtocol.h"

#include <map>
#include <optional>
#include <string>

namespace orvel {

class MockGitService final : public GitServiceProtocol {
public:
    MockGitService();

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

    QCoro::Task<void> pushBranch(RepoEntry repo, std::string branch, std::string remote) override;
    QCoro::Task<std::vector<RemoteEntry>> listRemotes(RepoEntry repo) override;
    QCoro::Task<void> addRemote(RepoEntry repo, std::string name, std::string url) override;
    QCoro::Task<void> removeRemote(RepoEntry repo, std::string name) override;
    QCoro::Task<void> fetch(RepoEntry repo, std::string remote, bool prune) override;
    QCoro::Task<MergeResult> pull(RepoEntry repo, std::string remote, PullStrategy strategy) override;
    QCoro::Task<void> push(RepoEntry repo, std::string remote) override;
    QCoro::Task<void> forcePush(RepoEntry repo, std::string remote) override;

    QCoro::Task<std::optional<std::string>> defaultBranch(RepoEntry repo) override;
    QCoro::Task<std::optional<std::string>> currentBranch(RepoEntry repo) override;
    QCoro::Task<RepoEntry> cloneRepository(std::string url, std::string path) override;
    QCoro::Task<RepoEntry> initRepository(std::string path, std::optional<std::string> initialBranch) override;

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

private:
    static CommitEntry entryOf(const GraphCommit& commit);
    // Makes the commit that a commit or an amend with `message` leaves at HEAD.
    CommitEntry commitStaged(const std::string& message, bool amend);

    int madeCommits_ = 0;
};

} // namespace orvel
