// Paints every cell of the graph table from the pane's model: the lanes of the row, its ref pills
// and its texts, with the rows outside a search's matches faded.
#pragma once

#include "graph/ui/GraphRowStyle.h"

#include <QStyledItemDelegate>

namespace orvel {

class RepoGraphPaneViewModel;

class GraphRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT

  public:
    static constexpr int rowHeight = 24;
    // A row outside the search's matches, unless selected or the working tree's.
    static constexpr double fadedRowOpacity = 0.3;

    GraphRowDelegate(const RepoGraphPaneViewModel& model, const QPalette& palette, QObject* parent = nullptr);

    // Takes the colours and fonts of the theme and palette in force.
    void refreshStyle(const QPalette& palette);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  private:
    void paintText(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                   bool isWorkingTree) const;

    const RepoGraphPaneViewModel& model_;
    GraphRowStyle style_;
};

} // namespace orvel
