// One column's part in one row of the commit graph: the node, the vertical lines through the
// row's centre, and, on the node's column, the curves to other columns.
#pragma once

#include "graph/ColumnList.h"

#include <cstdint>

namespace orvel {

// Kept to 24 bytes: a layout of a long history holds millions of lanes.
struct GraphLane {
    std::int32_t index = 0;      // the column, 0 at the left
    std::uint8_t colorIndex = 0; // 0 to 7
    bool hasNode = false;
    bool lineUp = false;   // a line leaves the row's centre upward
    bool lineDown = false; // a line leaves the row's centre downward
    // Node column only: the columns of the second and further parents.
    ColumnList mergesFrom;
    // Node column only: the other columns that ended here, because they too waited for this commit.
    ColumnList branchesTo;

    bool operator==(const GraphLane&) const = default;
};

} // namespace orvel
