// Opening, creating and cloning a repository, and the branch look-ups that need no parser.
// Each function runs its git commands through the executor and blocks until they end.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/RepoEntry.h"

#include <optional>
#include <string>

namespace orvel::RepositoryCommands {

RepoEntry open(GitExecutorProtocol& git, const std::string& path);
std::optional<std::string> currentBranch(GitExecutorProtocol& git, const std::string& repoPath);
std::optional<std::string> defaultBranch(GitExecutorProtocol& git, const std::string& repoPath);
// `url` must have passed validateCloneUrl; `path` must be absolute.
void clone(GitExecutorProtocol& git, const std::string& url, const std::string& path);
void init(GitExecutorProtocol& git, const std::string& path, const std::optional<std::string>& initialBranch);

// Throws invalidInput for an empty URL or one that git would read as an option.
void validateCloneUrl(const std::string& url);

// The in-progress operation, from the marker files below the git directory.
RepositoryState detectState(const std::string& gitDirPath);
// The message git prepared for the commit that ends a stopped merge, pick or revert (MERGE_MSG),
// without its comment lines; nothing when there is no such file or no text in it.
std::optional<std::string> preparedCommitMessage(const std::string& gitDirPath);

} // namespace orvel::RepositoryCommands
