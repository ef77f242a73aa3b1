// Which page a repository tab shows (its changes or its history), which file's diff is open and
// from where, and the size of the branch's changes against the default branch.
#pragma once

#include "core/records/FileChange.h"

#include <QObject>

#include <optional>
#include <string>

namespace orvel {

enum class WorkspaceTab { changes, repoHistory };

class WorkspaceViewModel final : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    WorkspaceTab activeTab() const { return activeTab_; }
    void setActiveTab(WorkspaceTab tab);

    bool isDiffPaneVisible() const { return isDiffPaneVisible_; }
    const std::optional<FileChange>& selectedDiffFile() const { return selectedDiffFile_; }
    // The commit whose diff is shown; nothing means the working tree.
    const std::optional<std::string>& diffSourceCommitHash() const { return diffSourceCommitHash_; }
    bool diffSourceIsMerge() const { return diffSourceIsMerge_; }
    bool diffSourceIsStaged() const { return diffSourceIsStaged_; }

    // Opens the diff of `file`: in `commitHash`, or in the working tree (its staged or unstaged side).
    void showDiff(const FileChange& file, std::optional<std::string> commitHash, bool isMerge, bool isStaged);
    void closeDiff();

    int branchAdditions() const { return branchAdditions_; }
    int branchDeletions() const { return branchDeletions_; }
    void setBranchDiffStat(int additions, int deletions);

  signals:
    void activeTabChanged();
    // The diff pane opened on a file or closed.
    void diffChanged();
    // The diff pane is asked to show this file's diff.
    void diffRequested(const orvel::FileChange& file, const std::optional<std::string>& commitHash,
                       bool isMerge, bool isStaged);
    void branchDiffStatChanged();

  private:
    WorkspaceTab activeTab_ = WorkspaceTab::changes;
    bool isDiffPaneVisible_ = false;
    std::optional<FileChange> selectedDiffFile_;
    std::optional<std::string> diffSourceCommitHash_;
    bool diffSourceIsMerge_ = false;
    bool diffSourceIsStaged_ = false;
    int branchAdditions_ = 0;
    int branchDeletions_ = 0;
};

} // namespace orvel
