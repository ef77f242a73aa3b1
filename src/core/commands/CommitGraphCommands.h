// git's commit-graph file: whether it still covers the refs, and writing it. With the file (and
// its changed-path filters) a `--topo-order` log of a long history reads only what it prints
// instead of walking every commit first.
#pragma once

#include "core/process/GitExecutorProtocol.h"

#include <filesystem>
#include <string>

namespace orvel::CommitGraphCommands {

// The file is missing, or some ref changed after it was written. `gitDir` is the repository's
// git directory; a linked worktree's refs and objects are looked up in its common directory.
bool isCommitGraphStale(const std::filesystem::path& gitDir);

// "commit-graph", "write", "--reachable", "--changed-paths".
void writeCommitGraph(GitExecutorProtocol& git, const std::string& repoPath);

} // namespace orvel::CommitGraphCommands
