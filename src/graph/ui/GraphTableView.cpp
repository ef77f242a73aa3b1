#include "graph/ui/GraphTableView.h"

#include "widgets/ElidingHeaderView.h"

#include <QHeaderView>
#include <QScrollBar>

namespace orvel {

GraphTableView::GraphTableView(QWidget* parent) : QTableView(parent) {
    setHorizontalHeader(new ElidingHeaderView(Qt::Horizontal, this));
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
// its viewport would push the graph out of sight. A hidden table may have no height yet, and
// would scroll the rows above out of sight: it brings the row into view once shown.
void GraphTableView::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!isVisible()) {
        pendingScroll_ = {index, hint};
        return;
    }
    pendingScroll_.reset();
    const int left = horizontalScrollBar()->value();
    QTableView::scrollTo(index, hint);
    horizontalScrollBar()->setValue(left);
}

// Laid out by the time the queued call runs, the table has its height.
void GraphTableView::showEvent(QShowEvent* event) {
    QTableView::showEvent(event);
    QMetaObject::invokeMethod(this, [this] {
        if (pendingScroll_ && isVisible() && pendingScroll_->first.isValid())
            scrollTo(pendingScroll_->first, pendingScroll_->second);
    }, Qt::QueuedConnection);
}

QModelIndex GraphTableView::moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) {
    if (cursorAction == MoveHome || cursorAction == MoveEnd)
        modifiers |= Qt::ControlModifier;
    if (cursorAction == MoveEnd)
        emit endRequested(true);
    return QTableView::moveCursor(cursorAction, modifiers);
}

} // namespace orvel
