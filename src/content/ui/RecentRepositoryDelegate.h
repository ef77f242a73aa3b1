// Paints one recent repository: a folder icon, the folder's name and, beneath it, the path.
#pragma once

#include <QStyledItemDelegate>

namespace orvel {

class RecentRepositoryDelegate final : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace orvel
