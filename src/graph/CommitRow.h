// One laid-out row of the commit graph: its lanes, left to right. The commit's texts stay with the
// loaded commits, so that a long history keeps them once.
#pragma once

#include "graph/ColumnList.h"
#include "graph/GraphLane.h"

#include <vector>

namespace orvel {

struct CommitRow {
    std::vector<GraphLane> lanes; // ascending by index
    int activeLane = 0;           // the column of the commit's node
    // The columns of the second and further parents, curving into the node.
    ColumnList mergesFrom;
    // The other columns that ended at the node, because they too waited for this commit.
    ColumnList branchesTo;

    bool operator==(const CommitRow&) const = default;
};

} // namespace orvel
