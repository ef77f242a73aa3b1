// Reading the history: the commits of the graph with their refs, and HEAD's flat history.
#pragma once

#include "core/parsers/LogParser.h"
#include "core/process/GitExecutorProtocol.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel::HistoryCommands {

// The names `git remote` prints, one a line, trimmed; empty lines dropped.
RemoteNameSet remoteNames(GitExecutorProtocol& git, const std::string& repoPath);

// The newest `limit` commits of all refs, children before parents.
std::vector<GraphCommit> commitGraph(GitExecutorProtocol& git, const std::string& repoPath, long limit,
                                     const RemoteNameSet& remoteNames);

// The same order after its first `skip` commits: a later page continues where the previous one ended.
std::vector<GraphCommit> commitGraphPage(GitExecutorProtocol& git, const std::string& repoPath, long skip,
                                         long limit, const RemoteNameSet& remoteNames);

// The full hash of the commit `name` (a hash, a prefix, a branch or a tag) names, or nothing when
// it names no commit.
std::optional<std::string> resolveCommit(GitExecutorProtocol& git, const std::string& repoPath,
                                         const std::string& name);

// The newest `limit` commits reachable from HEAD.
std::vector<CommitEntry> commitHistory(GitExecutorProtocol& git, const std::string& repoPath, long limit);

} // namespace orvel::HistoryCommands
