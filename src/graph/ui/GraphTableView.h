// The table of the commit graph: whole rows are selected, and Home and End go to the first and the
// last commit rather than to the first and last column.
#pragma once

#include <QTableView>

namespace orvel {

class GraphTableView final : public QTableView {
    Q_OBJECT

  public:
    explicit GraphTableView(QWidget* parent = nullptr);

  protected:
    QModelIndex moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) override;
};

} // namespace orvel
