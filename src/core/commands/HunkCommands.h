// Stages, unstages or discards one hunk. The file's diff is read again at the moment of the
// action and the hunk with the same four numbers is cut out of git's own text and given to
// `git apply`, so a hunk that moved since it was shown fails instead of landing elsewhere.
#pragma once

#include "core/commands/HunkPatch.h"
#include "core/process/GitExecutorProtocol.h"
#include "core/records/DiffResult.h"

#include <string>

namespace orvel::HunkCommands {

// `file` is relative to the repository root and always stands behind "--".
void stageHunk(GitExecutorProtocol& git, const std::string& repoPath, const std::string& file,
               const DiffHunk& hunk);
void unstageHunk(GitExecutorProtocol& git, const std::string& repoPath, const std::string& file,
                 const DiffHunk& hunk);
void discardHunk(GitExecutorProtocol& git, const std::string& repoPath, const std::string& file,
                 const DiffHunk& hunk);

} // namespace orvel::HunkCommands
