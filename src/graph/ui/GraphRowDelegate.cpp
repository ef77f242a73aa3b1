#include "graph/ui/GraphRowDelegate.h"

#include "graph/RepoGraphPaneViewModel.h"
#include "graph/ui/GraphTableModel.h"
#include "graph/ui/LanePainting.h"
#include "graph/ui/RefPillPainting.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace orvel {

namespace {

constexpr int textPadding = 6;

} // namespace

GraphRowDelegate::GraphRowDelegate(const RepoGraphPaneViewModel& model, const QPalette& palette,
                                   QObject* parent)
    : PaintedRowDelegate(parent), model_(model), style_(GraphRowStyle::current(palette)),
      selectedStyle_(style_.onSelection(palette.color(QPalette::Highlight))), cells_(cellCacheBytes) {
    connect(&model_, &RepoGraphPaneViewModel::commitsChanged, this, [this] { cells_.clear(); });
}

void GraphRowDelegate::refreshStyle(const QPalette& palette) {
    style_ = GraphRowStyle::current(palette);
    selectedStyle_ = style_.onSelection(palette.color(QPalette::Highlight));
    cells_.clear();
}

QSize GraphRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {0, rowHeight};
}

bool GraphRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) {
    const int row = index.row();
    if (event->type() != QEvent::ToolTip || index.column() != GraphTableModel::refsColumn || row < 0 ||
        static_cast<std::size_t>(row) >= model_.refsByRow().size())
        return PaintedRowDelegate::helpEvent(event, view, option, index);
    const QStringList names =
        refsNotShownWhole(model_.refsByRow()[static_cast<std::size_t>(row)], option.rect.width(), style_);
    if (names.isEmpty()) {
        QToolTip::hideText();
        event->ignore();
        return false;
    }
    QToolTip::showText(event->globalPos(), names.join(QLatin1Char('\n')), view->viewport(), option.rect);
    return true;
}

void GraphRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const int row = index.row();
    if (row < 0 || static_cast<std::size_t>(row) >= model_.commits().size())
        return;
    paintBackground(painter, option, index);

    const bool isWorkingTree = model_.isWorkingTreeRow(row);
    const bool isSelected = option.state & QStyle::State_Selected;
    const bool highlighting = !model_.searchQuery().empty();
    const bool faded =
        highlighting && !isSelected && !isWorkingTree && !model_.matchingHashes().contains(model_.hashAt(row));

    const qreal ratio = painter->device()->devicePixelRatioF();
    const GraphCellCache::Key key{row, index.column(), option.rect.width(), option.rect.height(), isSelected, ratio};
    const QPixmap* cell = cells_.find(key);
    if (!cell) {
        QPixmap painted(option.rect.size() * ratio);
        painted.setDevicePixelRatio(ratio);
        painted.fill(Qt::transparent);
        QPainter cellPainter(&painted);
        cellPainter.setRenderHint(QPainter::Antialiasing, true);
        paintCell(cellPainter, QRect(QPoint(0, 0), option.rect.size()), option.palette, index, isSelected,
                  isWorkingTree);
        cellPainter.end();
        cells_.insert(key, std::move(painted));
        cell = cells_.find(key);
    }
    painter->save();
    if (faded)
        painter->setOpacity(fadedRowOpacity);
    painter->drawPixmap(option.rect.topLeft(), *cell);
    painter->restore();
}

void GraphRowDelegate::paintCell(QPainter& painter, const QRect& cell, const QPalette& palette,
                                 const QModelIndex& index, bool isSelected, bool isWorkingTree) const {
    const auto row = static_cast<std::size_t>(index.row());
    switch (index.column()) {
    case GraphTableModel::graphColumn:
        paintLanes(painter, cell, model_.commits()[row], isWorkingTree, style_);
        break;
    case GraphTableModel::refsColumn:
        paintRefPills(painter, cell, model_.refsByRow()[row], isSelected ? selectedStyle_ : style_);
        break;
    default:
        paintText(painter, cell, palette, index, isSelected, isWorkingTree);
        break;
    }
}

void GraphRowDelegate::paintText(QPainter& painter, const QRect& cell, const QPalette& palette,
                                 const QModelIndex& index, bool isSelected, bool isWorkingTree) const {
    const int column = index.column();
    const QFont* font = &style_.textFont;
    const QColor* colour = &style_.text;
    if (column == GraphTableModel::hashColumn) {
        font = &style_.hashFont;
        colour = &style_.tertiaryText;
    } else if (column == GraphTableModel::authorColumn) {
        colour = &style_.secondaryText;
    } else if (column == GraphTableModel::dateColumn) {
        colour = isWorkingTree ? &style_.workingTreeCount : &style_.secondaryText;
    } else if (column == GraphTableModel::messageColumn && isWorkingTree) {
        font = &style_.workingTreeFont;
        colour = &style_.secondaryText;
    }
    painter.setFont(*font);
    painter.setPen(isSelected ? palette.color(QPalette::HighlightedText) : *colour);
    const QRect area = cell.adjusted(textPadding, 0, -textPadding, 0);
    const QString text = painter.fontMetrics().elidedText(index.data(Qt::DisplayRole).toString(),
                                                          Qt::ElideRight, area.width());
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

} // namespace orvel
