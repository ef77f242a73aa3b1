#include "graph/ui/LanePainting.h"

#include "graph/ui/GraphRowStyle.h"

#include <QPainter>
#include <QPainterPath>

namespace orvel {

namespace {

// In units of the pen's width: 4 on, 4 off at width 2.
const QList<qreal> workingTreeDash{2, 2};

// The colour of the lane in `column` of this row: a curve takes the colour of the column at its
// other end. Rows hold a few lanes, so a scan is the cheapest lookup.
int colourIndexOf(const std::vector<GraphLane>& lanes, int column) {
    for (const auto& lane : lanes) {
        if (lane.index == column)
            return lane.colorIndex;
    }
    return 0;
}

QPen lanePen(const QColor& colour, bool dashed) {
    QPen pen(colour, laneLineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    if (dashed)
        pen.setDashPattern(workingTreeDash);
    return pen;
}

// The node's curves, from the node in column x `lx`: a merged column's curve leaves the bottom of
// the row in that column and ends in the node; a column that branched off here leaves the node and
// reaches the top of the row. Each takes the colour of the column at its other end.
void paintCurves(QPainter& painter, const QRectF& cell, const CommitRow& row, double lx, const GraphRowStyle& style) {
    const double h = cell.height();
    const double mid = h * 0.5;
    const double top = cell.top();
    const auto x = [&cell](int column) { return cell.left() + laneCentre(column); };
    for (const int from : row.mergesFrom) {
        QPainterPath curve(QPointF(x(from), top + h));
        curve.cubicTo(QPointF(x(from), top + mid + (h - mid) * 0.6), QPointF(lx, top + mid + (h - mid) * 0.4),
                      QPointF(lx, top + mid));
        painter.setPen(lanePen(style.lane(colourIndexOf(row.lanes, from)), false));
        painter.drawPath(curve);
    }
    for (const int to : row.branchesTo) {
        QPainterPath curve(QPointF(lx, top + mid));
        curve.cubicTo(QPointF(lx, top + mid * 0.6), QPointF(x(to), top + mid * 0.4), QPointF(x(to), top));
        painter.setPen(lanePen(style.lane(colourIndexOf(row.lanes, to)), false));
        painter.drawPath(curve);
    }
}

} // namespace

void paintLanes(QPainter& painter, const QRectF& cell, const CommitRow& row, bool isWorkingTree,
                const GraphRowStyle& style) {
    const double h = cell.height();
    const double mid = h * 0.5;
    const double top = cell.top();
    const auto x = [&cell](int column) { return cell.left() + laneCentre(column); };

    painter.setBrush(Qt::NoBrush);
    const GraphLane* nodeLane = nullptr;
    for (const GraphLane& lane : row.lanes) {
        const double lx = x(lane.index);
        if (lane.lineUp || lane.lineDown) {
            painter.setPen(lanePen(style.lane(lane.colorIndex), isWorkingTree));
            if (lane.lineUp)
                painter.drawLine(QPointF(lx, top), QPointF(lx, top + mid));
            if (lane.lineDown)
                painter.drawLine(QPointF(lx, top + mid), QPointF(lx, top + h));
        }
        if (lane.hasNode)
            paintCurves(painter, cell, row, lx, style);
        if (lane.index == row.activeLane)
            nodeLane = &lane;
    }
    if (!nodeLane)
        return;

    // The node lies on top of every line.
    const QColor& colour = style.lane(nodeLane->colorIndex);
    const QPointF centre(x(nodeLane->index), top + mid);
    if (isWorkingTree) {
        painter.setPen(lanePen(colour, true));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(centre, 4.5, 4.5);
    } else if (!row.mergesFrom.empty()) {
        painter.setPen(lanePen(colour, false));
        painter.setBrush(style.nodeOutline);
        painter.drawEllipse(centre, 4, 4);
    } else {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawEllipse(centre, 4.5, 4.5);
    }
}

} // namespace orvel
