// Draws the ref pills of one row, left to right, each at its own opacity: a ref is strong on its
// commit and faint on the rows of its ancestors. Pills that don't fit the cell are counted on a
// last "+N" pill, and named by the cell's tooltip.
#pragma once

#include "graph/RowRef.h"

#include <QRectF>
#include <QStringList>

#include <cstddef>
#include <functional>
#include <vector>

class QPainter;

namespace orvel {

struct GraphRowStyle;

inline constexpr double pillHeight = 16;
inline constexpr double pillPadding = 6;
inline constexpr double pillGap = 4;
inline constexpr double pillRadius = 3;

// How pills share a cell: the first `shown` are drawn, and the first of them is cut when it alone
// doesn't fit beside the "+N" pill; the rest are counted on that pill.
struct PillFit {
    std::size_t shown = 0;
    bool firstCut = false;

    bool operator==(const PillFit&) const = default;
};

// The fit of pills `widths` wide, in order, `gap` apart, in `room`; `countWidth(n)` is the width of
// the pill "+n". As many whole pills as leave room for the count are shown; if not one does, the
// first is shown cut.
PillFit fitPills(const std::vector<double>& widths, double gap, double room,
                 const std::function<double(std::size_t)>& countWidth);

// Paints `refs` into `cell`, skipping those of no opacity, so that the next takes their place.
void paintRefPills(QPainter& painter, const QRectF& cell, const std::vector<RowRef>& refs,
                   const GraphRowStyle& style);

// The names of the refs that `paintRefPills` leaves out of a cell `cellWidth` wide or shows cut.
QStringList refsNotShownWhole(const std::vector<RowRef>& refs, double cellWidth, const GraphRowStyle& style);

} // namespace orvel
