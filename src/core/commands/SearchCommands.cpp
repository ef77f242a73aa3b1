#include "core/commands/SearchCommands.h"

#include "core/commands/UndoJournal.h"
#include "core/support/Text.h"

#include <unordered_set>

namespace orvel::SearchCommands {

std::vector<std::vector<std::string>> searchCommandLines(const std::string& query, CommitSearchType scope) {
    if (query.empty())
        return {};
    const std::string format(hashFormat);
    const std::vector<std::string> message{"log", allButUndoRefs, "--all", "--grep=" + query, "-i", format};
    const std::vector<std::string> author{"log", allButUndoRefs, "--all", "--author=" + query, "-i", format};
    switch (scope) {
    case CommitSearchType::all:
        return {message, author};
    case CommitSearchType::message:
        return {message};
    case CommitSearchType::author:
        return {author};
    case CommitSearchType::diff:
        return {{"log", allButUndoRefs, "--all", "-S", query, "--fixed-strings", format}};
    case CommitSearchType::filePath:
        return {{"log", allButUndoRefs, "--all", format, "--", query}};
    case CommitSearchType::ref:
    case CommitSearchType::hash:
        return {};
    }
    return {};
}

std::vector<std::string> searchCommits(GitExecutorProtocol& git, const std::string& repoPath,
                                       const std::vector<std::string>& arguments) {
    const std::string output = git.execute(arguments, repoPath);
    std::vector<std::string> hashes;
    for (const auto line : splitLines(output)) {
        if (std::string hash = trimmed(line); !hash.empty())
            hashes.push_back(std::move(hash));
    }
    return hashes;
}

void joinSearchResults(std::vector<std::string>& found, std::vector<std::string> more) {
    std::unordered_set<std::string> seen(found.begin(), found.end());
    for (auto& hash : more) {
        if (seen.insert(hash).second)
            found.push_back(std::move(hash));
    }
}

} // namespace orvel::SearchCommands
