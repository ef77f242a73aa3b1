// One file through time: who last changed each line, and the commits that touched it, followed
// across renames.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/BlameEntry.h"
#include "core/records/CommitEntry.h"

#include <string>
#include <vector>

namespace orvel::FileHistoryCommands {

std::vector<BlameEntry> blame(GitExecutorProtocol& git, const std::string& repoPath, const std::string& path);
// The newest `limit` commits that changed `path`, with its earlier names.
std::vector<CommitEntry> fileHistory(GitExecutorProtocol& git, const std::string& repoPath,
                                     const std::string& path, long limit);

} // namespace orvel::FileHistoryCommands
