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

QCoro::Task<std::vector<CommitEntry>> NativeGitService::commitHistory(RepoEntry repo, long limit,
                                                                      std::stop_token cancellation) {
    qCDebug(lcGraph, "commitHistory: limit=%ld in %s", limit, repo.path.c_str());
    return queued(repo.path, cancellation, [limit](GitExecutorProtocol& git, const std::string& repoPath) {
        return HistoryCommands::commitHistory(git, repoPath, limit);
    });
}

QCoro::Task<std::vector<GraphCommit>> NativeGitService::commitGraph(RepoEntry repo, long limit,
                                                                    std::stop_token cancellation) {
    qCDebug(lcGraph, "commitGraph: limit=%ld in %s", limit, repo.path.c_str());
    // One block for the look-up and the log. It reaches the cache through references: the
    // service lives as long as the program.
    return queued(repo.path, cancellation,
                  [&mutex = cachedRemoteNamesMutex_, &cache = cachedRemoteNames_,
                   limit](GitExecutorProtocol& git, const std::string& repoPath) {
                      const RemoteNameSet names = cachedOrReadRemoteNames(mutex, cache, git, repoPath);
                      return HistoryCommands::commitGraph(git, repoPath, limit, names);
                  });
}

} // namespace orvel
