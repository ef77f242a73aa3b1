// The diffs of the working tree, the index, commits, stashes and ranges, and the file list of a
// commit. Each function runs its git commands through the executor and blocks until they end.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/DiffContext.h"
#include "core/records/DiffResult.h"
#include "core/records/FileChange.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel::DiffCommands {

// The whole repository's diff for `context`; "-U<n>" is added last when `contextLines` is given.
// Revisions beginning with "-" are refused. A negative parent index is a programming error
// (std::invalid_argument).
DiffResult diff(GitExecutorProtocol& git, const std::string& repoPath, const DiffContext& context,
                std::optional<int> contextLines);

// A commit against its first parent; a merge commit never shows as a combined diff.
DiffResult commitDiff(GitExecutorProtocol& git, const std::string& repoPath, const std::string& hash,
                      std::optional<int> contextLines);

// The files a commit changed, each once; a merge lists them against its first parent, as
// commitDiff shows it, and a root commit against the empty tree.
std::vector<FileChange> commitFileChanges(GitExecutorProtocol& git, const std::string& repoPath,
                                          const std::string& hash);

} // namespace orvel::DiffCommands
