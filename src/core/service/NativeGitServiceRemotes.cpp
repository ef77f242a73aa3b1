// The remote operations of the git service: the list of remotes, fetch, pull and push. Adding
// or removing a remote drops the remote names that the graph keeps, in the same block, so that a
// graph load queued behind it reads the new names.
#include "core/commands/RemoteCommands.h"
#include "core/commands/RepositoryCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

QCoro::Task<void> NativeGitService::pushBranch(RepoEntry repo, std::string branch, std::string remote,
                                               std::stop_token cancellation) {
    qCDebug(lcOps, "pushBranch: %s to %s in %s", branch.c_str(), remote.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation,
                  [branch, remote](GitExecutorProtocol& git, const std::string& repoPath) {
                      RemoteCommands::pushBranch(git, repoPath, branch, remote);
                  });
}

QCoro::Task<std::vector<RemoteEntry>> NativeGitService::listRemotes(RepoEntry repo,
                                                                    std::stop_token cancellation) {
    qCDebug(lcRefs, "listRemotes: %s", repo.path.c_str());
    return queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        return RemoteCommands::listRemotes(git, repoPath);
    });
}

QCoro::Task<void> NativeGitService::addRemote(RepoEntry repo, std::string name, std::string url,
                                              std::stop_token cancellation) {
    qCDebug(lcRefs, "addRemote: %s %s in %s", name.c_str(), redactForLog(url).c_str(), repo.path.c_str());
    // Checked before it is queued, as a clone's url is.
    RepositoryCommands::validateCloneUrl(url);
    auto task =
        queued(repo.path, cancellation,
               [name, url, cache = remoteNames_](GitExecutorProtocol& git, const std::string& repoPath) {
                   RemoteCommands::addRemote(git, repoPath, name, url);
                   cache->clear();
               });
    co_await std::move(task);
}

QCoro::Task<void> NativeGitService::removeRemote(RepoEntry repo, std::string name,
                                                 std::stop_token cancellation) {
    qCDebug(lcRefs, "removeRemote: %s in %s", name.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation,
                  [name, cache = remoteNames_](GitExecutorProtocol& git, const std::string& repoPath) {
                      RemoteCommands::removeRemote(git, repoPath, name);
                      cache->clear();
                  });
}

QCoro::Task<void> NativeGitService::fetch(RepoEntry repo, std::string remote, bool prune,
                                          std::stop_token cancellation) {
    qCDebug(lcOps, "fetch: %s prune=%s in %s", remote.c_str(), prune ? "true" : "false", repo.path.c_str());
    return queued(repo.path, cancellation,
                  [remote, prune](GitExecutorProtocol& git, const std::string& repoPath) {
                      RemoteCommands::fetch(git, repoPath, remote, prune);
                  });
}

QCoro::Task<MergeResult> NativeGitService::pull(RepoEntry repo, std::string remote, PullStrategy strategy,
                                                std::stop_token cancellation) {
    qCDebug(lcOps, "pull: %s strategy=%s in %s", remote.c_str(), RemoteCommands::toString(strategy),
            repo.path.c_str());
    // A merge or rebase of the checked-out branch, whichever the strategy makes it.
    return journalled(repo.path, cancellation, UndoAction::pull, remote, {}, &UndoJournal::checkedOutRefs,
                      [remote, strategy](GitExecutorProtocol& git, const std::string& repoPath) {
                          return RemoteCommands::pull(git, repoPath, remote, strategy);
                      });
}

QCoro::Task<void> NativeGitService::push(RepoEntry repo, std::string remote, std::stop_token cancellation) {
    qCDebug(lcOps, "push: %s in %s", remote.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [remote](GitExecutorProtocol& git, const std::string& repoPath) {
        RemoteCommands::push(git, repoPath, remote);
    });
}

QCoro::Task<void> NativeGitService::forcePush(RepoEntry repo, std::string remote,
                                              std::stop_token cancellation) {
    qCDebug(lcOps, "forcePush: %s in %s", remote.c_str(), repo.path.c_str());
    // What the remote had shows in its remote-tracking branch; an undo pushes that back.
    auto tracking = [remote](GitExecutorProtocol& git, const std::string& repoPath) {
        const std::string branch = UndoJournal::checkedOutRef(git, repoPath);
        if (!branch.starts_with("refs/heads/"))
            return std::vector<std::string>();
        return std::vector{"refs/remotes/" + remote + "/" + branch.substr(std::string_view("refs/heads/").size())};
    };
    return journalled(repo.path, cancellation, UndoAction::forcePush, remote, {}, tracking,
                      [remote](GitExecutorProtocol& git, const std::string& repoPath) {
                          RemoteCommands::forcePush(git, repoPath, remote);
                      });
}

} // namespace orvel
