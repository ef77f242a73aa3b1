// Draws the ref pills of one row, left to right, each at its own opacity: a ref is strong on its
// commit and faint on the rows of its ancestors.
#pragma once

#include "graph/RowRef.h"

#include <QRectF>

#include <vector>

class QPainter;

namespace orvel {

struct GraphRowStyle;

inline constexpr double pillHeight = 16;
inline constexpr double pillPadding = 6;
inline constexpr double pillGap = 4;
inline constexpr double pillRadius = 3;

// Paints `refs` into `cell`, skipping those of no opacity, so that the next takes their place.
void paintRefPills(QPainter& painter, const QRectF& cell, const std::vector<RowRef>& refs,
                   const GraphRowStyle& style);

} // namespace orvel
