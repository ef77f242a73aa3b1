#include "workspace/RemoteChoice.h"

#include <algorithm>

namespace orvel {

const BranchEntry* currentLocalBranch(const std::vector<BranchEntry>& branches) {
    // git lists a detached HEAD as a current "(HEAD detached at …)" entry that names no branch.
    const auto found = std::find_if(branches.begin(), branches.end(), [](const BranchEntry& branch) {
        return branch.isCurrent && branch.fullRefName.starts_with("refs/heads/");
    });
    return found == branches.end() ? nullptr : &*found;
}

std::string chosenRemote(const std::vector<BranchEntry>& branches) {
    const BranchEntry* current = currentLocalBranch(branches);
    if (current && current->upstream && !current->upstream->remoteName.empty())
        return current->upstream->remoteName;
    return "origin";
}

AheadBehind upstreamDistance(const std::vector<BranchEntry>& branches) {
    const BranchEntry* current = currentLocalBranch(branches);
    if (!current || !current->upstream)
        return {};
    return {current->upstream->ahead, current->upstream->behind};
}

} // namespace orvel
