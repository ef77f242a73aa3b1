// Loading, rows and selection of the graph pane; the paging, the actions and the search stand in
// files of their own.
#include "graph/RepoGraphPaneViewModel.h"

#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "graph/LaneLayout.h"
#include "graph/RefSpreading.h"
#include "graph/RelativeDateFormatter.h"
#include "settings/LocalizationManager.h"

#include <algorithm>
#include <chrono>

namespace orvel {

namespace {

constexpr const char* workingTreeSubject = translatable("// WIP");

// The working-tree row's date column: a pencil, then "<unstaged> + <staged>" when both sides have
// changes, else their sum.
std::string workingTreeSummary(int unstaged, int staged) {
    std::string summary = "\u270E ";
    if (unstaged > 0 && staged > 0)
        summary += std::to_string(unstaged) + " + " + std::to_string(staged);
    else
        summary += std::to_string(unstaged + staged);
    return summary;
}

} // namespace

RepoGraphPaneViewModel::RepoGraphPaneViewModel(RepoEntry repo, std::shared_ptr<GitServiceProtocol> service,
                                               ToastManager& toasts, QObject* parent)
    : QObject(parent), repo_(std::move(repo)), service_(std::move(service)), toasts_(toasts) {
    // The rows' dates and the working tree's row are texts of the model; the view repaints them on
    // its own language change, which reaches it after this.
    connect(&LocalizationManager::shared(), &LocalizationManager::languageChanged, this, [this] {
        dates_.retranslate();
        if (wipCommit_)
            wipCommit_->subject = localized(workingTreeSubject).toStdString();
    });
}

RepoGraphPaneViewModel::~RepoGraphPaneViewModel() {
    closeStream();
}

void RepoGraphPaneViewModel::setRepository(RepoEntry repo) {
    loads_.cancel();
    stopPaging();
    lookUps_.cancel();
    fileChangeLoads_.cancel();
    searches_.cancel();
    repo_ = std::move(repo);
    store_.clear();
    wipCommit_.reset();
    commits_.clear();
    layout_ = LaneLayout();
    hasOlderCommits_ = false;
    wantedRows_ = 0;
    refsByRow_.clear();
    isLoading_ = false;
    selectedHash_.reset();
    selectedCommit_.reset();
    detailLoads_.cancel();
    isUserDrivenSelection_ = false;
    selectedNodeFileChanges_.reset();
    isLoadingFileChanges_ = false;
    fileChangesCache_.clear();
    searchQuery_.clear();
    clearMatches();
    isSearching_ = false;
    emit commitsChanged();
    emit loadingChanged();
    emit selectionChanged();
    emit selectedCommitChanged();
    emit fileChangesChanged();
    emit searchChanged();
}

// The store's index of a row that is not the working-tree row.
std::size_t RepoGraphPaneViewModel::indexOfRow(int row) const {
    return static_cast<std::size_t>(wipCommit_ ? row - 1 : row);
}

std::string_view RepoGraphPaneViewModel::hashAt(int row) const {
    return isWorkingTreeRow(row) ? std::string_view(wipCommit_->hash) : store_.hash(indexOfRow(row));
}

std::string_view RepoGraphPaneViewModel::subjectAt(int row) const {
    return isWorkingTreeRow(row) ? std::string_view(wipCommit_->subject) : store_.subject(indexOfRow(row));
}

std::string_view RepoGraphPaneViewModel::authorAt(int row) const {
    return isWorkingTreeRow(row) ? std::string_view() : std::string_view(store_.author(indexOfRow(row)).name);
}

std::string RepoGraphPaneViewModel::dateTextAt(int row) const {
    return isWorkingTreeRow(row) ? workingTreeSummary(wipUnstagedCount_, wipStagedCount_)
                                 : dates_.format(store_.date(indexOfRow(row)));
}

GraphCommit RepoGraphPaneViewModel::commitAt(int row) const {
    return isWorkingTreeRow(row) ? *wipCommit_ : store_.commit(indexOfRow(row));
}

int RepoGraphPaneViewModel::rowOf(std::string_view hash) const {
    if (wipCommit_ && hash == wipCommit_->hash)
        return 0;
    const auto index = store_.find(hash);
    return index ? static_cast<int>(*index) + (wipCommit_ ? 1 : 0) : -1;
}

std::optional<GraphCommit> RepoGraphPaneViewModel::commit(std::string_view hash) const {
    const int row = rowOf(hash);
    if (row < 0)
        return std::nullopt;
    return commitAt(row);
}

QCoro::Task<void> RepoGraphPaneViewModel::load(std::optional<QCoro::Task<std::vector<GraphCommit>>> newestPage) {
    auto ticket = loads_.begin(this);
    qCDebug(lcGraph, "op=graph.load");
    isLoading_ = true;
    emit loadingChanged();
    // What the pages were asked for (the end, a sought commit) is asked of the reloaded rows.
    haltPages();
    auto graph = newestPage ? std::move(*newestPage) : service_->commitGraph(repo_, loadLimit, ticket.stopToken());
    try {
        std::vector<GraphCommit> loaded = co_await std::move(graph);
        if (!ticket.isCurrent())
            co_return;
        // A page asked for meanwhile continued the rows this load replaces.
        haltPages();
        const bool isFullPage = static_cast<long>(loaded.size()) == loadLimit;
        const int previousRows = static_cast<int>(commits_.size());
        if (!mergeNewestPage(loaded)) {
            applyCommits(std::move(loaded));
            hasOlderCommits_ = isFullPage;
            // The pages load again as far as they reached, so that the view stays where it was.
            wantedRows_ = std::max(wantedRows_, previousRows);
        }
        qCDebug(lcGraph, "op=graph.loaded count=%ld", static_cast<long>(commits_.size()));
        // The checked-out commit, or the selected one, may lie pages down: the pages load on.
        if (!selectedHash_)
            seeksHead_ = true;
        else if (rowOf(*selectedHash_) < 0)
            checksSelection_ = true;
        revealSought();
        pageOn();
    } catch (const std::exception& error) {
        if (!ticket.isCurrent())
            co_return;
        qCDebug(lcGraph, "op=graph.load reason=%s", redactForLog(error.what()).c_str());
    }
    isLoading_ = false;
    emit loadingChanged();
}

void RepoGraphPaneViewModel::applyCommits(std::vector<GraphCommit> commits) {
    store_.clear();
    for (const auto& commit : commits)
        store_.append(commit);
    rebuildRows();
}

void RepoGraphPaneViewModel::setWorkingTreeCounts(int staged, int unstaged) {
    if (staged == wipStagedCount_ && unstaged == wipUnstagedCount_)
        return;
    wipStagedCount_ = staged;
    wipUnstagedCount_ = unstaged;
    rebuildRows();
}

void RepoGraphPaneViewModel::rebuildRows() {
    wipCommit_.reset();
    const auto head = store_.head();
    if (isWorkingTreeDirty() && head) {
        GraphCommit wip;
        wip.hash = workingTreeHash;
        wip.parentHashes = {std::string(store_.hash(*head))};
        wip.subject = localized(workingTreeSubject).toStdString();
        wip.date = std::chrono::time_point_cast<std::chrono::seconds>(std::chrono::system_clock::now());
        wipCommit_ = std::move(wip);
    }

    dates_ = RelativeDateFormatter(
        std::chrono::time_point_cast<std::chrono::seconds>(std::chrono::system_clock::now()));
    layout_ = LaneLayout();
    commits_.clear();
    refSpreading_ = RefSpreading();
    refsByRow_.clear();
    if (wipCommit_)
        commits_.push_back(layout_.append({DAGNode{wipCommit_->hash, {wipCommit_->parentHashes.front()}}}).front());
    layOutFrom(0);
    if (!matchingHashes_.empty())
        rebuildOrderedMatches();
    refreshSelectedCommit();
    emit commitsChanged();
}

void RepoGraphPaneViewModel::layOutFrom(std::size_t first) {
    std::vector<DAGNode> nodes;
    nodes.reserve(store_.size() - first);
    for (std::size_t index = first; index < store_.size(); ++index)
        nodes.push_back({store_.hash(index), store_.parents(index)});
    std::vector<CommitRow> laidOut = layout_.append(nodes);
    commits_.insert(commits_.end(), std::make_move_iterator(laidOut.begin()),
                    std::make_move_iterator(laidOut.end()));
    refSpreading_.append(store_, first, wipCommit_ ? 1 : 0, refsByRow_);
}

void RepoGraphPaneViewModel::selectCommit(std::string hash, bool userDriven) {
    selectedHash_ = hash;
    isUserDrivenSelection_ = userDriven;
    qCDebug(lcGraph, "op=commit.select");
    detailLoads_.cancel();
    selectedCommit_.reset();
    emit selectionChanged();
    refreshSelectedCommit();
    loadFileChanges(std::move(hash));
}

// Takes the selected commit from the rows, once it has one, keeping what was read of it; reads its
// body and abbreviation the first time.
void RepoGraphPaneViewModel::refreshSelectedCommit() {
    if (!selectedHash_) {
        if (std::exchange(selectedCommit_, std::nullopt))
            emit selectedCommitChanged();
        return;
    }
    std::optional<GraphCommit> fresh = commit(*selectedHash_);
    if (!fresh && !selectedCommit_)
        return;
    const bool isNew = fresh && !selectedCommit_;
    if (fresh && selectedCommit_) {
        fresh->body = std::move(selectedCommit_->body);
        fresh->abbreviatedHash = std::move(selectedCommit_->abbreviatedHash);
    }
    selectedCommit_ = std::move(fresh);
    emit selectedCommitChanged();
    if (isNew && *selectedHash_ != workingTreeHash)
        readSelectedDetails(*selectedHash_);
}

QCoro::Task<void> RepoGraphPaneViewModel::readSelectedDetails(std::string hash) {
    auto ticket = detailLoads_.begin(this);
    auto details = service_->commitDetails(repo_, hash, ticket.stopToken());
    try {
        const CommitEntry entry = co_await std::move(details);
        if (!ticket.isCurrent() || !selectedCommit_ || selectedCommit_->hash != hash)
            co_return;
        selectedCommit_->body = entry.body;
        selectedCommit_->abbreviatedHash = entry.abbreviatedHash;
        emit selectedCommitChanged();
    } catch (const std::exception& error) {
        if (!ticket.isCurrent())
            co_return;
        qCDebug(lcGraph, "op=commit.details reason=%s", redactForLog(error.what()).c_str());
    }
}

void RepoGraphPaneViewModel::loadFileChanges(std::string hash) {
    const auto cached = fileChangesCache_.find(hash);
    // The working-tree row has no commit for git to list; the changes pane shows its files.
    if (repo_.path.empty() || hash == workingTreeHash || cached != fileChangesCache_.end()) {
        fileChangeLoads_.cancel();
        if (cached != fileChangesCache_.end())
            selectedNodeFileChanges_ = cached->second;
        else
            selectedNodeFileChanges_.reset();
        isLoadingFileChanges_ = false;
        emit fileChangesChanged();
        return;
    }
    runFileChanges(std::move(hash));
}

QCoro::Task<void> RepoGraphPaneViewModel::runFileChanges(std::string hash) {
    auto ticket = fileChangeLoads_.begin(this);
    isLoadingFileChanges_ = true;
    selectedNodeFileChanges_.reset();
    emit fileChangesChanged();
    qCDebug(lcGraph, "op=fileChanges.load");
    auto files = service_->commitFileChanges(repo_, hash, ticket.stopToken());
    try {
        std::vector<FileChange> loaded = co_await std::move(files);
        if (!ticket.isCurrent())
            co_return;
        fileChangesCache_[hash] = loaded;
        selectedNodeFileChanges_ = std::move(loaded);
    } catch (const std::exception& error) {
        if (!ticket.isCurrent())
            co_return;
        qCDebug(lcGraph, "op=fileChanges.load reason=%s", redactForLog(error.what()).c_str());
    }
    isLoadingFileChanges_ = false;
    emit fileChangesChanged();
}

} // namespace orvel
