#include "core/commands/HistoryCommands.h"

#include "core/support/Text.h"

namespace orvel::HistoryCommands {

RemoteNameSet remoteNames(GitExecutorProtocol& git, const std::string& repoPath) {
    RemoteNameSet names;
    for (const auto line : splitLines(git.execute({"remote"}, repoPath))) {
        if (std::string name = trimmedBlanks(line); !name.empty())
            names.insert(std::move(name));
    }
    return names;
}

std::vector<GraphCommit> commitGraph(GitExecutorProtocol& git, const std::string& repoPath, long limit,
                                     const RemoteNameSet& remoteNames) {
    const std::string output = git.execute(
        {"log", "--all", "--topo-order", "-n", std::to_string(limit), std::string(graphFormat)}, repoPath);
    return GitOutputParser::parseCommitGraph(output, remoteNames);
}

std::vector<CommitEntry> commitHistory(GitExecutorProtocol& git, const std::string& repoPath, long limit) {
    const std::string output =
        git.execute({"log", "-n", std::to_string(limit), std::string(historyFormat)}, repoPath);
    return GitOutputParser::parseCommitHistory(output);
}

} // namespace orvel::HistoryCommands
