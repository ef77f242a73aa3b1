// Listing, creating, switching, renaming and deleting branches, and the branches already merged
// into another. Each function blocks until its git command has ended; a failure is git's error.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/BranchEntry.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel::BranchCommands {

// Names, start points and remotes beginning with "-" are refused with invalidInput before git runs.
// Where "--" only ends the options it stands before them too; in checkout and in "--merged" it
// would mean something else.

// Local and remote branches, with git's "HEAD" pseudo-entries as it prints them.
std::vector<BranchEntry> branches(GitExecutorProtocol& git, const std::string& repoPath);
void createBranch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name,
                  const std::optional<std::string>& startPoint);
void checkoutBranch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name);
void checkoutNewBranch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name,
                       const std::string& startPoint);
// Without `force`, git refuses a branch that is not fully merged ("not fully merged" in stderr).
void deleteBranch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name, bool force);
void renameBranch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& oldName,
                  const std::string& newName);
void deleteRemoteBranch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& remote,
                        const std::string& branch);
// Local branches whose tips are reachable from `target`, in git's order, without `target` itself.
std::vector<std::string> mergedBranches(GitExecutorProtocol& git, const std::string& repoPath,
                                        const std::string& target);

} // namespace orvel::BranchCommands
