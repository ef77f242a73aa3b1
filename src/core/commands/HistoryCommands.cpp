#include "core/commands/HistoryCommands.h"

#include "core/service/GitServiceError.h"
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
    return commitGraphPage(git, repoPath, 0, limit, remoteNames);
}

std::vector<GraphCommit> commitGraphPage(GitExecutorProtocol& git, const std::string& repoPath, long skip,
                                         long limit, const RemoteNameSet& remoteNames) {
    GitExecutorProtocol::Arguments arguments{"log", "--all", "--topo-order", "-n", std::to_string(limit)};
    if (skip > 0)
        arguments.push_back("--skip=" + std::to_string(skip));
    arguments.emplace_back(graphFormat);
    return GitOutputParser::parseCommitGraph(git.execute(arguments, repoPath), remoteNames);
}

std::optional<std::string> resolveCommit(GitExecutorProtocol& git, const std::string& repoPath,
                                         const std::string& name) {
    std::string output;
    try {
        output = git.execute({"rev-parse", "--verify", "--quiet", "--end-of-options", name + "^{commit}"},
                             repoPath);
    } catch (const GitServiceError&) {
        return std::nullopt; // --verify exits non-zero on a name that names no commit
    }
    std::string hash = trimmed(output);
    if (hash.empty())
        return std::nullopt;
    return hash;
}

std::vector<CommitEntry> commitHistory(GitExecutorProtocol& git, const std::string& repoPath, long limit) {
    const std::string output =
        git.execute({"log", "-n", std::to_string(limit), std::string(historyFormat)}, repoPath);
    return GitOutputParser::parseCommitHistory(output);
}

} // namespace orvel::HistoryCommands
