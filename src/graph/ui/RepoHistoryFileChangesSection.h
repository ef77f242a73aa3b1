// The files the selected commit changed, flat or as a directory tree, with the section's own filter
// and order; "Loading file changes..." while the graph reads them. Activating a file asks for its
// diff in that commit.
#pragma once

#include "core/records/FileChange.h"

#include <QWidget>

#include <string>

class QLabel;
class QLineEdit;
class QToolButton;
class QTreeView;

namespace orvel {

class FileTreeModel;
class RepoGraphPaneViewModel;

class RepoHistoryFileChangesSection final : public QWidget {
    Q_OBJECT

  public:
    explicit RepoHistoryFileChangesSection(RepoGraphPaneViewModel& graph, QWidget* parent = nullptr);

  signals:
    void showDiffRequested(const orvel::FileChange& file, const std::string& hash, bool isMerge);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();
    void showFileChanges();
    void showMode();
    void activate(const QModelIndex& index);

    RepoGraphPaneViewModel& graph_;
    FileTreeModel* files_;
    QLabel* title_;
    QLineEdit* filter_;
    QToolButton* sortButton_;
    QToolButton* listButton_;
    QToolButton* treeButton_;
    QTreeView* view_;
    QLabel* hint_;
};

} // namespace orvel
