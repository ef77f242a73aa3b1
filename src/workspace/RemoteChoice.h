// Which remote a fetch, pull or push talks to, and how far the current branch stands from its
// upstream, both read from a repository's branch list.
#pragma once

#include "core/records/BranchEntry.h"

#include <string>
#include <vector>

namespace orvel {

// The current local branch, or none (a detached HEAD, an unborn branch, an empty list).
const BranchEntry* currentLocalBranch(const std::vector<BranchEntry>& branches);

// The current branch's upstream remote when it has one, otherwise "origin".
std::string chosenRemote(const std::vector<BranchEntry>& branches);

struct AheadBehind {
    int ahead = 0;
    int behind = 0;
};

// The current branch's distance from its upstream; 0 and 0 without one.
AheadBehind upstreamDistance(const std::vector<BranchEntry>& branches);

} // namespace orvel
