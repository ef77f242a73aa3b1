// Keeping git's commit-graph file current: checked and written in one block of the repository's
// queue, so that it runs after the loads queued before it and never beside another operation.
#include "core/commands/CommitGraphCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

QCoro::Task<bool> NativeGitService::updateCommitGraph(RepoEntry repo, std::stop_token stop) {
    qCDebug(lcGraph, "updateCommitGraph: %s", repo.path.c_str());
    const std::string gitDir = repo.gitDirPath.value_or(repo.path + "/.git");
    auto task = opRunner_->serializedExecute(
        repo.path,
        [git = executor_, path = repo.path, gitDir] {
            if (!CommitGraphCommands::isCommitGraphStale(gitDir))
                return false;
            CommitGraphCommands::writeCommitGraph(*git, path);
            return true;
        },
        std::move(stop));
    co_return co_await std::move(task);
}

} // namespace orvel
