// Who the two sides of a conflict are, for the merge editor's titles. During a merge, ours is the
// checked-out branch and theirs the merged one. During a rebase, ours is the branch the commits
// are replayed onto and theirs the commit being replayed, by short hash and subject; during a
// cherry-pick or a revert theirs is the commit being applied. The names come from the files git
// keeps in its directory while the operation is under way.
#pragma once

#include "core/records/BranchEntry.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

struct ConflictSideNames {
    std::string ours; // empty when unknown
    std::string theirs;

    bool operator==(const ConflictSideNames&) const = default;
};

// The files of the git directory that name the sides, by their path in it ("MERGE_MSG",
// "rebase-merge/onto", ...); a file that doesn't exist is left out.
using SideFiles = std::map<std::string, std::string>;

// Reads them from `gitDirectory` (ending in "/"); blocking, so it runs off the interface thread.
SideFiles readSideFiles(const std::string& gitDirectory);

// The commit a rebase under way replays onto, when one is; its branch names the side "ours".
std::optional<std::string> rebaseOnto(const SideFiles& files);

// The names from those files; `branches` name the commit a rebase replays onto.
ConflictSideNames conflictSideNames(const SideFiles& files, const std::vector<BranchEntry>& branches);

} // namespace orvel
