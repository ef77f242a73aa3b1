// The graph pane's commit search: the immediate match over the loaded commits, then, after a pause
// in typing, `git log` over the whole repository; both feed one set of hits, those with rows first.
#include "graph/RepoGraphPaneViewModel.h"

#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "graph/CommitSearchMatch.h"

#include <QCoro/QCoroTimer>

#include <algorithm>

namespace orvel {

void RepoGraphPaneViewModel::setSearchQuery(std::string query) {
    if (query == searchQuery_)
        return;
    searchQuery_ = std::move(query);
    emit searchChanged();
    runSearch();
}

void RepoGraphPaneViewModel::setSearchScope(CommitSearchType scope) {
    if (scope == searchScope_)
        return;
    searchScope_ = scope;
    emit searchChanged();
    runSearch();
}

void RepoGraphPaneViewModel::clearMatches() {
    matchingHashes_.clear();
    matchingHashesOrdered_.clear();
    searchHits_.clear();
    currentMatchIndex_ = 0;
    searchSelection_.reset();
}

void RepoGraphPaneViewModel::matchLocally(std::size_t first) {
    const std::string lowered = lowercased(searchQuery_);
    for (std::size_t index = first; index < store_.size(); ++index) {
        if (matchesLocally(store_, index, searchScope_, lowered))
            matchingHashes_.emplace(store_.hash(index));
    }
}

void RepoGraphPaneViewModel::rebuildOrderedMatches() {
    matchingHashesOrdered_.clear();
    for (int row = 0; row < static_cast<int>(commits_.size()); ++row) {
        const std::string_view hash = hashAt(row);
        if (matchingHashes_.contains(hash))
            matchingHashesOrdered_.emplace_back(hash);
    }
    for (const auto& hash : searchHits_) {
        if (rowOf(hash) < 0)
            matchingHashesOrdered_.push_back(hash);
    }
    // The position follows the selected match when git's answer adds matches above it.
    const auto selected = selectedHash_ ? std::find(matchingHashesOrdered_.begin(),
                                                    matchingHashesOrdered_.end(), *selectedHash_)
                                        : matchingHashesOrdered_.end();
    if (selected != matchingHashesOrdered_.end())
        currentMatchIndex_ = static_cast<int>(selected - matchingHashesOrdered_.begin());
    else if (currentMatchIndex_ >= static_cast<int>(matchingHashesOrdered_.size()))
        currentMatchIndex_ = 0;
}

int RepoGraphPaneViewModel::selectedMatchIndex() const {
    if (!selectedHash_)
        return -1;
    const auto found = std::find(matchingHashesOrdered_.begin(), matchingHashesOrdered_.end(), *selectedHash_);
    return found == matchingHashesOrdered_.end() ? -1 : static_cast<int>(found - matchingHashesOrdered_.begin());
}

void RepoGraphPaneViewModel::selectFirstMatch() {
    // A selection the search did not make is the user's, to return to when nothing matches.
    if (!searchSelection_ || selectedHash_ != searchSelection_)
        selectionBeforeSearch_ = selectedHash_;
    searchSelection_ = matchingHashesOrdered_.front();
    selectCommit(*searchSelection_, true);
}

void RepoGraphPaneViewModel::restoreUserSelection() {
    const bool searchMovedIt = searchSelection_ && selectedHash_ == searchSelection_;
    searchSelection_.reset();
    if (searchMovedIt && selectionBeforeSearch_)
        selectCommit(*selectionBeforeSearch_, true);
}

QCoro::Task<void> RepoGraphPaneViewModel::runSearch() {
    auto ticket = searches_.begin(this);
    if (searchQuery_.empty()) {
        isSearching_ = false;
        clearMatches();
        emit searchChanged();
        co_return;
    }

    matchingHashes_.clear();
    searchHits_.clear();
    matchLocally(0);
    rebuildOrderedMatches();
    // Git is still to be asked from the first keystroke on, so that the pause before it does not
    // read as "nothing matches".
    isSearching_ = searchScope_ != CommitSearchType::hash;
    emit searchChanged();
    if (matchingHashesOrdered_.empty())
        restoreUserSelection();
    else
        selectFirstMatch();
    if (searchScope_ == CommitSearchType::hash)
        co_return;

    // A newer keystroke begins a newer search, which makes this ticket stale during the pause.
    co_await QCoro::sleepFor(searchDebounce);
    if (!ticket.isCurrent())
        co_return;
    auto search = service_->searchCommits(repo_, searchQuery_, searchScope_, ticket.stopToken());
    try {
        std::vector<std::string> found = co_await std::move(search);
        if (!ticket.isCurrent())
            co_return;
        // Hits beyond the loaded commits count too; moving to one loads on to it.
        for (auto& hash : found) {
            if (matchingHashes_.insert(hash).second)
                searchHits_.push_back(std::move(hash));
        }
        rebuildOrderedMatches();
    } catch (const std::exception& error) {
        if (!ticket.isCurrent())
            co_return;
        qCDebug(lcGraph, "op=search.commits reason=%s", redactForLog(error.what()).c_str());
    }
    isSearching_ = false;
    emit searchChanged();
}

void RepoGraphPaneViewModel::moveMatch(int step) {
    const int count = static_cast<int>(matchingHashesOrdered_.size());
    if (count == 0)
        return;
    // The walk goes on from the match the user selected in the graph; a match still without a row
    // (being loaded, or gone from the history) keeps its place so that the walk passes it.
    const int selected = selectedMatchIndex();
    if (selected >= 0 && rowOf(matchingHashesOrdered_[static_cast<std::size_t>(currentMatchIndex_)]) >= 0)
        currentMatchIndex_ = selected;
    currentMatchIndex_ = ((currentMatchIndex_ + step) % count + count) % count;
    emit searchChanged();
    reveal(matchingHashesOrdered_[static_cast<std::size_t>(currentMatchIndex_)]);
}

void RepoGraphPaneViewModel::nextMatch() {
    moveMatch(1);
}

void RepoGraphPaneViewModel::previousMatch() {
    moveMatch(-1);
}

void RepoGraphPaneViewModel::clearSearch() {
    // Emptying the query here, not through setSearchQuery, starts no search of its own.
    searchQuery_.clear();
    searches_.cancel();
    clearMatches();
    isSearching_ = false;
    isSearchVisible_ = false;
    emit searchChanged();
}

void RepoGraphPaneViewModel::toggleSearch() {
    isSearchVisible_ = !isSearchVisible_;
    qCDebug(lcGraph, "op=search.toggle active=%d", isSearchVisible_ ? 1 : 0);
    emit searchChanged();
}

} // namespace orvel
