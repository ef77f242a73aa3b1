// Reset, cherry-pick and revert, and taking one side of a conflict, as operations of the git
// service. Each runs as one block of the repository's queue.
#include "core/commands/ConflictSideCommands.h"
#include "core/commands/HistoryEditCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

QCoro::Task<OperationResult> NativeGitService::cherryPick(RepoEntry repo, std::string hash) {
    qCDebug(lcOps, "cherryPick: %s in %s", hash.c_str(), repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, hash] {
        return HistoryEditCommands::cherryPick(*git, repoPath, hash);
    });
    co_return co_await std::move(task);
}

QCoro::Task<OperationResult> NativeGitService::revert(RepoEntry repo, std::string hash) {
    qCDebug(lcOps, "revert: %s in %s", hash.c_str(), repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, hash] {
        return HistoryEditCommands::revert(*git, repoPath, hash);
    });
    co_return co_await std::move(task);
}

QCoro::Task<void> NativeGitService::reset(RepoEntry repo, std::string hash, ResetMode mode) {
    qCDebug(lcOps, "reset: %s mode=%s in %s", hash.c_str(), HistoryEditCommands::resetModeName(mode),
            repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, hash, mode] {
        HistoryEditCommands::reset(*git, repoPath, hash, mode);
    });
    co_await std::move(task);
}

QCoro::Task<void> NativeGitService::resolveConflictUsingOurs(RepoEntry repo, std::string path) {
    qCDebug(lcOps, "resolveConflictUsingOurs: %s in %s", path.c_str(), repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, path] {
        ConflictSideCommands::resolveUsingOurs(*git, repoPath, path);
    });
    co_await std::move(task);
}

QCoro::Task<void> NativeGitService::resolveConflictUsingTheirs(RepoEntry repo, std::string path) {
    qCDebug(lcOps, "resolveConflictUsingTheirs: %s in %s", path.c_str(), repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, path] {
        ConflictSideCommands::resolveUsingTheirs(*git, repoPath, path);
    });
    co_await std::move(task);
}

} // namespace orvel
