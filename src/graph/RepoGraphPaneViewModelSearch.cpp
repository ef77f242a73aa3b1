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

QCoro::Task<void> RepoGraphPaneViewModel::runSearch() {
    auto ticket = searches_.begin(this);
    isSearching_ = false;
    if (searchQuery_.empty()) {
        clearMatches();
        emit searchChanged();
        co_return;
    }

    matchingHashes_.clear();
    searchHits_.clear();
    matchLocally(0);
    rebuildOrderedMatches();
    emit searchChanged();
    if (!matchingHashesOrdered_.empty())
        selectCommit(matchingHashesOrdered_.front(), true);
    if (searchScope_ == CommitSearchType::hash)
        co_return;

    // A newer keystroke begins a newer search, which makes this ticket stale during the pause.
    co_await QCoro::sleepFor(searchDebounce);
    if (!ticket.isCurrent())
        co_return;
    isSearching_ = true;
    emit searchChanged();
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
