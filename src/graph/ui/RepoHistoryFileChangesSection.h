// The files the selected commit changed, flat or as a directory tree, with the section's own filter
// and order; "Loading file changes..." while the graph reads them. A merge lists its files against
// its first parent, as its diff shows them, and says so. The working-tree row lists the
// working tree's changed files. Activating a file asks for its diff in that commit (or in the
// working tree).
#pragma once

#include "core/records/FileChange.h"

#include <QWidget>

#include <string>
#include <vector>

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

    // What the working-tree row lists, one record a changed path.
    void setWorkingTreeFiles(std::vector<FileChange> files);

  signals:
    void showDiffRequested(const orvel::FileChange& file, const std::string& hash, bool isMerge);
    void showWorkingTreeDiffRequested(const orvel::FileChange& file, bool isStaged);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();
    void showFileChanges();
    void showMode();
    void activate(const QModelIndex& index);
    bool isWorkingTreeSelected() const;

    RepoGraphPaneViewModel& graph_;
    FileTreeModel* files_;
    QLabel* title_;
    QLabel* mergeNote_;
    QLineEdit* filter_;
    QToolButton* sortButton_;
    QToolButton* listButton_;
    QToolButton* treeButton_;
    QTreeView* view_;
    QLabel* hint_;
    std::vector<FileChange> workingTreeFiles_;
};

} // namespace orvel
