// Stages, unstages or discards one hunk, or chosen lines of hunks. The file's diff is read again
// at the moment of the action and the hunk with the same four numbers is cut out of git's own
// text and given to `git apply`, so a hunk that moved since it was shown fails instead of landing
// elsewhere; chosen lines go ahead only while their hunks read line for line as they were shown.
#pragma once

#include "core/commands/HunkPatch.h"
#include "core/commands/LinePatch.h"
#include "core/process/GitExecutorProtocol.h"
#include "core/records/DiffResult.h"
#include "core/records/FileChange.h"
#include "core/records/HunkLines.h"

#include <string>
#include <vector>

namespace orvel::HunkCommands {

// `file` is relative to the repository root and always stands behind "--".
void stageHunk(GitExecutorProtocol& git, const std::string& repoPath, const std::string& file,
               const DiffHunk& hunk);
void unstageHunk(GitExecutorProtocol& git, const std::string& repoPath, const std::string& file,
                 const DiffHunk& hunk);
void discardHunk(GitExecutorProtocol& git, const std::string& repoPath, const std::string& file,
                 const DiffHunk& hunk);

// The chosen lines of `file` (its path, and its original path for a staged rename, stand behind
// "--" in the re-read). Only the chosen additions and deletions change; nothing is applied when a
// hunk no longer reads as it was shown.
void stageLines(GitExecutorProtocol& git, const std::string& repoPath, const FileChange& file,
                const std::vector<HunkLines>& lines);
void unstageLines(GitExecutorProtocol& git, const std::string& repoPath, const FileChange& file,
                  const std::vector<HunkLines>& lines);
void discardLines(GitExecutorProtocol& git, const std::string& repoPath, const FileChange& file,
                  const std::vector<HunkLines>& lines);

} // namespace orvel::HunkCommands
