#include "graph/ui/RefPillPainting.h"

#include "graph/ui/GraphRowStyle.h"

#include <QFontMetricsF>
#include <QPainter>

#include <numeric>

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

QString nameOf(const GraphRef& ref) {
    return QString::fromUtf8(ref.name.data(), static_cast<qsizetype>(ref.name.size()));
}

QString countText(std::size_t count) {
    return QStringLiteral("+%1").arg(count);
}

// The pills of a row in the order drawn: those of the row's own commit first, then those faded
// down from younger commits; a pill of no opacity is left out, so that the next takes its place.
std::vector<const RowRef*> pillOrder(const std::vector<RowRef>& refs) {
    std::vector<const RowRef*> ordered;
    for (const bool own : {true, false}) {
        for (const RowRef& placed : refs) {
            if (placed.opacity > 0.0 && (placed.opacity >= 1.0) == own)
                ordered.push_back(&placed);
        }
    }
    return ordered;
}

double pillWidth(const QString& text, const QFontMetricsF& metrics) {
    return metrics.horizontalAdvance(text) + 2 * pillPadding;
}

PillFit fitInCell(const std::vector<const RowRef*>& ordered, double cellWidth, const QFontMetricsF& metrics) {
    std::vector<double> widths;
    widths.reserve(ordered.size());
    for (const RowRef* placed : ordered)
        widths.push_back(pillWidth(nameOf(*placed->ref), metrics));
    return fitPills(widths, pillGap, cellWidth - 2 * pillGap,
                    [&metrics](std::size_t count) { return pillWidth(countText(count), metrics); });
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

// The count of the pills left out, outlined in a quiet colour so that it doesn't read as a ref.
void paintCount(QPainter& painter, const QRectF& pill, std::size_t count, const GraphRowStyle& style,
                double baseOpacity) {
    painter.setOpacity(baseOpacity);
    painter.setPen(QPen(style.morePills, 1.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(pill.adjusted(0.5, 0.5, -0.5, -0.5), pillRadius, pillRadius);
    painter.drawText(pill, Qt::AlignCenter, countText(count));
}

} // namespace

PillFit fitPills(const std::vector<double>& widths, double gap, double room,
                 const std::function<double(std::size_t)>& countWidth) {
    const std::size_t count = widths.size();
    if (count == 0)
        return {};
    const double all = std::accumulate(widths.begin(), widths.end(), 0.0) + gap * static_cast<double>(count - 1);
    if (all <= room)
        return {count, false};
    std::size_t shown = 0;
    double used = 0;
    for (std::size_t next = 0; next + 1 < count; ++next) {
        used += widths[next] + gap;
        if (used + countWidth(count - next - 1) > room)
            break;
        shown = next + 1;
    }
    if (shown == 0)
        return {1, true};
    return {shown, false};
}

void paintRefPills(QPainter& painter, const QRectF& cell, const std::vector<RowRef>& refs,
                   const GraphRowStyle& style) {
    const std::vector<const RowRef*> ordered = pillOrder(refs);
    if (ordered.empty())
        return;
    const QFontMetricsF metrics(style.pillFont);
    const PillFit fit = fitInCell(ordered, cell.width(), metrics);
    const std::size_t leftOut = ordered.size() - fit.shown;
    const double countWidth = leftOut > 0 ? pillWidth(countText(leftOut), metrics) : 0;
    const double baseOpacity = painter.opacity();
    const double top = cell.top() + cell.height() * 0.5 - pillHeight / 2;
    const double right = cell.right() - pillGap;
    double left = cell.left() + pillGap;
    painter.setFont(style.pillFont);
    for (std::size_t index = 0; index < fit.shown; ++index) {
        const RowRef& placed = *ordered[index];
        const QString name = nameOf(*placed.ref);
        double width = pillWidth(name, metrics);
        if (fit.firstCut)
            width = right - left - (leftOut > 0 ? countWidth + pillGap : 0);
        if (width > 2 * pillPadding)
            paintPill(painter, QRectF(left, top, width, pillHeight), name, placed, style, baseOpacity, metrics);
        left += std::max(width, 0.0) + pillGap;
    }
    if (leftOut > 0)
        paintCount(painter, QRectF(left, top, countWidth, pillHeight), leftOut, style, baseOpacity);
    painter.setOpacity(baseOpacity);
}

QStringList refsNotShownWhole(const std::vector<RowRef>& refs, double cellWidth, const GraphRowStyle& style) {
    const std::vector<const RowRef*> ordered = pillOrder(refs);
    const PillFit fit = fitInCell(ordered, cellWidth, QFontMetricsF(style.pillFont));
    QStringList names;
    for (std::size_t index = fit.firstCut ? 0 : fit.shown; index < ordered.size(); ++index)
        names << nameOf(*ordered[index]->ref);
    return names;
}

} // namespace orvel
