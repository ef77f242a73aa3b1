// The history operations of the git service: the commit graph, with the remote names that tell
// remote branches from local ones, and HEAD's flat history.
#include "core/commands/HistoryCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

namespace {

std::optional<RemoteNameSet> readCachedNames(std::mutex& mutex, const std::optional<RemoteNameSet>& cache) {
    std::lock_guard lock(mutex);
    return cache;
}

void storeCachedNames(std::mutex& mutex, std::optional<RemoteNameSet>& cache, const RemoteNameSet& names) {
    std::lock_guard lock(mutex);
    cache = names;
}

} // namespace

void NativeGitService::resetCachedRemoteNames() {
    std::lock_guard lock(cachedRemoteNamesMutex_);
    cachedRemoteNames_.reset();
}

QCoro::Task<std::vector<CommitEntry>> NativeGitService::commitHistory(RepoEntry repo, long limit) {
    qCDebug(lcGraph, "commitHistory: limit=%ld in %s", limit, repo.path.c_str());
    co_return co_await opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, limit] {
        return HistoryCommands::commitHistory(*git, path, limit);
    });
}

QCoro::Task<std::vector<GraphCommit>> NativeGitService::commitGraph(RepoEntry repo, long limit) {
    qCDebug(lcGraph, "commitGraph: limit=%ld in %s", limit, repo.path.c_str());
    // The blocks are named objects rather than temporaries inside the co_await: g++ 12 destroys
    // such temporaries twice when the await stands in a nested block of a coroutine.
    std::optional<RemoteNameSet> names = readCachedNames(cachedRemoteNamesMutex_, cachedRemoteNames_);
    if (!names) {
        auto lookUp = [git = executor_, path = repo.path] {
            return HistoryCommands::remoteNames(*git, path);
        };
        names = co_await opRunner_->serializedExecute(repo.path, std::move(lookUp));
        storeCachedNames(cachedRemoteNamesMutex_, cachedRemoteNames_, *names);
    }
    auto load = [git = executor_, path = repo.path, limit, names = std::move(*names)] {
        return HistoryCommands::commitGraph(*git, path, limit, names);
    };
    co_return co_await opRunner_->serializedExecute(repo.path, std::move(load));
}

} // namespace orvel
