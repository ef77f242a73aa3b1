// The history operations of the git service: the commit graph, with the remote names that tell
// remote branches from local ones, and HEAD's flat history.
#include "core/commands/HistoryCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

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
    std::optional<RemoteNameSet> names;
    {
        std::lock_guard lock(cachedRemoteNamesMutex_);
        names = cachedRemoteNames_;
    }
    if (!names) {
        names = co_await opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path] {
            return HistoryCommands::remoteNames(*git, path);
        });
        std::lock_guard lock(cachedRemoteNamesMutex_);
        cachedRemoteNames_ = names;
    }
    co_return co_await opRunner_->serializedExecute(
        repo.path, [git = executor_, path = repo.path, limit, names = std::move(*names)] {
            return HistoryCommands::commitGraph(*git, path, limit, names);
        });
}

} // namespace orvel
