// Edit > Undo and Edit > Undo History…: the first names what the newest journal entry of the
// active repository brings back and asks before it does; the second lists the recent entries to
// pick an older one. Ctrl+Z reaches Undo wherever focus is not in a text field, which keeps its
// own Ctrl+Z.
#pragma once

#include <QCoro/QCoroTask>
#include <QObject>
#include <QString>

#include <string>

class QAction;
class QMenu;
class QWidget;

namespace orvel {

class AppViewModel;
class UndoViewModel;
struct UndoEntry;

class UndoMenu final : public QObject {
    Q_OBJECT

  public:
    // Adds the two commands to `menu`; their questions open over `window`.
    UndoMenu(AppViewModel& app, QMenu& menu, QWidget* window);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void retranslate();
    void showEntries();
    QCoro::Task<void> undoNewest();
    void openHistory();

    AppViewModel& app_;
    QMenu& menu_;
    QWidget* window_;
    UndoViewModel* model_;
    QAction* undo_;
    QAction* history_;
};

// Asks whether to bring back `entry`, over `parent`, and undoes it through `model` when the user agrees.
void askToUndo(QWidget* parent, UndoViewModel& model, const UndoEntry& entry);

} // namespace orvel
