// One laid-out row of the commit graph: the commit's texts and its lanes, left to right.
#pragma once

#include "graph/ColumnList.h"
#include "graph/GraphLane.h"

#include <string>
#include <vector>

namespace orvel {

struct CommitRow {
    std::string hash;
    std::string message;
    std::string author;
    std::string date;
    std::vector<GraphLane> lanes; // ascending by index
    int activeLane = 0;           // the column of the commit's node
    // The columns of the second and further parents, curving into the node.
    ColumnList mergesFrom;
    // The other columns that ended at the node, because they too waited for this commit.
    ColumnList branchesTo;

    bool operator==(const CommitRow&) const = default;
};

} // namespace orvel
