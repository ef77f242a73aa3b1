#include "widgets/PaintedRowDelegate.h"

#include <QApplication>

namespace orvel {

QStyle* PaintedRowDelegate::styleOf(const QStyleOptionViewItem& option) {
    return option.widget ? option.widget->style() : QApplication::style();
}

void PaintedRowDelegate::paintBackground(QPainter* painter, const QStyleOptionViewItem& option,
                                         const QModelIndex& index) const {
    QStyleOptionViewItem background = option;
    initStyleOption(&background, index);
    background.text.clear();
    background.icon = {};
    // Left on, these would make the style keep room for an icon or check box that is not there,
    // and frame the focus only beside it.
    background.features &= ~(QStyleOptionViewItem::HasDecoration | QStyleOptionViewItem::HasCheckIndicator);
    QStyle* style = styleOf(option);
    // Without text, icon, check box or focus the item is its panel alone. Painting just the panel
    // spares the item's layout on every other cell, which a scrolled graph repaints by the hundred.
    if (option.state & QStyle::State_HasFocus)
        style->drawControl(QStyle::CE_ItemViewItem, &background, painter, option.widget);
    else
        style->drawPrimitive(QStyle::PE_PanelItemViewItem, &background, painter, option.widget);
}

} // namespace orvel
