// The graph pane's pages: the history below the newest page loads a page ahead of the view, all
// the way to the root on request, or on to a commit that is sought (the checked-out one, a search
// hit, a "go to" name); and a refresh keeps the older pages when the newest one still leads into
// them. The pages come from one `git log` that runs while they are wanted, each laid out in a turn
// of the event loop of its own, so that the view stays responsive however far the load goes.
#include "graph/RepoGraphPaneViewModel.h"

#include "core/service/CommitPageChannel.h"
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

void RepoGraphPaneViewModel::haltPages() {
    pages_.cancel();
    closeStream();
    if (showsProgress_ && activity_)
        activity_(std::nullopt);
    showsProgress_ = false;
    isPaging_ = false;
}

void RepoGraphPaneViewModel::stopPaging() {
    haltPages();
    wantsEnd_ = false;
    seeksHead_ = false;
    checksSelection_ = false;
    soughtHash_.reset();
}

void RepoGraphPaneViewModel::closeStream() {
    if (stream_)
        stream_->close();
    stream_.reset();
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
    showsProgress_ = false;
    streamEnded_ = false;
    reachedRoot_ = false;
    stream_ = std::make_shared<CommitPageChannel>(
        [this] { QMetaObject::invokeMethod(this, &RepoGraphPaneViewModel::takeStreamedPage, Qt::QueuedConnection); },
        streamPage);
    const long skip = static_cast<long>(store_.size());
    qCDebug(lcGraph, "op=graph.page skip=%ld", skip);
    showProgress();
    auto run = service_->streamCommitGraph(repo_, skip, stream_, ticket.stopToken());
    // The model may be gone when git's run ends: nothing of it is touched before the ticket says so.
    bool reachedRoot = false;
    try {
        co_await std::move(run);
        reachedRoot = true;
    } catch (const std::exception& error) {
        // A load ended because nothing more was wanted is no failure.
        qCDebug(lcGraph, "op=graph.page reason=%s", redactForLog(error.what()).c_str());
    }
    if (!ticket.isCurrent())
        co_return;
    reachedRoot_ = reachedRoot;
    streamEnded_ = true;
    takeStreamedPage();
}

// One page a turn; the next turn takes the next page, if one came meanwhile.
void RepoGraphPaneViewModel::takeStreamedPage() {
    if (!stream_)
        return;
    if (auto page = stream_->take()) {
        appendCommits(std::move(*page));
        revealSought();
        if (!wantsOlderCommits()) {
            // The rest of git's run is not wanted: closing ends it, and a later load goes on from here.
            stopStreaming();
            return;
        }
        showProgress();
        if (stream_->hasPages() || streamEnded_)
            QMetaObject::invokeMethod(this, &RepoGraphPaneViewModel::takeStreamedPage, Qt::QueuedConnection);
        return;
    }
    if (!streamEnded_)
        return;
    hasOlderCommits_ = !reachedRoot_;
    stopStreaming();
    if (reachedRoot_)
        emit rootReached();
}

void RepoGraphPaneViewModel::stopStreaming() {
    haltPages();
    finishPaging();
}

void RepoGraphPaneViewModel::showProgress() {
    if (!wantsEnd_ || !activity_)
        return;
    showsProgress_ = true;
    activity_(localized("Loading history… %1 commits", QLocale().toString(static_cast<qlonglong>(store_.size()))));
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
    const std::size_t first = store_.size();
    const int firstRow = static_cast<int>(commits_.size());
    const bool bringsHead = std::any_of(page.begin(), page.end(), [](const GraphCommit& c) { return c.isHead; });
    for (const auto& commit : page)
        store_.append(commit);
    if (!searchQuery_.empty())
        matchLocally(first);
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
    if (selectedHash_ && !selectedCommit_)
        refreshSelectedCommit();
    emit rowsAppended(firstRow);
}

void RepoGraphPaneViewModel::revealSought() {
    if (seeksHead_) {
        if (const auto head = store_.head()) {
            seeksHead_ = false;
            if (!selectedHash_ || rowOf(*selectedHash_) < 0)
                selectCommit(std::string(store_.hash(*head)), false);
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
    const bool lost = checksSelection_ && (!selectedHash_ || rowOf(*selectedHash_) < 0);
    if (seeksHead_ || lost)
        selectHeadOrNothing();
    seeksHead_ = false;
    checksSelection_ = false;
}

void RepoGraphPaneViewModel::selectHeadOrNothing() {
    if (const auto head = store_.head()) {
        selectCommit(std::string(store_.hash(*head)), false);
        return;
    }
    if (!selectedHash_)
        return;
    selectedHash_.reset();
    refreshSelectedCommit();
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
    if (static_cast<long>(page.size()) < loadLimit || store_.size() <= page.size() ||
        std::none_of(page.begin(), page.end(), [](const GraphCommit& commit) { return commit.isHead; }))
        return false;
    const auto end = store_.find(page.back().hash);
    if (!end)
        return false;
    bool unchanged = *end + 1 == page.size();
    for (std::size_t index = 0; unchanged && index < page.size(); ++index)
        unchanged = store_.commit(index) == page[index];
    if (unchanged)
        return true;
    std::unordered_set<std::string_view> onPage;
    std::unordered_set<std::string> pageRefs;
    for (const auto& commit : page) {
        onPage.insert(commit.hash);
        for (const auto& ref : commit.refs)
            pageRefs.insert(ref.id());
    }
    const std::size_t below = *end + 1;
    for (std::size_t index = 0; index < store_.size(); ++index) {
        if ((index < below) != onPage.contains(store_.hash(index)))
            return false;
    }
    qCDebug(lcGraph, "op=graph.load kept=%ld", static_cast<long>(store_.size() - below));
    CommitStore merged;
    for (const auto& commit : page)
        merged.append(commit);
    for (std::size_t index = below; index < store_.size(); ++index) {
        GraphCommit kept = store_.commit(index);
        std::erase_if(kept.refs, [&](const GraphRef& ref) { return pageRefs.contains(ref.id()); });
        kept.isHead = false;
        for (auto& ref : kept.refs)
            ref.isCurrent = false;
        merged.append(kept);
    }
    store_ = std::move(merged);
    rebuildRows();
    return true;
}

} // namespace orvel
