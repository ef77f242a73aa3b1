#include "graph/ui/RefPillPainting.h"

#include "graph/ui/GraphRowStyle.h"

#include <QFontMetricsF>
#include <QPainter>

namespace orvel {

namespace {

const QColor& pillColour(const GraphRef& ref, const GraphRowStyle& style) {
    if (ref.isCurrent)
        return style.currentBranch;
    switch (ref.type) {
    case GraphRefType::localBranch:
        return style.localBranch;
    case GraphRefType::remoteBranch:
        return style.remoteBranch;
    case GraphRefType::tag:
        return style.tag;
    }
    return style.localBranch;
}

void paintPill(QPainter& painter, const QRectF& pill, const QString& name, const RowRef& placed,
               const GraphRowStyle& style, double baseOpacity, const QFontMetricsF& metrics) {
    const QColor& colour = pillColour(*placed.ref, style);
    painter.setOpacity(baseOpacity * placed.opacity);
    // Remote branches are outlined: they show where a branch was, not where work goes on.
    if (placed.ref->type == GraphRefType::remoteBranch) {
        const double width = placed.opacity < 1.0 ? 1.0 : 1.5;
        painter.setPen(QPen(colour, width));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(pill.adjusted(width / 2, width / 2, -width / 2, -width / 2), pillRadius,
                                pillRadius);
        painter.setPen(colour);
    } else {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawRoundedRect(pill, pillRadius, pillRadius);
        painter.setPen(style.pillText(colour));
    }
    const QRectF textArea = pill.adjusted(pillPadding, 0, -pillPadding, 0);
    painter.drawText(textArea, Qt::AlignLeft | Qt::AlignVCenter,
                     metrics.elidedText(name, Qt::ElideRight, textArea.width()));
}

} // namespace

// Pills of the row's own commit come first, then those faded down from younger commits; a pill
// that doesn't fit whole is left out, unless it is the first, whose text is then cut.
void paintRefPills(QPainter& painter, const QRectF& cell, const std::vector<RowRef>& refs,
                   const GraphRowStyle& style) {
    const QFontMetricsF metrics(style.pillFont);
    const double baseOpacity = painter.opacity();
    const double top = cell.top() + cell.height() * 0.5 - pillHeight / 2;
    double left = cell.left() + pillGap;
    painter.setFont(style.pillFont);
    for (const bool own : {true, false}) {
        for (const RowRef& placed : refs) {
            if (placed.opacity <= 0.0 || (placed.opacity >= 1.0) != own)
                continue;
            const QString name =
                QString::fromUtf8(placed.ref->name.data(), static_cast<qsizetype>(placed.ref->name.size()));
            const QRectF pill(left, top, metrics.horizontalAdvance(name) + 2 * pillPadding, pillHeight);
            const bool first = left == cell.left() + pillGap;
            if (pill.right() > cell.right() - pillGap && !first) {
                painter.setOpacity(baseOpacity);
                return;
            }
            paintPill(painter, pill.intersected(QRectF(left, top, cell.right() - pillGap - left, pillHeight)),
                      name, placed, style, baseOpacity, metrics);
            left = pill.right() + pillGap;
        }
    }
    painter.setOpacity(baseOpacity);
}

} // namespace orvel
