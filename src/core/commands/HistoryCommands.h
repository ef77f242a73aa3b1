// Reading the history: the commits of the graph with their refs, and HEAD's flat history.
#pragma once

#include "core/parsers/LogParser.h"
#include "core/process/GitExecutorProtocol.h"

#include <string>
#include <vector>

namespace orvel::HistoryCommands {

// The names `git remote` prints, one a line, trimmed; empty lines dropped.
RemoteNameSet remoteNames(GitExecutorProtocol& git, const std::string& repoPath);

// The newest `limit` commits of all refs, children before parents.
std::vector<GraphCommit> commitGraph(GitExecutorProtocol& git, const std::string& repoPath, long limit,
                                     const RemoteNameSet& remoteNames);

// The newest `limit` commits reachable from HEAD.
std::vector<CommitEntry> commitHistory(GitExecutorProtocol& git, const std::string& repoPath, long limit);

} // namespace orvel::HistoryCommands
