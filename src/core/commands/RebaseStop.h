// Reads where a rebase stopped from git's own state files, for the continue and skip commands and
// for the interactive rebase.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/RepoEntry.h"
#include "core/service/OperationResults.h"

namespace orvel {

// The rebase in progress as a stop: a conflict when unmerged paths exist, an edit stop otherwise.
// Reads "rebase-merge/msgnum", "rebase-merge/end" and "rebase-merge/stopped-sha" below the git
// directory (missing or unreadable files count as 0 and ""), then asks git for unmerged paths; a
// failure of that query counts as none. Throws commandFailed("rebase", "Rebase failed unexpectedly")
// when no rebase is in progress.
InteractiveRebaseResult readRebaseStop(GitExecutorProtocol& git, const RepoEntry& repo);

// True while git's "rebase-merge" state directory exists, also after git has paused with exit 0.
bool rebaseInProgress(const RepoEntry& repo);

} // namespace orvel
