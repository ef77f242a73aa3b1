#include "graph/ui/GraphRowDelegate.h"

#include "graph/RepoGraphPaneViewModel.h"
#include "graph/ui/GraphTableModel.h"
#include "graph/ui/LanePainting.h"
#include "graph/ui/RefPillPainting.h"

#include <QApplication>
#include <QPainter>

namespace orvel {

namespace {

constexpr int textPadding = 6;

} // namespace

GraphRowDelegate::GraphRowDelegate(const RepoGraphPaneViewModel& model, const QPalette& palette,
                                   QObject* parent)
    : QStyledItemDelegate(parent), model_(model), style_(GraphRowStyle::current(palette)) {}

void GraphRowDelegate::refreshStyle(const QPalette& palette) {
    style_ = GraphRowStyle::current(palette);
}

QSize GraphRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {0, rowHeight};
}

void GraphRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const int row = index.row();
    if (row < 0 || static_cast<std::size_t>(row) >= model_.commits().size())
        return;
    const QWidget* widget = option.widget;
    QStyle* style = widget ? widget->style() : QApplication::style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, widget);

    const CommitRow& commit = model_.commits()[static_cast<std::size_t>(row)];
    const bool isWorkingTree = commit.hash == RepoGraphPaneViewModel::workingTreeHash;
    const bool isSelected = option.state & QStyle::State_Selected;
    const bool highlighting = !model_.searchQuery().empty();
    const bool faded =
        highlighting && !isSelected && !isWorkingTree && !model_.matchingHashes().contains(commit.hash);

    painter->save();
    painter->setClipRect(option.rect);
    painter->setRenderHint(QPainter::Antialiasing, true);
    if (faded)
        painter->setOpacity(fadedRowOpacity);
    switch (index.column()) {
    case GraphTableModel::graphColumn:
        paintLanes(*painter, option.rect, commit, isWorkingTree, style_);
        break;
    case GraphTableModel::refsColumn:
        paintRefPills(*painter, option.rect, model_.refsByRow()[static_cast<std::size_t>(row)], style_);
        break;
    default:
        paintText(*painter, option, index, isWorkingTree);
        break;
    }
    painter->restore();
}

void GraphRowDelegate::paintText(QPainter& painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index, bool isWorkingTree) const {
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
    const bool isSelected = option.state & QStyle::State_Selected;
    painter.setFont(*font);
    painter.setPen(isSelected ? option.palette.color(QPalette::HighlightedText) : *colour);
    const QRect area = option.rect.adjusted(textPadding, 0, -textPadding, 0);
    const QString text = painter.fontMetrics().elidedText(index.data(Qt::DisplayRole).toString(),
                                                          Qt::ElideRight, area.width());
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

} // namespace orvel
