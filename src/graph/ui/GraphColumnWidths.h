// The widths of the graph table's six columns in a viewport of a given width. The message column
// takes whatever the others leave, but never less than its minimum; when that is short, the graph
// and the ref columns give way down to their minimums, and only then does the table grow wider than
// its viewport and scroll.
#pragma once

#include "graph/ui/GraphTableModel.h"

#include <array>

namespace orvel {

// A column's starting width and its bounds; a maximum of 0 means none.
struct GraphColumnBounds {
    int width, minimum, maximum;
};

using GraphColumnWidths = std::array<int, GraphTableModel::columnCount_>;

inline constexpr std::array<GraphColumnBounds, GraphTableModel::columnCount_> graphColumnBounds{{
    {180, 40, 600},
    {140, 60, 300},
    {300, 150, 0},
    {100, 60, 0},
    {75, 50, 0},
    {90, 60, 0},
}};

// `width` held within the bounds of `column`.
int boundedColumnWidth(int column, int width);

// The widths shown in `available` pixels, from the widths the user chose (`chosen`, whose message
// entry is not read). The room the message lacks is taken from the graph and the ref columns in
// proportion to what each has above its minimum.
GraphColumnWidths fitGraphColumns(const GraphColumnWidths& chosen, int available);

} // namespace orvel
