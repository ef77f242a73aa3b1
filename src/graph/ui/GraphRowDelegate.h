// Paints every cell of the graph table from the pane's model: the lanes of the row, its ref pills
// and its texts, with the rows outside a search's matches faded. Painted cells are kept, so a
// repaint of rows already seen copies pixels.
#pragma once

#include "graph/ui/GraphCellCache.h"
#include "graph/ui/GraphRowStyle.h"
#include "widgets/PaintedRowDelegate.h"

namespace orvel {

class RepoGraphPaneViewModel;

class GraphRowDelegate final : public PaintedRowDelegate {
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
    // The ref cell's tooltip names the refs its pills leave out.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  private:
    // A full screen of a wide table at twice the pixel density, several at normal density.
    static constexpr std::size_t cellCacheBytes = 32u << 20;

    void paintCell(QPainter& painter, const QRect& cell, const QPalette& palette, const QModelIndex& index,
                   bool isSelected, bool isWorkingTree) const;
    void paintText(QPainter& painter, const QRect& cell, const QPalette& palette, const QModelIndex& index,
                   bool isSelected, bool isWorkingTree) const;

    const RepoGraphPaneViewModel& model_;
    GraphRowStyle style_;
    GraphRowStyle selectedStyle_;
    mutable GraphCellCache cells_;
};

} // namespace orvel
