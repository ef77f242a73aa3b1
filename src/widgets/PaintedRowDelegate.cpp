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
    styleOf(option)->drawControl(QStyle::CE_ItemViewItem, &background, painter, option.widget);
}

} // namespace orvel
