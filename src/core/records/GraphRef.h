// A branch or tag name that decorates a row of the commit graph.
#pragma once

#include <string>
#include <string_view>

namespace orvel {

enum class GraphRefType { localBranch, remoteBranch, tag };

std::string_view toString(GraphRefType type);

struct GraphRef {
    // A branch as git's "%D" prints it (a remote branch with its remote), a tag without "tag: ".
    std::string name;
    GraphRefType type = GraphRefType::localBranch;
    // Only for the branch HEAD points at.
    bool isCurrent = false;

    // "tag:v1.0", "localBranch:main", "remoteBranch:origin/main": the key of per-ref view state.
    std::string id() const;

    bool operator==(const GraphRef&) const = default;
};

} // namespace orvel
