// One column's part in one row of the commit graph: the node, the vertical lines through the
// row's centre, and, on the node's column, the curves to other columns.
#pragma once

#include <vector>

namespace orvel {

struct GraphLane {
    int index = 0;      // the column, 0 at the left
    int colorIndex = 0; // 0 to 7
    bool hasNode = false;
    bool lineUp = false;   // a line leaves the row's centre upward
    bool lineDown = false; // a line leaves the row's centre downward
    // Node column only: the columns of the second and further parents.
    std::vector<int> mergesFrom;
    // Node column only: the other columns that ended here, because they too waited for this commit.
    std::vector<int> branchesTo;

    bool operator==(const GraphLane&) const = default;
};

} // namespace orvel
