// Moving changes between work tree, index and history: stage, unstage, discard, commit, amend.
// Every path stands behind "--", so a path that begins with "-" is never read as an option.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/CommitEntry.h"

#include <string>
#include <vector>

namespace orvel::StagingCommands {

void stage(GitExecutorProtocol& git, const std::string& repoPath, const std::string& path);
// Runs nothing for an empty list.
void stageFiles(GitExecutorProtocol& git, const std::string& repoPath, const std::vector<std::string>& paths);
void stageAll(GitExecutorProtocol& git, const std::string& repoPath);

// Resets the paths to HEAD; without a HEAD to reset to, or when the reset fails, takes them out
// of the index with "rm --cached" instead.
void unstage(GitExecutorProtocol& git, const std::string& repoPath, const std::string& path);
void unstageFiles(GitExecutorProtocol& git, const std::string& repoPath,
                  const std::vector<std::string>& paths);
void unstageAll(GitExecutorProtocol& git, const std::string& repoPath);

// Restores the work tree's copy, and the index's too when `includeStaged`. An untracked path
// fails with git's message: deleting files is not this operation's job.
void discardChanges(GitExecutorProtocol& git, const std::string& repoPath, const std::string& path,
                    bool includeStaged);

// Commits the index with `message` as it stands, then reads the new commit back.
CommitEntry commit(GitExecutorProtocol& git, const std::string& repoPath, const std::string& message,
                   bool sign);
CommitEntry amendCommit(GitExecutorProtocol& git, const std::string& repoPath, const std::string& message,
                        bool sign);

} // namespace orvel::StagingCommands
