// An opened repository as a value: a snapshot taken by `open`, never refreshed by itself.
#pragma once

#include <optional>
#include <string>

namespace orvel {

// The operation in progress, as read from marker files in the git directory.
enum class RepositoryState { clean = 0, merging, rebasing, cherryPicking, reverting, bisecting, applyingMailbox };

const char* toString(RepositoryState state);

struct RepoEntry {
    std::string path; // as given to `open`; the queue key and the value given to git through "-C"
    std::optional<std::string> gitDirPath;
    // Where the refs and objects live: a linked worktree's is its main repository's git directory.
    std::optional<std::string> commonDirPath;
    bool isBare = false;
    std::optional<std::string> currentBranch;
    std::optional<std::string> headHash;
    RepositoryState state = RepositoryState::clean;

    bool operator==(const RepoEntry&) const = default;
};

// The git directory of `repo`, ending in "/": `gitDirPath`, joined to `path` when git answered it
// relative, or `path` joined with ".git/" when the record has none.
std::string gitDirectory(const RepoEntry& repo);

} // namespace orvel
