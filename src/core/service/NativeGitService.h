// The git service over the git command line: every operation writes its entry log line and hands
// one block to the repository's queue, where the commands run through the executor.
#pragma once

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
    QCoro::Task<void> stageHunk(RepoEntry repo, std::string path, DiffHunk hunk) override;
    QCoro::Task<void> unstageHunk(RepoEntry repo, std::string path, DiffHunk hunk) override;
    QCoro::Task<void> discardHunk(RepoEntry repo, std::string path, DiffHunk hunk) override;
    QCoro::Task<DiffResult> diff(RepoEntry repo, DiffContext context,
                                 std::optional<int> contextLines) override;
    QCoro::Task<DiffResult> commitDiff(RepoEntry repo, std::string hash,
                                       std::optional<int> contextLines) override;
    QCoro::Task<std::vector<FileChange>> commitFileChanges(RepoEntry repo, std::string hash) override;

    QCoro::Task<std::optional<std::string>> defaultBranch(RepoEntry repo) override;
    QCoro::Task<std::optional<std::string>> currentBranch(RepoEntry repo) override;
    QCoro::Task<RepoEntry> cloneRepository(std::string url, std::string path) override;
    QCoro::Task<RepoEntry> initRepository(std::string path, std::optional<std::string> initialBranch) override;

    const std::shared_ptr<GitOpRunner>& opRunner() const { return opRunner_; }

private:
    std::shared_ptr<GitExecutorProtocol> executor_;
    std::shared_ptr<GitOpRunner> opRunner_;
};

} // namespace orvel
