#include "core/commands/HistoryCommands.h"

#include "core/support/Text.h"

namespace orvel::HistoryCommands {

RemoteNameSet remoteNames(GitExecutorProtocol& git, const std::string& repoPath) {
    RemoteNameSet names;
    const std::string output = git.execute({"remote"}, repoPath);
    for (const auto line : splitLines(output)) {
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
