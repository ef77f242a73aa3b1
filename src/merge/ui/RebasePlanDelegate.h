// Paints a step of the rebase plan (the action as a coloured word, the short hash, the subject or
// an exec row's command) and edits it in place: a menu of actions, a field for the command. A
// reword row carries a pencil that asks for its message to be edited.
#pragma once

#include "widgets/PaintedRowDelegate.h"

namespace orvel {

class RebasePlanDelegate final : public PaintedRowDelegate {
    Q_OBJECT

  public:
    using PaintedRowDelegate::PaintedRowDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

  signals:
    void rewordRequested(int row);

  protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
};

} // namespace orvel
