// Predicts what a merge, a cherry-pick, a revert or each step of an interactive rebase will do,
// with `git merge-tree --write-tree`, which merges in the object store alone. Nothing here writes
// a ref, the index or a file of the working tree: merge-tree writes the merged trees, and a pick or
// revert on top of a tree that is no commit yet gets a throw-away commit from `commit-tree` whose
// only parent makes git take the right merge base. Those objects stay loose and unreferenced, and
// git's own maintenance removes them. Each function blocks until its git commands have ended.
#pragma once

#include "core/commands/MergePredictionCache.h"
#include "core/process/GitExecutorProtocol.h"
#include "core/records/MergePrediction.h"
#include "core/records/RebasePlan.h"

#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace orvel::MergePredictionCommands {

// Why a git of this `git --version` text cannot predict (merge-tree --write-tree came with 2.38),
// or nothing when it can.
std::optional<std::string> unsupportedReason(std::string_view versionText);

// Merging `branch` into HEAD.
MergePrediction predictMerge(GitExecutorProtocol& git, const std::string& repoPath, const std::string& branch);
// Cherry-picking `commit` onto HEAD, or with `revert` reverting it there.
MergePrediction predictPick(GitExecutorProtocol& git, const std::string& repoPath, const std::string& commit,
                            bool revert);
// One prediction a row of the plan, in its order: each step is picked onto the tree the steps
// before it leave; a squash or fixup merges into the previous result like a pick; drop and exec
// rows change nothing and answer clean. After a conflicting step the later ones go on from the
// tree git wrote for it, conflict markers included. A step `cache` knows is answered from it, and
// each step worked out is stored there. Throws OperationCancelled between steps once
// `cancellation` has fired.
std::vector<MergePrediction> predictRebase(GitExecutorProtocol& git, const std::string& repoPath,
                                           const RebasePlan& plan, MergePredictionCache& cache,
                                           std::stop_token cancellation = {});

} // namespace orvel::MergePredictionCommands
