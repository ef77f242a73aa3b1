// The staging and commit operations of the git service. A commit asks for the signing setting
// outside the queue first, then commits and reads the new commit back in one block, so that
// nothing of the same repository can slip between the two.
//
// Each block is handed over in a statement of its own and the task awaited after: g++ 12 destroys
// temporaries that stand inside an await expression twice.
#include "core/commands/StagingCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

QCoro::Task<void> NativeGitService::stage(RepoEntry repo, std::string path) {
    qCDebug(lcStaging, "stage: %s in %s", path.c_str(), repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, path] {
        StagingCommands::stage(*git, repoPath, path);
    });
    co_await std::move(task);
}

QCoro::Task<void> NativeGitService::stageFiles(RepoEntry repo, std::vector<std::string> paths) {
    qCDebug(lcStaging, "stageFiles: %ld files in %s", static_cast<long>(paths.size()), repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, paths] {
        StagingCommands::stageFiles(*git, repoPath, paths);
    });
    co_await std::move(task);
}

QCoro::Task<void> NativeGitService::stageAll(RepoEntry repo) {
    qCDebug(lcStaging, "stageAll: %s", repo.path.c_str());
    auto task = opRunner_->serializedExecute(
        repo.path, [git = executor_, repoPath = repo.path] { StagingCommands::stageAll(*git, repoPath); });
    co_await std::move(task);
}

QCoro::Task<void> NativeGitService::unstage(RepoEntry repo, std::string path) {
    qCDebug(lcStaging, "unstage: %s in %s", path.c_str(), repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, path] {
        StagingCommands::unstage(*git, repoPath, path);
    });
    co_await std::move(task);
}

QCoro::Task<void> NativeGitService::unstageFiles(RepoEntry repo, std::vector<std::string> paths) {
    qCDebug(lcStaging, "unstageFiles: %ld files in %s", static_cast<long>(paths.size()), repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, paths] {
        StagingCommands::unstageFiles(*git, repoPath, paths);
    });
    co_await std::move(task);
}

QCoro::Task<void> NativeGitService::unstageAll(RepoEntry repo) {
    qCDebug(lcStaging, "unstageAll: %s", repo.path.c_str());
    auto task = opRunner_->serializedExecute(
        repo.path, [git = executor_, repoPath = repo.path] { StagingCommands::unstageAll(*git, repoPath); });
    co_await std::move(task);
}

QCoro::Task<void> NativeGitService::discardChanges(RepoEntry repo, std::string path, bool includeStaged) {
    qCDebug(lcStaging, "discardChanges: %s includeStaged=%s in %s", path.c_str(),
            includeStaged ? "true" : "false", repo.path.c_str());
    auto task =
        opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, path, includeStaged] {
            StagingCommands::discardChanges(*git, repoPath, path, includeStaged);
        });
    co_await std::move(task);
}

QCoro::Task<CommitEntry> NativeGitService::commit(RepoEntry repo, std::string message) {
    qCDebug(lcStaging, "commit: %s in %s", message.c_str(), repo.path.c_str());
    auto signing = opRunner_->runUnqueued(
        [git = executor_, repoPath = repo.path] { return StagingCommands::signingEnabled(*git, repoPath); });
    const bool sign = co_await std::move(signing);
    auto task =
        opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, message, sign] {
            return StagingCommands::commit(*git, repoPath, message, sign);
        });
    co_return co_await std::move(task);
}

QCoro::Task<CommitEntry> NativeGitService::amendCommit(RepoEntry repo, std::string message) {
    qCDebug(lcStaging, "amendCommit: %s in %s", message.c_str(), repo.path.c_str());
    auto signing = opRunner_->runUnqueued(
        [git = executor_, repoPath = repo.path] { return StagingCommands::signingEnabled(*git, repoPath); });
    const bool sign = co_await std::move(signing);
    auto task =
        opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, message, sign] {
            return StagingCommands::amendCommit(*git, repoPath, message, sign);
        });
    co_return co_await std::move(task);
}

} // namespace orvel
