#include "core/service/NativeGitService.h"

#include "core/commands/RepositoryCommands.h"
#include "core/commands/StatusCommands.h"
#include "core/support/Log.h"

namespace orvel {

// An operation that only runs its block returns the queue's task instead of awaiting it: the
// block is made in a statement of its own, never inside an await expression, where g++ 12
// destroys temporaries twice.

NativeGitService::NativeGitService(std::shared_ptr<GitExecutorProtocol> executor,
                                   std::shared_ptr<GitOpRunner> opRunner)
    : executor_(std::move(executor)), opRunner_(std::move(opRunner)) {}

QCoro::Task<RepoEntry> NativeGitService::open(std::string path, std::stop_token cancellation) {
    qCDebug(lcRepo, "open: %s", path.c_str());
    return queued(path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        return RepositoryCommands::open(git, repoPath);
    });
}

QCoro::Task<RepositoryState> NativeGitService::repositoryState(RepoEntry repo, std::stop_token cancellation) {
    qCDebug(lcRepo, "repositoryState: %s", repo.path.c_str());
    // Queued, so that the markers are read after the commands before it have left them.
    return queued(repo.path, cancellation,
                  [gitDir = gitDirectory(repo)](GitExecutorProtocol&, const std::string&) {
                      return RepositoryCommands::detectState(gitDir);
                  });
}

QCoro::Task<std::optional<std::string>>
NativeGitService::preparedCommitMessage(RepoEntry repo, std::stop_token cancellation) {
    qCDebug(lcRepo, "preparedCommitMessage: %s", repo.path.c_str());
    // Queued, so that the file is read after the command that stopped has written it.
    return queued(repo.path, cancellation,
                  [gitDir = gitDirectory(repo)](GitExecutorProtocol&, const std::string&) {
                      return RepositoryCommands::preparedCommitMessage(gitDir);
                  });
}

QCoro::Task<StatusResult> NativeGitService::status(RepoEntry repo, std::stop_token cancellation) {
    qCDebug(lcRepo, "status: %s", repo.path.c_str());
    return queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        return StatusCommands::status(git, repoPath);
    });
}

QCoro::Task<std::optional<std::string>> NativeGitService::defaultBranch(RepoEntry repo,
                                                                        std::stop_token cancellation) {
    qCDebug(lcRefs, "defaultBranch: %s", repo.path.c_str());
    return queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        return RepositoryCommands::defaultBranch(git, repoPath);
    });
}

QCoro::Task<std::optional<std::string>> NativeGitService::currentBranch(RepoEntry repo,
                                                                        std::stop_token cancellation) {
    qCDebug(lcRefs, "currentBranch: %s", repo.path.c_str());
    return queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        return RepositoryCommands::currentBranch(git, repoPath);
    });
}

QCoro::Task<RepoEntry> NativeGitService::cloneRepository(std::string url, std::string path,
                                                         std::stop_token cancellation) {
    qCDebug(lcRepo, "cloneRepository: %s -> %s", redactForLog(url).c_str(), path.c_str());
    RepositoryCommands::validateCloneUrl(url);
    auto task = queued(path, cancellation, [url](GitExecutorProtocol& git, const std::string& repoPath) {
        RepositoryCommands::clone(git, url, repoPath);
    });
    co_await std::move(task);
    co_return co_await open(path, cancellation);
}

QCoro::Task<RepoEntry> NativeGitService::initRepository(std::string path,
                                                        std::optional<std::string> initialBranch,
                                                        std::stop_token cancellation) {
    qCDebug(lcRepo, "initRepository: %s", path.c_str());
    auto task =
        queued(path, cancellation, [initialBranch](GitExecutorProtocol& git, const std::string& repoPath) {
            RepositoryCommands::init(git, repoPath, initialBranch);
        });
    co_await std::move(task);
    co_return co_await open(path, cancellation);
}

} // namespace orvel
