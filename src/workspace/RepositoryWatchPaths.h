// The folders a tab watches to notice changes made outside the program.
#pragma once

#include "core/records/RepoEntry.h"

#include <string>
#include <vector>

namespace orvel {

// The working tree, the git directory and the common git directory, as git named them at open:
// a linked worktree's index and HEAD live in its own git directory and its refs in the main
// repository's, both outside the working tree. A folder that lies inside one listed before it is
// left out, since the watcher already walks it.
std::vector<std::string> repositoryWatchPaths(const RepoEntry& repo);

} // namespace orvel
