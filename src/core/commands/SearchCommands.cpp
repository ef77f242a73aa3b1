#include "core/commands/SearchCommands.h"

#include "core/parsers/LogParser.h"

#include <unordered_set>

namespace orvel::SearchCommands {

std::vector<std::vector<std::string>> searchCommandLines(const std::string& query, CommitSearchType scope,
                                                         long limit) {
    if (query.empty())
        return {};
    const std::string count = std::to_string(limit);
    const std::string format(historyFormat);
    const std::vector<std::string> message{"log", "--all", "--grep=" + query, "-i", "-n", count, format};
    const std::vector<std::string> author{"log", "--all", "--author=" + query, "-i", "-n", count, format};
    switch (scope) {
    case CommitSearchType::all:
        return {message, author};
    case CommitSearchType::message:
        return {message};
    case CommitSearchType::author:
        return {author};
    case CommitSearchType::diff:
        return {{"log", "--all", "-S", query, "--fixed-strings", "-n", count, format}};
    case CommitSearchType::filePath:
        return {{"log", "--all", "-n", count, format, "--", query}};
    case CommitSearchType::ref:
    case CommitSearchType::hash:
        return {};
    }
    return {};
}

std::vector<CommitEntry> searchCommits(GitExecutorProtocol& git, const std::string& repoPath,
                                       const std::vector<std::string>& arguments) {
    return GitOutputParser::parseCommitHistory(git.execute(arguments, repoPath));
}

void joinSearchResults(std::vector<CommitEntry>& found, std::vector<CommitEntry> more) {
    std::unordered_set<std::string> seen;
    for (const auto& entry : found)
        seen.insert(entry.hash);
    for (auto& entry : more) {
        if (seen.insert(entry.hash).second)
            found.push_back(std::move(entry));
    }
}

} // namespace orvel::SearchCommands
