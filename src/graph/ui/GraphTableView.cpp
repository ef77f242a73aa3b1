#include "graph/ui/GraphTableView.h"

#include <QHeaderView>
#include <QScrollBar>

namespace orvel {

GraphTableView::GraphTableView(QWidget* parent) : QTableView(parent) {
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setShowGrid(false);
    setAlternatingRowColors(false);
    setWordWrap(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setAttribute(Qt::WA_Hover);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsMovable(false);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
        if (verticalScrollBar()->isSliderDown() && value == verticalScrollBar()->maximum())
            emit endRequested(false);
    });
}

// The current cell of a row sits in the message column; seeking it sideways in a table wider than
// its viewport would push the graph out of sight.
void GraphTableView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    const int left = horizontalScrollBar()->value();
    QTableView::scrollTo(index, hint);
    horizontalScrollBar()->setValue(left);
}

QModelIndex GraphTableView::moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) {
    if (cursorAction == MoveHome || cursorAction == MoveEnd)
        modifiers |= Qt::ControlModifier;
    if (cursorAction == MoveEnd)
        emit endRequested(true);
    return QTableView::moveCursor(cursorAction, modifiers);
}

} // namespace orvel
