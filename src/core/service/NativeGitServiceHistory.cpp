// The history operations of the git service: the commit graph, with the remote names that tell
// remote branches from local ones, read a page at a time, the commit a name resolves to, and HEAD's
// flat history.
#include "core/commands/HistoryCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

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
    // One block for the look-up and the log; it holds the cache itself, not the service.
    return queued(repo.path, cancellation,
                  [cache = remoteNames_, limit](GitExecutorProtocol& git, const std::string& repoPath) {
                      return HistoryCommands::commitGraph(git, repoPath, limit, cache->names(git, repoPath));
                  });
}

QCoro::Task<std::vector<GraphCommit>> NativeGitService::commitGraphPage(RepoEntry repo, long skip, long limit,
                                                                        std::stop_token cancellation) {
    qCDebug(lcGraph, "commitGraphPage: skip=%ld limit=%ld in %s", skip, limit, repo.path.c_str());
    return queued(repo.path, cancellation,
                  [cache = remoteNames_, skip, limit](GitExecutorProtocol& git, const std::string& repoPath) {
                      return HistoryCommands::commitGraphPage(git, repoPath, skip, limit,
                                                              cache->names(git, repoPath));
                  });
}

QCoro::Task<std::optional<std::string>> NativeGitService::resolveCommit(RepoEntry repo, std::string name,
                                                                        std::stop_token cancellation) {
    qCDebug(lcGraph, "resolveCommit: in %s", repo.path.c_str());
    return queued(repo.path, cancellation,
                  [name = std::move(name)](GitExecutorProtocol& git, const std::string& repoPath) {
                      return HistoryCommands::resolveCommit(git, repoPath, name);
                  });
}

} // namespace orvel
