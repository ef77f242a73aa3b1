// Paints one row of a FileTreeModel: a folder icon or the file's name, in the flat list its
// directory in the secondary colour, and the status letter at the right edge in the theme's colour
// for that kind of change.
#pragma once

#include "widgets/PaintedRowDelegate.h"

namespace orvel {

class FileTreeDelegate final : public PaintedRowDelegate {
    Q_OBJECT

  public:
    using PaintedRowDelegate::PaintedRowDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace orvel
