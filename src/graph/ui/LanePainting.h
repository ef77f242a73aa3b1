// Draws one row's part of the commit graph from that row's lanes alone: vertical lines through the
// row's centre, curves into the node from merged columns and out of it to columns that branched
// here, and the node on top. No row looks at another, so rows can be painted in any order.
#pragma once

#include "graph/CommitRow.h"

#include <QRectF>

class QPainter;

namespace orvel {

struct GraphRowStyle;

// Fixed geometry of the graph column.
inline constexpr double laneSpacing = 20;
inline constexpr double firstLaneCentre = 14;
inline constexpr double laneLineWidth = 2;

// The x of a column's centre, from the left of the cell.
constexpr double laneCentre(int column) {
    return column * laneSpacing + firstLaneCentre;
}

// Paints `row` into `cell` (its height is the row's); the working-tree row is dashed.
void paintLanes(QPainter& painter, const QRectF& cell, const CommitRow& row, bool isWorkingTree,
                const GraphRowStyle& style);

} // namespace orvel
