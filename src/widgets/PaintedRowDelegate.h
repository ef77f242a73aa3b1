// The base of the delegates that paint a row's contents by hand. They all stand on the style's own
// item background, so that selection, hover and the focus frame of the current row look alike in
// every list, tree and table, and as the desktop's other item views do.
#pragma once

#include <QStyledItemDelegate>

namespace orvel {

class PaintedRowDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    // The style of the view being painted, or the application's.
    static QStyle* styleOf(const QStyleOptionViewItem& option);

    // The style's item background of `index` in the state `option` gives: selection, hover, the
    // model's background brush and the focus frame. No text, icon or check box: those the subclass
    // paints where it wants them.
    void paintBackground(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const;
};

} // namespace orvel
