// Settling a conflicted path by taking one side whole: check that side out, then stage it. Both
// commands run in one queue block, so no status can see the path checked out but not staged.
#pragma once

#include "core/process/GitExecutorProtocol.h"

#include <string>

namespace orvel::ConflictSideCommands {

void resolveUsingOurs(GitExecutorProtocol& git, const std::string& repoPath, const std::string& path);
void resolveUsingTheirs(GitExecutorProtocol& git, const std::string& repoPath, const std::string& path);

} // namespace orvel::ConflictSideCommands
