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

QCoro::Task<void> NativeGitService::streamCommitGraph(RepoEntry repo, long skip,
                                                     std::shared_ptr<CommitPageChannel> pages,
                                                     std::stop_token cancellation) {
    qCDebug(lcGraph, "streamCommitGraph: skip=%ld in %s", skip, repo.path.c_str());
    return queued(repo.path, cancellation,
                  [cache = remoteNames_, skip, pages](GitExecutorProtocol& git, const std::string& repoPath) {
                      HistoryCommands::streamCommitGraph(
                          git, repoPath, skip, pages->pageSize(), cache->names(git, repoPath),
                          [&pages](std::vector<GraphCommit> page) { pages->push(std::move(page)); });
                  });
}

QCoro::Task<CommitEntry> NativeGitService::commitDetails(RepoEntry repo, std::string hash,
                                                         std::stop_token cancellation) {
    qCDebug(lcGraph, "commitDetails: in %s", repo.path.c_str());
    return queued(repo.path, cancellation,
                  [hash = std::move(hash)](GitExecutorProtocol& git, const std::string& repoPath) {
                      return HistoryCommands::commitDetails(git, repoPath, hash);
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
