// The interactive rebase without a terminal or an editor: the commits to replay are read as a
// plan of pick rows, and a finished plan is handed to `git rebase --interactive` through a todo
// file and two generated scripts that git runs as its sequence editor and message editor. Each
// function blocks until git has ended; all its work belongs to one block of the repository's queue.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/RebasePlan.h"
#include "core/records/RepoEntry.h"
#include "core/service/OperationResults.h"

#include <string>
#include <vector>

namespace orvel::InteractiveRebaseCommands {

// Targets beginning with "-" are refused with invalidInput before anything runs or is written.

// The commits between `onto` and HEAD, oldest first, each a pick row with a fresh id.
std::vector<RebaseTodoEntry> rebaseTodoList(GitExecutorProtocol& git, const std::string& repoPath,
                                            const std::string& onto);

// Runs the plan. A zero exit is success; any failure is read back from git's rebase state as a
// conflict or an edit stop, and without a rebase in progress raises "Rebase failed unexpectedly".
// The todo file and the scripts live in the temporary directory and are removed when the call
// ends, whether it succeeded, stopped or failed, also when writing one of them failed.
InteractiveRebaseResult interactiveRebase(GitExecutorProtocol& git, const RepoEntry& repo,
                                          const RebasePlan& plan);

} // namespace orvel::InteractiveRebaseCommands
