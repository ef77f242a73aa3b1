// The frame of a read-only sheet about one file: a caption, a line of counts, a table of rows (or
// a line saying there are none, or the failure), and Done. Blame and history fill it.
#pragma once

#include "diff/FileSheetViewModel.h"

#include <QDialog>

class QLabel;
class QStandardItemModel;
class QPushButton;
class QTreeView;

namespace orvel {

class FileSheet : public QDialog {
    Q_OBJECT

  public:
    FileSheet(FileSheetViewModel::Kind kind, RepoEntry repo, std::string path,
              std::shared_ptr<GitServiceProtocol> service, QWidget* parent);

    FileSheetViewModel& model() { return model_; }
    const FileSheetViewModel& model() const { return model_; }

  protected:
    // The column titles, the caption, the count line and the placeholder of an empty result.
    virtual QStringList columns() const = 0;
    virtual QString caption() const = 0;
    virtual QString countLine() const = 0;
    virtual QString emptyText() const = 0;
    // Appends the model's entries as rows of `table`.
    virtual void fill(QStandardItemModel& table) const = 0;

    // Reads the file's records; the sheets call it once they are built, since it calls the above.
    void start();
    void changeEvent(QEvent* event) override;

  private:
    void show();

    FileSheetViewModel model_;
    QLabel* caption_;
    QLabel* count_;
    QLabel* placeholder_;
    QStandardItemModel* table_;
    QTreeView* view_;
    // Not the button box's own Close, which Qt renames "Close" on every language change.
    QPushButton* done_;
};

} // namespace orvel
