// Merging and rebasing onto another branch, continuing or skipping a stopped rebase, and aborting
// a merge, rebase, cherry-pick or revert. Each function blocks until its git commands have ended;
// all commands of one call belong to one block of the repository's queue.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/RepoEntry.h"
#include "core/service/OperationResults.h"

#include <string>

namespace orvel::MergeCommands {

// Branches and targets beginning with "-" are refused with invalidInput before git runs.

// Runs a command that merges into HEAD (a merge, a pull) and reads its outcome from git's English
// stdout. A failure that leaves unmerged paths answers the conflict case; any other failure is
// git's error.
MergeResult runMerge(GitExecutorProtocol& git, const std::string& repoPath,
                     const GitExecutorProtocol::Arguments& arguments);
MergeResult merge(GitExecutorProtocol& git, const std::string& repoPath, const std::string& branch);
// Never a conflict: a merge that cannot fast-forward is git's error.
MergeResult fastForwardMerge(GitExecutorProtocol& git, const std::string& repoPath,
                             const std::string& branch);
// A plain rebase reports no progress, so its conflict case has no hash and zero steps.
RebaseResult rebase(GitExecutorProtocol& git, const std::string& repoPath, const std::string& onto);
// A zero exit ends the rebase; a failure reads where it stopped (see readRebaseStop).
InteractiveRebaseResult rebaseContinue(GitExecutorProtocol& git, const RepoEntry& repo);
InteractiveRebaseResult rebaseSkip(GitExecutorProtocol& git, const RepoEntry& repo);

void abortMerge(GitExecutorProtocol& git, const std::string& repoPath);
void abortRebase(GitExecutorProtocol& git, const std::string& repoPath);
void abortCherryPick(GitExecutorProtocol& git, const std::string& repoPath);
void abortRevert(GitExecutorProtocol& git, const std::string& repoPath);

} // namespace orvel::MergeCommands
