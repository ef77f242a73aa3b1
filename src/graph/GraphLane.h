// One column's part in one row of the commit graph: the node, and the vertical lines through the
// row's centre. The curves of the node's column belong to the row (CommitRow::mergesFrom and
// CommitRow::branchesTo), so that the many lanes that only pass through stay small.
#pragma once

#include <cstdint>

namespace orvel {

// Kept to 6 bytes: a layout of a long history holds millions of lanes.
struct GraphLane {
    std::int16_t index = 0;      // the column, 0 at the left
    std::uint8_t colorIndex = 0; // 0 to 7
    bool hasNode = false;
    bool lineUp = false;   // a line leaves the row's centre upward
    bool lineDown = false; // a line leaves the row's centre downward

    bool operator==(const GraphLane&) const = default;
};

} // namespace orvel
