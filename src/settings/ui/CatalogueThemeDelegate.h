// Paints a row of the catalogue theme list: the theme's name and its one-line description, and a
// small sample of each of its two palettes, dark and light, so both can be judged before choosing.
#pragma once

#include "widgets/PaintedRowDelegate.h"

namespace orvel {

class CatalogueThemeDelegate final : public PaintedRowDelegate {
    Q_OBJECT

  public:
    // The row's catalogue id, which picks the palettes to sample.
    static constexpr int IdRole = Qt::UserRole + 1;
    static constexpr int TagRole = Qt::UserRole + 2;

    using PaintedRowDelegate::PaintedRowDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace orvel
