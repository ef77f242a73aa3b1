// The state behind the commit graph of one repository tab: the loaded commits with the working-tree
// row, read a page at a time from the newest down, their layout in lanes, the ref pills spread over rows, the selection with its file list, the
// commit search, and the actions of the graph's context menu.
#pragma once

#include "core/records/CommitSearchType.h"
#include "core/records/FileChange.h"
#include "core/records/GraphCommit.h"
#include "core/records/RepoEntry.h"
#include "core/service/OperationResults.h"
#include "core/support/LoadGeneration.h"
#include "core/support/TextHash.h"
#include "graph/CommitRow.h"
#include "graph/CommitStore.h"
#include "graph/GraphConfirmation.h"
#include "graph/LaneLayout.h"
#include "graph/RefSpreading.h"
#include "graph/RelativeDateFormatter.h"
#include "graph/RowRef.h"

#include <QObject>
#include <QString>

#include <QCoro/QCoroTask>

#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace orvel {

class CommitPageChannel;
class GitServiceProtocol;
class ToastManager;

// Lives on the GUI thread; git runs only through the service.
class RepoGraphPaneViewModel final : public QObject {
    Q_OBJECT

  public:
    // The rows of the first page, and of each page loaded ahead of the scroll position.
    static constexpr long loadLimit = 2000;
    // Pages double up to this size while loading towards a far row, the root or a sought commit.
    // The commits of each page of a load below the first page; each is laid out in a turn of its own.
    static constexpr std::size_t streamPage = 1000;
    static constexpr std::chrono::milliseconds searchDebounce{300};
    // The hash of the synthetic working-tree row.
    static constexpr std::string_view workingTreeHash = "wip";

    // Shows an activity while an action runs (a message), and ends it (nothing).
    using ActivityCallback = std::function<void(std::optional<QString>)>;

    RepoGraphPaneViewModel(RepoEntry repo, std::shared_ptr<GitServiceProtocol> service, ToastManager& toasts,
                           QObject* parent = nullptr);
    // Ends a load of pages that is still running, so that its git run ends too.
    ~RepoGraphPaneViewModel() override;

    const RepoEntry& repo() const { return repo_; }
    // Another repository: clears the rows, the selection, the file cache and the search.
    void setRepository(RepoEntry repo);
    void setActivityCallback(ActivityCallback callback) { activity_ = std::move(callback); }

    // Rows top to bottom, with their lanes; the texts of row i are read with the row accessors.
    const std::deque<CommitRow>& commits() const { return commits_; }
    std::string_view hashAt(int row) const;
    std::string_view subjectAt(int row) const;
    std::string_view authorAt(int row) const;
    // The relative date, or the working-tree row's counts.
    std::string dateTextAt(int row) const;
    bool isWorkingTreeRow(int row) const { return wipCommit_ && row == 0; }
    // The whole commit of a row, without its body.
    GraphCommit commitAt(int row) const;
    // The commit of `hash` among the rows (the working-tree row included), or nothing.
    std::optional<GraphCommit> commit(std::string_view hash) const;
    // The row of `hash`, or -1.
    int rowOf(std::string_view hash) const;
    // The pills of each row, in the order they are drawn; refsByRow()[i] belongs to row i.
    const std::deque<std::vector<RowRef>>& refsByRow() const { return refsByRow_; }
    // The loaded pages as git gave them, without the working-tree row.
    const CommitStore& store() const { return store_; }
    bool isLoading() const { return isLoading_; }
    // Git has commits below the last loaded row.
    bool hasOlderCommits() const { return hasOlderCommits_; }
    // A page or more is on its way.
    bool isPaging() const { return isPaging_; }

    const std::optional<std::string>& selectedHash() const { return selectedHash_; }
    // The selected commit with its body and abbreviation once they are read, or null.
    const GraphCommit* selectedCommit() const { return selectedCommit_ ? &*selectedCommit_ : nullptr; }
    bool isUserDrivenSelection() const { return isUserDrivenSelection_; }
    const std::optional<std::vector<FileChange>>& selectedNodeFileChanges() const {
        return selectedNodeFileChanges_;
    }
    bool isLoadingFileChanges() const { return isLoadingFileChanges_; }

    int wipStagedCount() const { return wipStagedCount_; }
    int wipUnstagedCount() const { return wipUnstagedCount_; }

    // Reads the newest page of all refs and lays it out, then loads on until the checked-out commit
    // has a row and selects it. Rows loaded before below the newest page stay when the newest page
    // still leads into them (commits added on top, refs moved forward); else the history reloads.
    // A load overtaken by a newer one, or by a change of repository, changes nothing; a failure
    // keeps the rows. `newestPage`, when given, is that page's read already under way.
    QCoro::Task<void> load(std::optional<QCoro::Task<std::vector<GraphCommit>>> newestPage = std::nullopt);
    // Keeps `commits` as the whole load and rebuilds every row, pill and text from them.
    void applyCommits(std::vector<GraphCommit> commits);
    // The view shows rows up to `row`: loads pages until a page's worth of rows lies below it.
    void loadAhead(int row);
    // Loads every page down to the root, with its progress as an activity.
    void loadToEnd();
    // Selects the commit a hash, prefix, branch or tag names, loading pages until it has a row; a
    // name of no commit in the history is told in a toast and moves nothing.
    QCoro::Task<void> goTo(std::string name);
    // The working tree's counts, from the changes pane: the working-tree row appears, disappears or
    // changes its text without reading the log again.
    void setWorkingTreeCounts(int staged, int unstaged);

    // Selects `hash`, and loads pages on to it when it has no row yet; a commit that is not in the
    // history is told in a toast.
    void reveal(std::string hash);
    // Selects `hash` and loads its file list (from the cache when it has one). A hash without a row
    // is still selected: the rows may not have loaded yet.
    void selectCommit(std::string hash, bool userDriven = true);

    // The context menu's actions on the commit `hash`. Resets, cherry-picks and reverts ask first,
    // through confirmationRequested; a cherry-pick's or revert's question also tells what git will
    // do, and warns when the working tree has changes.
    void copyHash(const std::string& hash);
    QCoro::Task<void> copyMessage(std::string hash);
    void requestReset(const std::string& hash, ResetMode mode);
    void requestCherryPick(const std::string& hash);
    void requestRevert(const std::string& hash);
    void requestCreateBranch(const std::string& hash) { emit createBranchRequested(hash); }
    void requestCreateTag(const std::string& hash) { emit createTagRequested(hash); }
    // Runs what an accepted confirmation asked for.
    QCoro::Task<void> confirm(GraphConfirmation confirmation);
    // What the asked cherry-pick or revert will do, predicted while its confirmation is open:
    // nothing before git answered. Accepting never waits for it.
    const std::optional<MergePrediction>& confirmationPrediction() const { return confirmationPrediction_; }

    // The actions themselves, with their toasts; each reloads the graph on success and raises
    // repositoryChanged when git changed the repository.
    QCoro::Task<void> reset(std::string hash, ResetMode mode);
    QCoro::Task<void> cherryPick(std::string hash);
    QCoro::Task<void> revert(std::string hash);
    // Checks the new branch out only when `checkout` is on.
    QCoro::Task<void> createBranch(std::string name, std::string hash, bool checkout);
    QCoro::Task<void> createTag(std::string name, std::optional<std::string> message, std::string hash);

    // The commit search: at once over the loaded commits, then, after a pause in typing, through
    // `git log` over the whole repository.
    bool isSearchVisible() const { return isSearchVisible_; }
    const std::string& searchQuery() const { return searchQuery_; }
    CommitSearchType searchScope() const { return searchScope_; }
    const TextSet& matchingHashes() const { return matchingHashes_; }
    const std::vector<std::string>& matchingHashesOrdered() const { return matchingHashesOrdered_; }
    int currentMatchIndex() const { return currentMatchIndex_; }
    // The place of the selected commit among the matches, or -1 when it is none of them.
    int selectedMatchIndex() const;
    bool isSearching() const { return isSearching_; }

    // Both rerun the search.
    void setSearchQuery(std::string query);
    void setSearchScope(CommitSearchType scope);
    // The returned task ends when the `git log` stage has ended or was superseded.
    QCoro::Task<void> runSearch();
    void nextMatch();
    void previousMatch();
    void clearSearch();
    void toggleSearch();

  signals:
    // The rows, their pills or their texts changed.
    void commitsChanged();
    // Rows from `first` to the end were added below the others, which kept their lanes and texts;
    // pills of rows above may have spread onto them.
    void rowsAppended(int first);
    // The last page came: the root commit has its row, and no page follows.
    void rootReached();
    void loadingChanged();
    void selectionChanged();
    // selectedCommit() changed: another selection, its details read, or its refs reloaded.
    void selectedCommitChanged();
    // selectedNodeFileChanges or isLoadingFileChanges changed.
    void fileChangesChanged();
    // Any search field changed.
    void searchChanged();
    void confirmationRequested(const orvel::GraphConfirmation& confirmation);
    void confirmationPredictionChanged();
    void createBranchRequested(const std::string& hash);
    void createTagRequested(const std::string& hash);
    // A reset, cherry-pick or revert changed the repository: the tab refreshes the other panes.
    void repositoryChanged();

  private:
    void rebuildRows();
    // Lays out the rows of the store's commits from `first` on, after the others.
    void layOutFrom(std::size_t first);
    // Adds a page below the loaded rows.
    void appendCommits(std::vector<GraphCommit> page);
    // Loads pages while something below the loaded rows is wanted; one such run at a time.
    QCoro::Task<void> pageOn();
    void takeStreamedPage();
    // Ends the pages' run: what git still prints is not wanted.
    void stopStreaming();
    void closeStream();
    // The status line's count while loading to the root.
    void showProgress();
    bool wantsOlderCommits() const;
    // Selects what the pages were sought for once it has a row.
    void revealSought();
    // Ends the run of pages; what they were asked for stays.
    void haltPages();
    // Ends the run of pages and forgets what they were asked for.
    void stopPaging();
    // Once no more pages are wanted: settles the selection and tells of a commit sought in vain.
    void finishPaging();
    // The newest page of a refresh merged over the loaded rows, when it leads into them unchanged.
    bool mergeNewestPage(std::vector<GraphCommit>& page);
    void selectHeadOrNothing();
    // After the pages: selects the checked-out commit when nothing else was sought or kept.
    void settleSelection();
    std::size_t indexOfRow(int row) const;
    void refreshSelectedCommit();
    QCoro::Task<void> readSelectedDetails(std::string hash);
    void loadFileChanges(std::string hash);
    QCoro::Task<void> runFileChanges(std::string hash);
    // The working tree has staged or unstaged changes.
    bool isWorkingTreeDirty() const { return wipStagedCount_ + wipUnstagedCount_ > 0; }
    bool checkRepository();
    // Raises repositoryChanged and reloads the rows after an action changed the repository.
    void afterChange();
    QCoro::Task<void> pickOrRevert(std::string hash, bool isRevert);
    // Asks to confirm a cherry-pick or a revert and predicts it while the question is open.
    QCoro::Task<void> askToPick(GraphConfirmation confirmation);
    // Adds the hits of the immediate search among the store's commits from `first` on.
    void matchLocally(std::size_t first);
    void rebuildOrderedMatches();
    void moveMatch(int step);
    void clearMatches();
    // Selects a match on the search's behalf, remembering where the user had the selection.
    void selectFirstMatch();
    // With no match, the selection goes back to where the user had it before the search moved it.
    void restoreUserSelection();

    RepoEntry repo_;
    std::shared_ptr<GitServiceProtocol> service_;
    ToastManager& toasts_;
    ActivityCallback activity_;

    CommitStore store_;
    // The working-tree row, shown above the commits while the working tree has changes.
    std::optional<GraphCommit> wipCommit_;
    // A deque, so that adding a page to a long history never moves or copies the rows above it.
    std::deque<CommitRow> commits_;
    // The date column's texts, measured from when the rows were laid out.
    RelativeDateFormatter dates_{Instant()};
    std::deque<std::vector<RowRef>> refsByRow_;
    // The pills' spread after the last row, ready for the next page.
    RefSpreading refSpreading_;
    bool isLoading_ = false;
    LoadGeneration loads_;
    // The layout pass after the last row, ready for the next page.
    LaneLayout layout_;
    bool hasOlderCommits_ = false;
    bool isPaging_ = false;
    LoadGeneration pages_;
    std::shared_ptr<CommitPageChannel> stream_;
    bool streamEnded_ = false;
    bool reachedRoot_ = false;
    bool showsProgress_ = false;
    // Rows the view wants loaded; pages load until there are this many.
    int wantedRows_ = 0;
    bool wantsEnd_ = false;
    bool seeksHead_ = false;
    // The selection of a refresh waits for the pages to bring its row.
    bool checksSelection_ = false;
    std::optional<std::string> soughtHash_;
    // The look-ups of "go to".
    LoadGeneration lookUps_;
    LoadGeneration messageCopies_;
    LoadGeneration predictions_;
    std::optional<MergePrediction> confirmationPrediction_;

    std::optional<std::string> selectedHash_;
    std::optional<GraphCommit> selectedCommit_;
    LoadGeneration detailLoads_;
    bool isUserDrivenSelection_ = false;
    std::optional<std::vector<FileChange>> selectedNodeFileChanges_;
    bool isLoadingFileChanges_ = false;
    std::unordered_map<std::string, std::vector<FileChange>> fileChangesCache_;
    LoadGeneration fileChangeLoads_;

    int wipStagedCount_ = 0;
    int wipUnstagedCount_ = 0;

    bool isSearchVisible_ = false;
    std::string searchQuery_;
    CommitSearchType searchScope_ = CommitSearchType::all;
    TextSet matchingHashes_;
    std::vector<std::string> matchingHashesOrdered_;
    // Git's hits, in its order; those without a row yet count and are listed after the loaded ones.
    std::vector<std::string> searchHits_;
    int currentMatchIndex_ = 0;
    // The commit the search last selected, and the user's selection it replaced.
    std::optional<std::string> searchSelection_;
    std::optional<std::string> selectionBeforeSearch_;
    bool isSearching_ = false;
    LoadGeneration searches_;
};

} // namespace orvel
