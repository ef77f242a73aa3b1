// One entry of the stash list, newest first, with what its commit's parents tell about it.
#pragma once

#include "core/support/IsoDate.h"

#include <optional>
#include <string>

namespace orvel {

struct StashEntry {
    int index = 0; // n of "stash@{n}"
    std::string hash;
    std::string message;                   // "WIP on main: abc1234 subject", "On main: text"
    std::optional<std::string> branchName; // the branch named in the message, if it names one
    std::string baseHash;                  // the commit the stash was made on
    Instant date = distantPast;
    bool includesUntracked = false; // a third parent holds the untracked files
    bool includesIndex = false;

    bool operator==(const StashEntry&) const = default;
};

} // namespace orvel
