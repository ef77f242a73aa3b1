// The recent entries of the undo journal, newest first, each named by what it brings back and
// when it was kept; Undo brings back the chosen one after asking.
#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;

namespace orvel {

class UndoViewModel;

class UndoHistoryDialog final : public QDialog {
    Q_OBJECT

  public:
    UndoHistoryDialog(UndoViewModel& model, QWidget* parent);

  private:
    void showEntries();
    void undoChosen();

    UndoViewModel& model_;
    QListWidget* list_;
    QPushButton* undo_;
};

} // namespace orvel
