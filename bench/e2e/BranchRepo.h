// Repositories of many branches and tags for the branch-list and sidebar benchmarks.
#pragma once

#include <cstddef>
#include <string>

namespace orvel::bench {

// The name of generated branch `n`: "team03/feature/topic-00042", so that names share folders.
std::string branchName(std::size_t n);

// Creates `directory` with `branches` branches, half local and half remote-tracking under
// "origin", every other local branch tracking its remote
// counterpart and diverged from it, and `tags` lightweight tags, every tenth annotated.
void makeBranchRepository(const std::string& directory, std::size_t branches, std::size_t tags);

} // namespace orvel::bench
