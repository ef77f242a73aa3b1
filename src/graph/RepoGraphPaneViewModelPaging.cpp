// The graph pane's pages: the history below the newest page loads a page ahead of the view, all
// the way to the root on request, or on to a commit that is sought (the checked-out one, a search
// hit, a "go to" name); and a refresh keeps the older pages when the newest one still leads into
// them.
#include "graph/RepoGraphPaneViewModel.h"

#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "graph/CommitSearchMatch.h"
#include "notices/ToastManager.h"
#include "settings/LocalizationManager.h"

#include <QLocale>

#include <algorithm>
#include <unordered_set>

namespace orvel {

void RepoGraphPaneViewModel::loadAhead(int row) {
    wantedRows_ = std::max(wantedRows_, row + 1 + static_cast<int>(loadLimit));
    pageOn();
}

void RepoGraphPaneViewModel::loadToEnd() {
    wantsEnd_ = true;
    pageOn();
}

bool RepoGraphPaneViewModel::wantsOlderCommits() const {
    return hasOlderCommits_ &&
           (static_cast<int>(commits_.size()) < wantedRows_ || wantsEnd_ || seeksHead_ || soughtHash_);
}

void RepoGraphPaneViewModel::stopPaging() {
    pages_.cancel();
    if (isPaging_ && wantsEnd_ && activity_)
        activity_(std::nullopt);
    isPaging_ = false;
    wantsEnd_ = false;
    seeksHead_ = false;
    checksSelection_ = false;
    soughtHash_.reset();
}

QCoro::Task<void> RepoGraphPaneViewModel::pageOn() {
    if (isPaging_)
        co_return;
    if (!wantsOlderCommits()) {
        finishPaging();
        co_return;
    }
    auto ticket = pages_.begin(this);
    isPaging_ = true;
    long size = loadLimit;
    bool showsProgress = false;
    while (wantsOlderCommits()) {
        // Far rows come in growing pages: fewer runs of git, each skipping what is loaded.
        const bool far = wantsEnd_ || seeksHead_ || soughtHash_ ||
                         wantedRows_ > static_cast<int>(commits_.size()) + static_cast<int>(loadLimit);
        if (wantsEnd_ && activity_) {
            showsProgress = true;
            activity_(localized("Loading history… %1 commits",
                                QLocale().toString(static_cast<qlonglong>(cachedGraphCommits_.size()))));
        }
        const long skip = static_cast<long>(cachedGraphCommits_.size());
        qCDebug(lcGraph, "op=graph.page skip=%ld limit=%ld", skip, size);
        auto page = service_->commitGraphPage(repo_, skip, size, ticket.stopToken());
        try {
            std::vector<GraphCommit> loaded = co_await std::move(page);
            if (!ticket.isCurrent())
                co_return;
            hasOlderCommits_ = static_cast<long>(loaded.size()) == size;
            appendCommits(std::move(loaded));
        } catch (const std::exception& error) {
            if (!ticket.isCurrent())
                co_return;
            qCDebug(lcGraph, "op=graph.page reason=%s", redactForLog(error.what()).c_str());
            break;
        }
        revealSought();
        if (far)
            size = std::min(size * 2, largestPage);
    }
    isPaging_ = false;
    if (showsProgress && activity_)
        activity_(std::nullopt);
    finishPaging();
}

void RepoGraphPaneViewModel::finishPaging() {
    wantsEnd_ = false;
    settleSelection();
    if (soughtHash_) {
        toasts_.show(localized("Commit %1 is not in the history", QString::fromStdString(soughtHash_->substr(0, 7))),
                     ToastType::error);
        soughtHash_.reset();
    }
}

void RepoGraphPaneViewModel::appendCommits(std::vector<GraphCommit> page) {
    const std::size_t first = cachedGraphCommits_.size();
    const int firstRow = static_cast<int>(commits_.size());
    const bool bringsHead = std::any_of(page.begin(), page.end(), [](const GraphCommit& c) { return c.isHead; });
    cachedGraphCommits_.insert(cachedGraphCommits_.end(), std::make_move_iterator(page.begin()),
                               std::make_move_iterator(page.end()));
    if (!searchQuery_.empty()) {
        const std::string lowered = lowercased(searchQuery_);
        for (auto commit = cachedGraphCommits_.begin() + static_cast<std::ptrdiff_t>(first);
             commit != cachedGraphCommits_.end(); ++commit) {
            if (matchesLocally(*commit, searchScope_, lowered))
                matchingHashes_.insert(commit->hash);
        }
    }
    // The working-tree row sits above the checked-out commit and moves every lane below it.
    if (bringsHead && isWorkingTreeDirty()) {
        rebuildRows();
        emit searchChanged();
        return;
    }
    layOutFrom(first);
    if (!matchingHashes_.empty()) {
        rebuildOrderedMatches();
        emit searchChanged();
    }
    emit rowsAppended(firstRow);
}

void RepoGraphPaneViewModel::revealSought() {
    if (seeksHead_) {
        const auto head = std::find_if(cachedGraphCommits_.begin(), cachedGraphCommits_.end(),
                                       [](const GraphCommit& commit) { return commit.isHead; });
        if (head != cachedGraphCommits_.end()) {
            seeksHead_ = false;
            if (!selectedHash_ || !commit(*selectedHash_))
                selectCommit(head->hash, false);
        }
    }
    if (soughtHash_ && rowOf(*soughtHash_) >= 0) {
        std::string hash = std::move(*soughtHash_);
        soughtHash_.reset();
        selectCommit(std::move(hash), true);
    }
}

void RepoGraphPaneViewModel::reveal(std::string hash) {
    if (rowOf(hash) >= 0) {
        selectCommit(std::move(hash), true);
        return;
    }
    soughtHash_ = std::move(hash);
    pageOn();
}

void RepoGraphPaneViewModel::settleSelection() {
    const bool lost = checksSelection_ && (!selectedHash_ || !commit(*selectedHash_));
    if (seeksHead_ || lost)
        selectHeadOrNothing();
    seeksHead_ = false;
    checksSelection_ = false;
}

void RepoGraphPaneViewModel::selectHeadOrNothing() {
    const auto head = std::find_if(cachedGraphCommits_.begin(), cachedGraphCommits_.end(),
                                   [](const GraphCommit& commit) { return commit.isHead; });
    if (head != cachedGraphCommits_.end()) {
        selectCommit(head->hash, false);
        return;
    }
    if (!selectedHash_)
        return;
    selectedHash_.reset();
    fileChangeLoads_.cancel();
    selectedNodeFileChanges_.reset();
    isLoadingFileChanges_ = false;
    emit selectionChanged();
    emit fileChangesChanged();
}

QCoro::Task<void> RepoGraphPaneViewModel::goTo(std::string name) {
    auto ticket = lookUps_.begin(this);
    qCDebug(lcGraph, "op=graph.goTo");
    auto lookUp = service_->resolveCommit(repo_, name, ticket.stopToken());
    std::optional<std::string> hash;
    try {
        hash = co_await std::move(lookUp);
    } catch (const std::exception& error) {
        if (!ticket.isCurrent())
            co_return;
        qCDebug(lcGraph, "op=graph.goTo reason=%s", redactForLog(error.what()).c_str());
    }
    if (!ticket.isCurrent())
        co_return;
    if (!hash) {
        toasts_.show(localized("No commit is named “%1”", QString::fromStdString(name)), ToastType::error);
        co_return;
    }
    reveal(std::move(*hash));
}

// The newest page leads into the loaded rows when it holds the checked-out commit, every row above
// its last commit is on it and no commit on it appears again below: then the rows below are what
// git would list next. Their refs that the page shows have moved up and leave them. A page equal
// to the loaded one changes nothing, and the long layout below it is not redone.
bool RepoGraphPaneViewModel::mergeNewestPage(std::vector<GraphCommit>& page) {
    if (static_cast<long>(page.size()) < loadLimit || cachedGraphCommits_.size() <= page.size() ||
        std::none_of(page.begin(), page.end(), [](const GraphCommit& commit) { return commit.isHead; }))
        return false;
    if (std::equal(page.begin(), page.end(), cachedGraphCommits_.begin()))
        return true;
    const std::string& last = page.back().hash;
    const auto end = std::find_if(cachedGraphCommits_.begin(), cachedGraphCommits_.end(),
                                  [&](const GraphCommit& commit) { return commit.hash == last; });
    if (end == cachedGraphCommits_.end())
        return false;
    std::unordered_set<std::string_view> onPage;
    std::unordered_set<std::string> pageRefs;
    for (const auto& commit : page) {
        onPage.insert(commit.hash);
        for (const auto& ref : commit.refs)
            pageRefs.insert(ref.id());
    }
    const auto below = end + 1;
    const bool abovePaged = std::all_of(cachedGraphCommits_.begin(), below,
                                        [&](const GraphCommit& commit) { return onPage.contains(commit.hash); });
    if (!abovePaged || std::any_of(below, cachedGraphCommits_.end(),
                                   [&](const GraphCommit& commit) { return onPage.contains(commit.hash); }))
        return false;
    qCDebug(lcGraph, "op=graph.load kept=%ld", static_cast<long>(cachedGraphCommits_.end() - below));
    std::deque<GraphCommit> merged(std::make_move_iterator(page.begin()), std::make_move_iterator(page.end()));
    for (auto commit = below; commit != cachedGraphCommits_.end(); ++commit) {
        std::erase_if(commit->refs, [&](const GraphRef& ref) { return pageRefs.contains(ref.id()); });
        commit->isHead = false;
        for (auto& ref : commit->refs)
            ref.isCurrent = false;
        merged.push_back(std::move(*commit));
    }
    cachedGraphCommits_ = std::move(merged);
    rebuildRows();
    return true;
}

} // namespace orvel
