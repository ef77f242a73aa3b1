// Paints one recent repository: a folder icon, the folder's name and, beneath it, the path.
#pragma once

#include "widgets/PaintedRowDelegate.h"

namespace orvel {

class RecentRepositoryDelegate final : public PaintedRowDelegate {
    Q_OBJECT

  public:
    using PaintedRowDelegate::PaintedRowDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace orvel
