// The remote operations of the git service: the list of remotes, fetch, pull and push. Adding
// or removing a remote drops the remote names that the graph keeps.
#include "core/commands/RemoteCommands.h"
#include "core/commands/RepositoryCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

QCoro::Task<void> NativeGitService::pushBranch(RepoEntry repo, std::string branch, std::string remote) {
    qCDebug(lcOps, "pushBranch: %s to %s in %s", branch.c_str(), remote.c_str(), repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, branch, remote] {
        RemoteCommands::pushBranch(*git, path, branch, remote);
    });
    co_return co_await std::move(task);
}

QCoro::Task<std::vector<RemoteEntry>> NativeGitService::listRemotes(RepoEntry repo) {
    qCDebug(lcRefs, "listRemotes: %s", repo.path.c_str());
    auto task = opRunner_->serializedExecute(
        repo.path, [git = executor_, path = repo.path] { return RemoteCommands::listRemotes(*git, path); });
    co_return co_await std::move(task);
}

QCoro::Task<void> NativeGitService::addRemote(RepoEntry repo, std::string name, std::string url) {
    qCDebug(lcRefs, "addRemote: %s %s in %s", name.c_str(), redactForLog(url).c_str(), repo.path.c_str());
    // The command has no "--", so a url that git would read as an option never reaches it.
    RepositoryCommands::validateCloneUrl(url);
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, name, url] {
        RemoteCommands::addRemote(*git, path, name, url);
    });
    co_await std::move(task);
    resetCachedRemoteNames();
}

QCoro::Task<void> NativeGitService::removeRemote(RepoEntry repo, std::string name) {
    qCDebug(lcRefs, "removeRemote: %s in %s", name.c_str(), repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, name] {
        RemoteCommands::removeRemote(*git, path, name);
    });
    co_await std::move(task);
    resetCachedRemoteNames();
}

QCoro::Task<void> NativeGitService::fetch(RepoEntry repo, std::string remote, bool prune) {
    qCDebug(lcOps, "fetch: %s prune=%s in %s", remote.c_str(), prune ? "true" : "false", repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, remote, prune] {
        RemoteCommands::fetch(*git, path, remote, prune);
    });
    co_return co_await std::move(task);
}

QCoro::Task<MergeResult> NativeGitService::pull(RepoEntry repo, std::string remote, PullStrategy strategy) {
    qCDebug(lcOps, "pull: %s strategy=%s in %s", remote.c_str(), RemoteCommands::toString(strategy),
            repo.path.c_str());
    auto task =
        opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, remote, strategy] {
            return RemoteCommands::pull(*git, path, remote, strategy);
        });
    co_return co_await std::move(task);
}

QCoro::Task<void> NativeGitService::push(RepoEntry repo, std::string remote) {
    qCDebug(lcOps, "push: %s in %s", remote.c_str(), repo.path.c_str());
    auto task = opRunner_->serializedExecute(
        repo.path, [git = executor_, path = repo.path, remote] { RemoteCommands::push(*git, path, remote); });
    co_return co_await std::move(task);
}

QCoro::Task<void> NativeGitService::forcePush(RepoEntry repo, std::string remote) {
    qCDebug(lcOps, "forcePush: %s in %s", remote.c_str(), repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, remote] {
        RemoteCommands::forcePush(*git, path, remote);
    });
    co_return co_await std::move(task);
}

} // namespace orvel
