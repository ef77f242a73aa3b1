// The history page of a repository tab: the commit graph, and beside it the detail of the selected
// commit (its message, authors and parents, and changed files) under a notice while the working
// tree has changes. The page only shows the graph's model and forwards what the user asks for.
#pragma once

#include "core/records/FileChange.h"

#include <QWidget>

#include <array>
#include <memory>
#include <string>
#include <vector>

class QFrame;
class QLabel;
class QSplitter;

namespace orvel {

class GraphPane;
class RepoGraphPaneViewModel;
class RepoHistoryAuthorsSection;
class RepoHistoryCommitMessageSection;
class RepoHistoryFileChangesSection;
class RepoHistoryNotificationSection;
class UserDefaults;

class RepoHistoryPane final : public QWidget {
    Q_OBJECT

  public:
    explicit RepoHistoryPane(RepoGraphPaneViewModel& graph, QWidget* parent = nullptr);
    ~RepoHistoryPane() override;

    // The working tree's changed files, one a path: the notice counts them (it shows above 0), and
    // the working-tree row lists them when it is selected.
    void setWorkingTreeFiles(std::vector<FileChange> files);

    GraphPane& graphPane() const { return *graphPane_; }

  signals:
    void goToChangesRequested();
    void showDiffRequested(const orvel::FileChange& file, const std::string& hash, bool isMerge);
    void showWorkingTreeDiffRequested(const orvel::FileChange& file, bool isStaged);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void showSelection();
    void retranslate();

    RepoGraphPaneViewModel& graph_;
    // Keeps the splitter's sizes between runs.
    std::unique_ptr<UserDefaults> settings_;
    QSplitter* splitter_;
    GraphPane* graphPane_;
    RepoHistoryNotificationSection* notification_;
    QLabel* emptyHint_;
    std::array<QFrame*, 2> separators_{};
    RepoHistoryCommitMessageSection* message_;
    RepoHistoryAuthorsSection* authors_;
    RepoHistoryFileChangesSection* fileChanges_;
};

} // namespace orvel
