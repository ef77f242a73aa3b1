// The history operations of the git service: the commit graph, with the remote names that tell
// remote branches from local ones, and HEAD's flat history.
#include "core/commands/HistoryCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

namespace {

// The remote names of the service's cache, read through `git remote` when the cache is empty.
// git runs without the lock held, so a slow look-up doesn't hold up other repositories.
RemoteNameSet cachedOrReadRemoteNames(std::mutex& mutex, std::optional<RemoteNameSet>& cache,
                                      GitExecutorProtocol& git, const std::string& repoPath) {
    {
        std::lock_guard lock(mutex);
        if (cache)
            return *cache;
    }
    RemoteNameSet names = HistoryCommands::remoteNames(git, repoPath);
    std::lock_guard lock(mutex);
    cache = names;
    return names;
}

} // namespace

void NativeGitService::resetCachedRemoteNames() {
    std::lock_guard lock(cachedRemoteNamesMutex_);
    cachedRemoteNames_.reset();
}

QCoro::Task<std::vector<CommitEntry>> NativeGitService::commitHistory(RepoEntry repo, long limit) {
    qCDebug(lcGraph, "commitHistory: limit=%ld in %s", limit, repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, limit] {
        return HistoryCommands::commitHistory(*git, path, limit);
    });
    co_return co_await std::move(task);
}

QCoro::Task<std::vector<GraphCommit>> NativeGitService::commitGraph(RepoEntry repo, long limit) {
    qCDebug(lcGraph, "commitGraph: limit=%ld in %s", limit, repo.path.c_str());
    // One block for the look-up and the log. It reaches the cache through references: the
    // service lives as long as the program. The task is made in a statement of its own because
    // g++ 12 destroys temporaries that stand inside an await expression twice.
    auto task = opRunner_->serializedExecute(repo.path, [&mutex = cachedRemoteNamesMutex_,
                                                         &cache = cachedRemoteNames_, git = executor_,
                                                         path = repo.path, limit] {
        const RemoteNameSet names = cachedOrReadRemoteNames(mutex, cache, *git, path);
        return HistoryCommands::commitGraph(*git, path, limit, names);
    });
    co_return co_await std::move(task);
}

} // namespace orvel
