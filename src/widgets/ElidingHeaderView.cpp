#include "widgets/ElidingHeaderView.h"

#include <QStyle>
#include <QStyleOptionHeader>

namespace orvel {

ElidingHeaderView::ElidingHeaderView(Qt::Orientation orientation, QWidget* parent)
    : QHeaderView(orientation, parent) {}

void ElidingHeaderView::initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const {
    QHeaderView::initStyleOptionForIndex(option, logicalIndex);
    const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, option, this);
    option->text =
        option->fontMetrics.elidedText(option->text, Qt::ElideRight, sectionSize(logicalIndex) - 2 * margin);
}

} // namespace orvel
