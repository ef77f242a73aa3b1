// Paints a row of the merge editor: the line number in a gutter, a check box where the line can be
// chosen, and the text in the monospaced font on its side's tint. A click anywhere on a chooseable
// row toggles it, as Space does.
#pragma once

#include <QStyledItemDelegate>

namespace orvel {

class MergeLineDelegate final : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
};

} // namespace orvel
