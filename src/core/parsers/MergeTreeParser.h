// Reads the two outputs the merge prediction asks git for: `merge-tree --write-tree --name-only
// --no-messages -z` (the merged tree, then each conflicted path) and `log --no-walk --format=%H %T %P`
// (a commit, its tree and its parents).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel::GitOutputParser {

struct MergeTreeOutput {
    std::string tree;               // the merged tree, with conflict markers where it conflicted
    std::vector<std::string> files; // conflicted paths, sorted, each once
};

// Nothing when the output does not begin with an object name and a NUL.
std::optional<MergeTreeOutput> parseMergeTree(std::string_view text);

struct CommitTrees {
    std::string hash;
    std::string tree;
    std::vector<std::string> parents;
};

// One record a line; a line whose hash or tree is no object name is dropped.
std::vector<CommitTrees> parseCommitTrees(std::string_view text);

// Whether `text` is a full object name: 40 or 64 lowercase hex digits.
bool isObjectName(std::string_view text);

} // namespace orvel::GitOutputParser
