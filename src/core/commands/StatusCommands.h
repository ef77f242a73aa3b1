// The working-tree status of a repository.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/FileChange.h"

#include <string>

namespace orvel::StatusCommands {

StatusResult status(GitExecutorProtocol& git, const std::string& repoPath);

} // namespace orvel::StatusCommands
