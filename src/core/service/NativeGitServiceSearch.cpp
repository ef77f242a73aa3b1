// The commit search of the git service: one `git log` per scope, or two side by side for `all`,
// each in the repository's queue.
#include "core/commands/SearchCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

QCoro::Task<std::vector<std::string>> NativeGitService::searchCommits(RepoEntry repo, std::string query,
                                                                      CommitSearchType scope,
                                                                      std::stop_token cancellation) {
    qCDebug(lcGraph, "searchCommits: scope=%d in %s", static_cast<int>(scope), repo.path.c_str());
    // Every search is queued before the first answer is awaited, so the two of `all` run side by side.
    std::vector<QCoro::Task<std::vector<std::string>>> searches;
    for (auto& arguments : SearchCommands::searchCommandLines(query, scope)) {
        searches.push_back(
            queued(repo.path, cancellation,
                   [arguments = std::move(arguments)](GitExecutorProtocol& git, const std::string& repoPath) {
                       return SearchCommands::searchCommits(git, repoPath, arguments);
                   }));
    }
    std::vector<std::string> found;
    for (auto& search : searches)
        SearchCommands::joinSearchResults(found, co_await std::move(search));
    co_return found;
}

} // namespace orvel
