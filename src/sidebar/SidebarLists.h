// The four lists the sidebar shows: local and remote branches, tags and stashes.
#pragma once

#include "core/records/BranchEntry.h"
#include "core/records/StashEntry.h"
#include "core/records/TagEntry.h"

#include <vector>

namespace orvel {

struct SidebarLists {
    std::vector<BranchEntry> localBranches;
    std::vector<BranchEntry> remoteBranches;
    std::vector<TagEntry> tags;
    std::vector<StashEntry> stashes;

    bool operator==(const SidebarLists&) const = default;
    bool empty() const {
        return localBranches.empty() && remoteBranches.empty() && tags.empty() && stashes.empty();
    }
};

} // namespace orvel
