#include "graph/ui/GraphTableView.h"

#include <QHeaderView>

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
}

QModelIndex GraphTableView::moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) {
    if (cursorAction == MoveHome || cursorAction == MoveEnd)
        modifiers |= Qt::ControlModifier;
    return QTableView::moveCursor(cursorAction, modifiers);
}

} // namespace orvel
