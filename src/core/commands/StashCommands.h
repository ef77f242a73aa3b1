// The stash: saving the work tree away, bringing it back, dropping and listing entries.
// Applying a stash can stop on conflicts; that comes back as the conflict result, and git keeps
// the stash entry in that case.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/StashEntry.h"
#include "core/service/OperationResults.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel::StashCommands {

// An absent message drops "-m"; an empty one is still passed.
void stashSave(GitExecutorProtocol& git, const std::string& repoPath,
               const std::optional<std::string>& message, bool includeUntracked);
OperationResult stashPop(GitExecutorProtocol& git, const std::string& repoPath);
OperationResult stashApply(GitExecutorProtocol& git, const std::string& repoPath, long index);
void stashDrop(GitExecutorProtocol& git, const std::string& repoPath, long index);
std::vector<StashEntry> stashList(GitExecutorProtocol& git, const std::string& repoPath);
// Stashes one path; an untracked file is stashed with "--include-untracked".
void stashFile(GitExecutorProtocol& git, const std::string& repoPath, const std::string& path);

} // namespace orvel::StashCommands
