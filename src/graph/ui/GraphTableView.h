// The table of the commit graph: whole rows are selected, and Home and End go to the first and the
// last commit rather than to the first and last column; End also asks for the rest of the history.
// Bringing a row into view scrolls up or down only, so that the graph stays where the user left it,
// and waits until the table is shown.
#pragma once

#include <QPersistentModelIndex>
#include <QTableView>

#include <optional>
#include <utility>

namespace orvel {

class GraphTableView final : public QTableView {
    Q_OBJECT

  public:
    explicit GraphTableView(QWidget* parent = nullptr);

    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  signals:
    // End or Ctrl+End was pressed (`byKey`), or the scroll bar was dragged to the bottom.
    void endRequested(bool byKey);

  protected:
    QModelIndex moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) override;
    void showEvent(QShowEvent* event) override;

  private:
    // The row asked for while hidden.
    std::optional<std::pair<QPersistentModelIndex, ScrollHint>> pendingScroll_;
};

} // namespace orvel
