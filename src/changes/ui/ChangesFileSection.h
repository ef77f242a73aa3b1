// One list of the changes page, staged or unstaged: its title with the count, the button for the
// whole list (or the selection), and the files flat or as a tree. Selecting a file asks for its
// diff; Enter, Space or a double-click moves it to the other list; the context menu holds the
// row's actions.
#pragma once

#include "core/records/FileChange.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QTreeView;

namespace orvel {

class ChangesPaneViewModel;
class FileTreeModel;

class ChangesFileSection final : public QWidget {
    Q_OBJECT

  public:
    ChangesFileSection(ChangesPaneViewModel& model, bool staged, QWidget* parent = nullptr);

    QTreeView& view() const { return *view_; }

  signals:
    void fileSelected(const orvel::FileChange& file, bool staged);

  protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void showFiles();
    void showMode();
    void retranslate();
    void restoreSelection();
    void selectionEdited();
    void runListAction();
    // Stages or unstages the file, or the whole selection when it holds more rows.
    void moveToOtherList(const FileChange& file);
    void openMenu(const QPoint& position);

    ChangesPaneViewModel& model_;
    const bool staged_;
    FileTreeModel* files_;
    QLabel* title_;
    QPushButton* listAction_;
    QTreeView* view_;
    bool restoring_ = false;
};

} // namespace orvel
