// Keeping git's commit-graph file current: checked and written in one block of the repository's
// queue, so that it runs after the loads queued before it and never beside another operation.
#include "core/commands/CommitGraphCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

QCoro::Task<bool> NativeGitService::updateCommitGraph(RepoEntry repo, std::stop_token cancellation) {
    qCDebug(lcGraph, "updateCommitGraph: %s", repo.path.c_str());
    const std::string gitDir = repo.gitDirPath.value_or(repo.path + "/.git");
    return queued(repo.path, cancellation, [gitDir](GitExecutorProtocol& git, const std::string& repoPath) {
        if (!CommitGraphCommands::isCommitGraphStale(gitDir))
            return false;
        CommitGraphCommands::writeCommitGraph(git, repoPath);
        return true;
    });
}

} // namespace orvel
