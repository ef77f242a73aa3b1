// A local or remote branch as `git branch -a` lists it, with its upstream and its tip commit.
#pragma once

#include "core/support/IsoDate.h"

#include <optional>
#include <string>

namespace orvel {

// The branch a local branch tracks and how far the two have moved apart.
struct UpstreamInfo {
    std::string name;       // "origin/main"
    std::string remoteName; // "origin"
    int ahead = 0;
    int behind = 0;
    bool isGone = false; // the remote branch no longer exists
    std::optional<std::string> fullRemoteRef;

    bool operator==(const UpstreamInfo&) const = default;
};

struct BranchEntry {
    std::string name;        // short name: "main", "origin/main"
    std::string fullRefName; // "refs/heads/main", "refs/remotes/origin/main"
    bool isRemote = false;
    bool isCurrent = false;
    std::string hash;
    std::optional<UpstreamInfo> upstream;
    std::optional<std::string> worktreePath; // where the branch is checked out, if anywhere
    std::optional<std::string> description;
    std::optional<Instant> lastCommitDate; // committer date of the tip
    std::optional<std::string> lastCommitSubject;

    bool operator==(const BranchEntry&) const = default;
};

} // namespace orvel
