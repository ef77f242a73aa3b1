#include "workspace/WorkspaceViewModel.h"

#include "core/support/Log.h"

namespace orvel {

void WorkspaceViewModel::setActiveTab(WorkspaceTab tab) {
    if (tab == activeTab_)
        return;
    activeTab_ = tab;
    emit activeTabChanged();
}

void WorkspaceViewModel::showDiff(const FileChange& file, std::optional<std::string> commitHash, bool isMerge,
                                  bool isStaged) {
    qCDebug(lcUi, "Showing diff for %s%s", file.path.c_str(),
            commitHash ? (" at " + commitHash->substr(0, 7)).c_str() : "");
    selectedDiffFile_ = file;
    diffSourceCommitHash_ = std::move(commitHash);
    diffSourceIsMerge_ = isMerge;
    diffSourceIsStaged_ = isStaged;
    isDiffPaneVisible_ = true;
    emit diffChanged();
    emit diffRequested(file, diffSourceCommitHash_, isMerge, isStaged);
}

void WorkspaceViewModel::closeDiff() {
    qCDebug(lcUi, "Closing diff pane");
    selectedDiffFile_.reset();
    diffSourceCommitHash_.reset();
    diffSourceIsMerge_ = false;
    diffSourceIsStaged_ = false;
    isDiffPaneVisible_ = false;
    emit diffChanged();
}

void WorkspaceViewModel::setBranchDiffStat(int additions, int deletions) {
    if (additions == branchAdditions_ && deletions == branchDeletions_)
        return;
    branchAdditions_ = additions;
    branchDeletions_ = deletions;
    emit branchDiffStatChanged();
}

} // namespace orvel
