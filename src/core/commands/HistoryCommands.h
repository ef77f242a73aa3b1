// Reading the history: the commits of the graph with their refs, and HEAD's flat history.
#pragma once

#include "core/parsers/LogParser.h"
#include "core/process/GitExecutorProtocol.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace orvel::HistoryCommands {

// The names `git remote` prints, one a line, trimmed; empty lines dropped.
RemoteNameSet remoteNames(GitExecutorProtocol& git, const std::string& repoPath);

// The newest `limit` commits of all refs, children before parents.
std::vector<GraphCommit> commitGraph(GitExecutorProtocol& git, const std::string& repoPath, long limit,
                                     const RemoteNameSet& remoteNames);

// The same order after its first `skip` commits, down to the root, handed to `deliver` in pages of
// `pageSize` (the last one shorter) while git still prints: a later load continues where the
// previous one ended. An exception from `deliver` ends git's run and leaves this call.
void streamCommitGraph(GitExecutorProtocol& git, const std::string& repoPath, long skip, std::size_t pageSize,
                       const RemoteNameSet& remoteNames,
                       const std::function<void(std::vector<GraphCommit>)>& deliver);

// The whole record of the commit `hash`, with its body and git's abbreviation of its hash.
CommitEntry commitDetails(GitExecutorProtocol& git, const std::string& repoPath, const std::string& hash);

// The full hash of the commit `name` (a hash, a prefix, a branch or a tag) names, or nothing when
// it names no commit.
std::optional<std::string> resolveCommit(GitExecutorProtocol& git, const std::string& repoPath,
                                         const std::string& name);

// The newest `limit` commits reachable from HEAD.
std::vector<CommitEntry> commitHistory(GitExecutorProtocol& git, const std::string& repoPath, long limit);

} // namespace orvel::HistoryCommands
