// The state of a tab's changes page: the staged and unstaged lists read from the working tree, the
// selection, the filter, the commit form's fields, and every action on a file. Actions move rows
// between the lists at once, for the eye; the status read that follows each one sets the record
// straight, so no action ever moves a row back by itself.
#pragma once

#include "changes/FileTree.h"
#include "core/records/ConflictEntry.h"
#include "core/records/FileChange.h"
#include "core/records/RepoEntry.h"
#include "core/support/LoadGeneration.h"

#include <QObject>
#include <QString>
#include <QUuid>

#include <QCoro/QCoroTask>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stop_token>
#include <string>
#include <vector>

namespace orvel {

class AnswerChannel;
class GitConfigProtocol;
class GitServiceProtocol;
class ToastManager;
class UserDefaults;

// Lives on the GUI thread; git runs only through the service.
class ChangesPaneViewModel final : public QObject {
    Q_OBJECT

  public:
    static constexpr int subjectCharacterLimit = 72;
    // Shows an activity in the toolbar while work runs (a message), and ends it (nothing).
    using ActivityCallback = std::function<void(std::optional<QString>)>;

    ChangesPaneViewModel(RepoEntry repo, std::shared_ptr<GitServiceProtocol> service, ToastManager& toasts,
                         QObject* parent = nullptr);
    ~ChangesPaneViewModel() override;

    const RepoEntry& repo() const { return repo_; }
    void setActivityCallback(ActivityCallback callback) { activity_ = std::move(callback); }
    // The settings store, read at each push for whether the fetch after it prunes ("autoPrune",
    // default on); without one it prunes.
    void setDefaults(const UserDefaults* defaults) { defaults_ = defaults; }
    // Where a missing identity is written; without it a commit refused for want of one is only
    // reported.
    void setConfigService(std::shared_ptr<GitConfigProtocol> config) { config_ = std::move(config); }

    const std::vector<FileChange>& stagedFiles() const { return stagedFiles_; }
    const std::vector<FileChange>& unstagedFiles() const { return unstagedFiles_; }
    const std::vector<FileChange>& filteredStagedFiles() const { return filteredStagedFiles_; }
    const std::vector<FileChange>& filteredUnstagedFiles() const { return filteredUnstagedFiles_; }
    RepositoryState repoState() const { return repoState_; }
    int stagedAdditions() const { return stagedAdditions_; }
    int stagedDeletions() const { return stagedDeletions_; }
    bool isDiscardingAll() const { return isDiscardingAll_; }

    // The filter and the list or tree shape.
    bool isSearchActive() const { return isSearchActive_; }
    const QString& searchText() const { return searchText_; }
    void toggleSearch();
    void setSearchText(const QString& text);
    ChangesDisplayMode displayMode() const { return displayMode_; }
    void setDisplayMode(ChangesDisplayMode mode);

    // The selection, by row id (see rowID): a staged and an unstaged row of one file are apart.
    const std::set<std::string>& selectedIDs() const { return selectedIDs_; }
    void setSelectedIDs(std::set<std::string> ids);
    // One selection spans both lists: selecting rows of one list lets go of the other list's, so a
    // file never looks selected on both sides at once.
    void setSelectedFiles(bool staged, const std::vector<FileChange>& files);
    // The selected rows of one list that the filter shows.
    std::vector<FileChange> selectedFiles(bool staged) const;

    // An unmerged row as a conflict whose id stays the same across refreshes; nothing for any
    // other row.
    std::optional<ConflictEntry> conflictEntry(const FileChange& file);
    std::optional<ConflictEntry> firstConflict();

    // The commit form.
    const QString& commitSubject() const { return commitSubject_; }
    const QString& commitDescription() const { return commitDescription_; }
    bool isAmend() const { return isAmend_; }
    bool isCommitAndPush() const { return isCommitAndPush_; }
    void setCommitSubject(const QString& subject);
    void setCommitDescription(const QString& description);
    void setAmend(bool amend);
    // Refused while pushing isn't offered.
    void setCommitAndPush(bool push);
    bool subjectIsEmpty() const;
    QString commitButtonTitle() const;
    // From a press of the button until everything that commit began has ended.
    bool isCommitting() const { return isCommitting_; }
    // A blank subject, nothing staged for a plain commit, or a commit under way leaves nothing to
    // commit.
    bool canCommit() const;
    // Pushing is offered only while no merge, rebase or pick is under way.
    bool canPush() const { return repoState_ == RepositoryState::clean; }
    bool pendingAmendPushConfirmation() const { return pendingAmendPushConfirmation_; }

    // Reads the status and splits it into the two lists, then the staged diff's size and the
    // repository's state. Only the last refresh begun is applied.
    QCoro::Task<void> refreshStatus();

    // The actions on rows and lists. Each moves rows at once, runs git, tells a failure in a toast
    // and refreshes; the returned task ends after that refresh.
    QCoro::Task<void> stageFile(FileChange file);
    QCoro::Task<void> unstageFile(FileChange file);
    QCoro::Task<void> stageSelected();
    QCoro::Task<void> unstageSelected();
    QCoro::Task<void> stageAll();
    QCoro::Task<void> unstageAll();
    QCoro::Task<void> discardFile(FileChange file);
    QCoro::Task<void> deleteFile(FileChange file);
    QCoro::Task<void> discardAll();
    QCoro::Task<void> ignoreFile(FileChange file);
    QCoro::Task<void> stashFile(FileChange file);
    QCoro::Task<void> resolveConflictOurs(FileChange file);
    QCoro::Task<void> resolveConflictTheirs(FileChange file);
    // Blame and history are shown by sheets of the diff's views; the tab connects these. A file git
    // doesn't track has neither (see hasHistory), and asking for it does nothing.
    void requestBlame(const FileChange& file);
    void requestFileHistory(const FileChange& file);
    // The file's full path to the clipboard; its folder in the desktop's file manager.
    void copyPath(const FileChange& file);
    void showInFileManager(const FileChange& file);

    // Commits the form (and pushes when asked); ends when everything it started has ended. A press
    // while an earlier commit is under way does nothing.
    QCoro::Task<void> commit();
    // The answers to the force-push question of an amended commit that was already pushed.
    void confirmAmendPush();
    void cancelAmendPush();
    // Refuses without a word and stops the commit's remaining work, as a closing tab does.
    void dismissAmendPush();

    // git refused the last commit because it knows no name or e-mail for it (a fresh machine);
    // the form offers to set them in place.
    bool isIdentityRequested() const { return identityRequested_; }
    // Writes the name and e-mail to git's configuration, for every repository of the user (global)
    // or for this one only (local), then commits the form as it stands. Blank values do nothing.
    QCoro::Task<void> setIdentityAndCommit(QString name, QString email, bool allRepositories);
    void dismissIdentityRequest();

  signals:
    void listsChanged();
    void selectionChanged();
    void filterChanged();
    void displayModeChanged();
    void repoStateChanged();
    void stagedDiffStatChanged();
    void discardingAllChanged();
    // The subject, description, either option or the question changed.
    void commitFormChanged();
    // A commit changed history: the tab reloads the graph, the branch name and the sidebar.
    void commitSucceeded();
    // A file went to a stash: the tab reloads the sidebar's stashes.
    void stashCompleted();
    void blameRequested(const std::string& path);
    void fileHistoryRequested(const std::string& path);

  private:
    void setLists(std::vector<FileChange> staged, std::vector<FileChange> unstaged);
    void updateFilteredLists();
    // Moves the rows for which `take` holds from one list to the end of the other.
    void moveRows(bool fromStaged, const std::function<bool(const FileChange&)>& take);
    // Moves the selected rows of one list to the other; answers their paths.
    std::vector<std::string> moveSelected(bool fromStaged);
    void removeRows(bool fromStaged, const std::function<bool(const FileChange&)>& take);
    void showActivity(std::optional<QString> message) const;
    // Awaits `operation`; a failure is logged as "op=<logName> reason=..." and told with
    // `failureFormat`. Then refreshes. Answers whether the operation succeeded.
    QCoro::Task<bool> runAndRefresh(QCoro::Task<void> operation, const char* logName,
                                    const char* failureFormat);
    QCoro::Task<void> refreshStagedDiffStat(LoadTicket ticket);
    QCoro::Task<void> refreshRepoState(LoadTicket ticket);
    // Once a stop of a merge, pick or revert: git's prepared message fills an empty form.
    QCoro::Task<void> offerPreparedMessage(LoadTicket ticket);
    // The amend question: answers whether to push.
    QCoro::Task<bool> askAmendPush(std::stop_token cancellation);
    // Pushes after a commit; asks first when the amend rewrote a commit the upstream has.
    QCoro::Task<void> push(bool wasAmend, bool rewritesPushedCommit, std::stop_token cancellation);

    RepoEntry repo_;
    std::shared_ptr<GitServiceProtocol> service_;
    std::shared_ptr<GitConfigProtocol> config_;
    ToastManager& toasts_;
    ActivityCallback activity_;
    const UserDefaults* defaults_ = nullptr;
    LoadGeneration statusLoads_;

    RepositoryState repoState_;
    bool isSearchActive_ = false;
    QString searchText_;
    ChangesDisplayMode displayMode_ = ChangesDisplayMode::list;
    std::map<std::string, QUuid> conflictIDCache_;
    std::vector<FileChange> unstagedFiles_;
    std::vector<FileChange> stagedFiles_;
    std::vector<FileChange> filteredUnstagedFiles_;
    std::vector<FileChange> filteredStagedFiles_;
    bool isDiscardingAll_ = false;
    int stagedAdditions_ = 0;
    int stagedDeletions_ = 0;
    bool isAmend_ = false;
    bool isCommitAndPush_ = false;
    QString commitSubject_;
    QString commitDescription_;
    bool isCommitting_ = false;
    // Whether the current stop's prepared message was offered already; a clean state resets it.
    bool preparedMessageOffered_ = false;
    bool pendingAmendPushConfirmation_ = false;
    bool identityRequested_ = false;
    std::shared_ptr<AnswerChannel> pendingAmendPushContinuation_;
    std::stop_source commitStop_;
    std::set<std::string> selectedIDs_;
};

} // namespace orvel
