// The state behind the conflict banner: which operation the repository is in the middle of, its
// conflicted files, and the ways out (abort, and for a rebase skip and continue). It reads nothing
// itself: the tab hands it the state and the files of its own refresh. An action that changed the
// repository says so, and the tab refreshes everything.
#pragma once

#include "core/records/ConflictEntry.h"
#include "core/records/FileChange.h"
#include "core/records/RepoEntry.h"
#include "core/service/OperationResults.h"

#include <QObject>
#include <QPointer>

#include <QCoro/QCoroTask>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

class GitServiceProtocol;
class ToastManager;

class ConflictBannerViewModel final : public QObject {
    Q_OBJECT

  public:
    ConflictBannerViewModel(RepoEntry repo, std::shared_ptr<GitServiceProtocol> service, ToastManager& toasts,
                            QObject* parent = nullptr);

    // The repository it was made for, in the state last handed over.
    const RepoEntry& repo() const { return repo_; }
    const std::shared_ptr<GitServiceProtocol>& service() const { return service_; }
    RepositoryState repoState() const { return repo_.state; }
    // The unmerged files in git's order; an entry keeps its id while its path stays unmerged.
    const std::vector<ConflictEntry>& conflicts() const { return conflicts_; }
    std::optional<ConflictEntry> firstConflict() const;
    // The file "Open Merge Editor" opens: the first conflicted one among the files selected in the
    // changes page, or the first conflicted file when none of them is.
    std::optional<ConflictEntry> conflictToOpen() const;
    // An abort, skip or continue is under way.
    bool isBusy() const { return isBusy_; }

    // The repository's state and its working-tree files as the tab last read them; the unmerged
    // ones are the conflicts.
    void update(RepositoryState state, const std::vector<FileChange>& files);
    // The paths selected in the changes page.
    void setSelectedPaths(std::vector<std::string> paths);
    // Asks for the merge editor on `path` when it is conflicted, or on conflictToOpen() when no
    // path is given; the banner opens it.
    void openMergeEditor(const std::optional<std::string>& path = std::nullopt);
    // The abort that fits the state; in a state without one it does nothing.
    QCoro::Task<void> abort();
    QCoro::Task<void> continueRebase();
    QCoro::Task<void> skipRebase();
    // The merge editor wrote and staged a file: the panes show it, the banner's list follows.
    void resolutionSaved() { emit repositoryChanged(); }

  signals:
    void stateChanged();
    void busyChanged();
    // An action changed the repository: the tab refreshes its panes, and this model with them.
    void repositoryChanged();
    void mergeEditorRequested(const orvel::ConflictEntry& conflict);

  private:
    QCoro::Task<void> carryOnRebase(bool skip);
    void setBusy(bool busy);

    RepoEntry repo_;
    std::shared_ptr<GitServiceProtocol> service_;
    QPointer<ToastManager> toasts_;
    std::vector<ConflictEntry> conflicts_;
    std::map<std::string, QUuid> conflictIDs_;
    std::vector<std::string> selectedPaths_;
    bool isBusy_ = false;
};

} // namespace orvel
