// Paints a row of the merge editor: the line number in a gutter, a check box where the line can be
// chosen, and the text in the monospaced font on its side's tint. A click anywhere on a chooseable
// row toggles it, as Space does.
#pragma once

#include "widgets/PaintedRowDelegate.h"

namespace orvel {

class MergeLineDelegate final : public PaintedRowDelegate {
    Q_OBJECT

  public:
    using PaintedRowDelegate::PaintedRowDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
};

} // namespace orvel
