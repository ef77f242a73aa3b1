// Branch names with slashes shown as folders: the tree of one list of branches under a root (the
// local branches, or one remote's), and the grouping of remote-tracking branches by remote.
#pragma once

#include "core/records/BranchEntry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

struct BranchTreeNode {
    // The root and the path below it ("local/feature/x"), so that a local and a remote "main"
    // never share an id.
    std::string id;
    std::string name; // the last component
    std::vector<BranchTreeNode> children;
    std::optional<BranchEntry> branch; // present on a leaf, absent on a folder

    bool isFolder() const { return !branch.has_value(); }
};

// Folders before leaves on every level, each sorted by name, case-insensitively in the locale's
// order. `stripPrefix` is taken off the front of each name first ("origin/" under a remote's root);
// empty components are dropped, so "a//b" sits in folder "a". A branch and a folder of the same
// name ("x" and "x/y") both appear.
std::vector<BranchTreeNode> buildBranchTree(const std::vector<BranchEntry>& branches, std::string_view root,
                                            std::string_view stripPrefix = {});

struct RemoteGroup {
    std::string remote;
    std::vector<BranchEntry> branches;
};

// The remote a remote-tracking branch belongs to: the text before the first "/" of its name, or
// "origin" when the name has none.
std::string remoteOf(std::string_view name);

// Groups in the order they are first met; entries keep their order within a group.
std::vector<RemoteGroup> groupByRemote(const std::vector<BranchEntry>& remoteBranches);

struct RemoteTreeGroup {
    std::string remote;
    std::vector<BranchTreeNode> nodes;
};

// One tree a group, rooted at the remote's name, with "<remote>/" taken off each name.
std::vector<RemoteTreeGroup> buildRemoteTrees(const std::vector<RemoteGroup>& groups);

} // namespace orvel
