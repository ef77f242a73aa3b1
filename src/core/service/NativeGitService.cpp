#include "core/service/NativeGitService.h"

#include "core/commands/RepositoryCommands.h"
#include "core/commands/StatusCommands.h"
#include "core/support/Log.h"

namespace orvel {

// Each block's task is made in a statement of its own: g++ 12 destroys temporaries that stand
// inside an await expression twice.

NativeGitService::NativeGitService(std::shared_ptr<GitExecutorProtocol> executor,
                                   std::shared_ptr<GitOpRunner> opRunner)
    : executor_(std::move(executor)), opRunner_(std::move(opRunner)) {}

QCoro::Task<RepoEntry> NativeGitService::open(std::string path) {
    qCDebug(lcRepo, "open: %s", path.c_str());
    auto task = opRunner_->serializedExecute(
        path, [git = executor_, path] { return RepositoryCommands::open(*git, path); });
    co_return co_await std::move(task);
}

QCoro::Task<StatusResult> NativeGitService::status(RepoEntry repo) {
    qCDebug(lcRepo, "status: %s", repo.path.c_str());
    auto task = opRunner_->serializedExecute(
        repo.path, [git = executor_, path = repo.path] { return StatusCommands::status(*git, path); });
    co_return co_await std::move(task);
}

QCoro::Task<std::optional<std::string>> NativeGitService::defaultBranch(RepoEntry repo) {
    qCDebug(lcRefs, "defaultBranch: %s", repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path] {
        return RepositoryCommands::defaultBranch(*git, path);
    });
    co_return co_await std::move(task);
}

QCoro::Task<std::optional<std::string>> NativeGitService::currentBranch(RepoEntry repo) {
    qCDebug(lcRefs, "currentBranch: %s", repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path] {
        return RepositoryCommands::currentBranch(*git, path);
    });
    co_return co_await std::move(task);
}

QCoro::Task<RepoEntry> NativeGitService::cloneRepository(std::string url, std::string path) {
    qCDebug(lcRepo, "cloneRepository: %s -> %s", redactForLog(url).c_str(), path.c_str());
    RepositoryCommands::validateCloneUrl(url);
    auto task = opRunner_->serializedExecute(
        path, [git = executor_, url, path] { RepositoryCommands::clone(*git, url, path); });
    co_await std::move(task);
    co_return co_await open(path);
}

QCoro::Task<RepoEntry> NativeGitService::initRepository(std::string path,
                                                        std::optional<std::string> initialBranch) {
    qCDebug(lcRepo, "initRepository: %s", path.c_str());
    auto task = opRunner_->serializedExecute(path, [git = executor_, path, initialBranch] {
        RepositoryCommands::init(*git, path, initialBranch);
    });
    co_await std::move(task);
    co_return co_await open(path);
}

} // namespace orvel
