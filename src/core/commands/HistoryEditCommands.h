// Moving HEAD and replaying commits: reset in its five modes, cherry-pick and revert. A pick or
// revert that stops on conflicts comes back as the conflict result; one that fails without
// leaving unmerged paths (an empty pick, say) is git's error.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/service/OperationResults.h"

#include <string>

namespace orvel::HistoryEditCommands {

// The lower-case name of the mode: "soft", "mixed", "hard", "merge", "keep".
const char* resetModeName(ResetMode mode);

void reset(GitExecutorProtocol& git, const std::string& repoPath, const std::string& hash, ResetMode mode);
OperationResult cherryPick(GitExecutorProtocol& git, const std::string& repoPath, const std::string& hash);
OperationResult revert(GitExecutorProtocol& git, const std::string& repoPath, const std::string& hash);

} // namespace orvel::HistoryEditCommands
