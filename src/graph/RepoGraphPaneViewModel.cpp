// Loading, rows and selection of the graph pane; the paging, the actions and the search stand in
// files of their own.
#include "graph/RepoGraphPaneViewModel.h"

#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "graph/CommitInfoMap.h"
#include "graph/LaneLayout.h"
#include "graph/RefSpreading.h"
#include "graph/RelativeDateFormatter.h"
#include "settings/LocalizationManager.h"

#include <algorithm>
#include <chrono>

namespace orvel {

namespace {

constexpr const char* workingTreeSubject = "// WIP";

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
    : QObject(parent), repo_(std::move(repo)), service_(std::move(service)), toasts_(toasts) {}

void RepoGraphPaneViewModel::setRepository(RepoEntry repo) {
    loads_.cancel();
    stopPaging();
    lookUps_.cancel();
    fileChangeLoads_.cancel();
    searches_.cancel();
    repo_ = std::move(repo);
    cachedGraphCommits_.clear();
    wipCommit_.reset();
    commits_.clear();
    layout_ = LaneLayout();
    hasOlderCommits_ = false;
    wantedRows_ = 0;
    rowOfHash_.clear();
    refsByRow_.clear();
    isLoading_ = false;
    selectedHash_.reset();
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
    emit fileChangesChanged();
    emit searchChanged();
}

const GraphCommit& RepoGraphPaneViewModel::commitAt(int row) const {
    if (wipCommit_)
        return row == 0 ? *wipCommit_ : cachedGraphCommits_[static_cast<std::size_t>(row - 1)];
    return cachedGraphCommits_[static_cast<std::size_t>(row)];
}

int RepoGraphPaneViewModel::rowOf(std::string_view hash) const {
    const auto found = rowOfHash_.find(hash);
    return found == rowOfHash_.end() ? -1 : found->second;
}

const GraphCommit* RepoGraphPaneViewModel::commit(std::string_view hash) const {
    const int row = rowOf(hash);
    return row < 0 ? nullptr : &commitAt(row);
}

const GraphCommit* RepoGraphPaneViewModel::selectedCommit() const {
    return selectedHash_ ? commit(*selectedHash_) : nullptr;
}

QCoro::Task<void> RepoGraphPaneViewModel::load() {
    auto ticket = loads_.begin(this);
    qCDebug(lcGraph, "op=graph.load");
    isLoading_ = true;
    emit loadingChanged();
    stopPaging();
    auto graph = service_->commitGraph(repo_, loadLimit, ticket.stopToken());
    try {
        std::vector<GraphCommit> loaded = co_await std::move(graph);
        if (!ticket.isCurrent())
            co_return;
        // A page asked for meanwhile continued the rows this load replaces.
        stopPaging();
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
        if (!selectedHash_) {
            seeksHead_ = true;
            revealSought();
        } else if (!commit(*selectedHash_)) {
            checksSelection_ = true;
        }
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
    cachedGraphCommits_.assign(std::make_move_iterator(commits.begin()), std::make_move_iterator(commits.end()));
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
    const auto head = std::find_if(cachedGraphCommits_.begin(), cachedGraphCommits_.end(),
                                   [](const GraphCommit& commit) { return commit.isHead; });
    if (isWorkingTreeDirty() && head != cachedGraphCommits_.end()) {
        GraphCommit wip;
        wip.hash = workingTreeHash;
        wip.parentHashes = {head->hash};
        wip.subject = workingTreeSubject;
        wip.date = std::chrono::time_point_cast<std::chrono::seconds>(std::chrono::system_clock::now());
        wipCommit_ = std::move(wip);
    }

    layout_ = LaneLayout();
    commits_.clear();
    rowOfHash_.clear();
    layOutFrom(0);
    if (!matchingHashes_.empty())
        rebuildOrderedMatches();
    emit commitsChanged();
}

void RepoGraphPaneViewModel::layOutFrom(std::size_t first) {
    std::vector<const GraphCommit*> page;
    page.reserve(cachedGraphCommits_.size() - first + 1);
    if (first == 0 && wipCommit_)
        page.push_back(&*wipCommit_);
    for (auto commit = cachedGraphCommits_.begin() + static_cast<std::ptrdiff_t>(first);
         commit != cachedGraphCommits_.end(); ++commit)
        page.push_back(&*commit);

    const std::size_t firstRow = commits_.size();
    std::vector<DAGNode> nodes;
    nodes.reserve(page.size());
    CommitInfoMap info;
    info.reserve(page.size());
    const RelativeDateFormatter dates(
        std::chrono::time_point_cast<std::chrono::seconds>(std::chrono::system_clock::now()));
    for (std::size_t index = 0; index < page.size(); ++index) {
        const GraphCommit& commit = *page[index];
        rowOfHash_.emplace(commit.hash, static_cast<int>(firstRow + index));
        nodes.push_back({commit.hash, commit.parentHashes});
        const bool isWorkingTree = &commit == (wipCommit_ ? &*wipCommit_ : nullptr);
        info.emplace(commit.hash,
                     {commit.subject, commit.authors.empty() ? std::string() : commit.authors.front().name,
                      isWorkingTree ? workingTreeSummary(wipUnstagedCount_, wipStagedCount_)
                                    : dates.format(commit.date)});
    }
    std::vector<CommitRow> laidOut = layout_.append(nodes, info);
    commits_.insert(commits_.end(), std::make_move_iterator(laidOut.begin()),
                    std::make_move_iterator(laidOut.end()));

    if (firstRow == 0) {
        refSpreading_ = RefSpreading();
        refsByRow_.clear();
    }
    refSpreading_.append(page, rowOfHash_, refsByRow_);
}

void RepoGraphPaneViewModel::selectCommit(std::string hash, bool userDriven) {
    selectedHash_ = hash;
    isUserDrivenSelection_ = userDriven;
    qCDebug(lcGraph, "op=commit.select");
    emit selectionChanged();
    loadFileChanges(std::move(hash));
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
