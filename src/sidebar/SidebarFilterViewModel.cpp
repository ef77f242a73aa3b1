#include "sidebar/SidebarFilterViewModel.h"

#include "core/queue/BackgroundWork.h"
#include "core/support/Log.h"
#include "settings/LocalizationManager.h"
#include "notices/ToastManager.h"

#include <functional>

namespace orvel {

namespace {

// The pass stops matching this much before its budget ends, so that handing back its finds, and a
// pool thread that a busy machine schedules late, still fit inside the budget.
constexpr std::chrono::milliseconds handOffReserve{15};

void combine(std::size_t& seed, std::size_t value) {
    seed ^= value + 0x9e3779b97f4a7c15ULL + (seed << 6) + (seed >> 2);
}

// Tests every item of `items` by the text `textOf` gives; false when the pass was stopped.
template <typename Item, typename TextOf>
bool filterList(const std::vector<Item>& items, std::vector<Item>& found, FilterMatcher& matcher,
                const std::stop_token& stop, FilterMatcher::Clock::time_point deadline, bool& timedOut,
                TextOf textOf) {
    for (const Item& item : items) {
        if (stop.stop_requested())
            return false;
        if (timedOut)
            return true;
        switch (matcher.match(textOf(item), deadline)) {
        case MatchResult::matched:
            found.push_back(item);
            break;
        case MatchResult::noMatch:
            break;
        case MatchResult::timedOut:
            timedOut = true;
            break;
        }
    }
    return true;
}

} // namespace

SidebarFilterViewModel::SidebarFilterViewModel(ToastManager& toasts, QObject* parent)
    : QObject(parent), toasts_(toasts) {
    debounceTimer_.setSingleShot(true);
    debounceTimer_.setInterval(debounce);
    connect(&debounceTimer_, &QTimer::timeout, this, [this] {
        debouncedQuery_ = searchQuery_;
        refilter();
    });
}

void SidebarFilterViewModel::setSearchQuery(const QString& query) {
    if (query == searchQuery_)
        return;
    searchQuery_ = query;
    debounceTimer_.start();
    emit queryChanged();
}

void SidebarFilterViewModel::setWordMatch(bool on) {
    if (on == isWordMatch_)
        return;
    isWordMatch_ = on;
    emit queryChanged();
    refilter();
}

void SidebarFilterViewModel::setRegexSearch(bool on) {
    if (on == isRegexSearch_)
        return;
    isRegexSearch_ = on;
    emit queryChanged();
    refilter();
}

void SidebarFilterViewModel::setSources(SidebarLists lists) {
    sources_ = std::make_shared<const SidebarLists>(std::move(lists));
    if (!isActive())
        emit resultsChanged();
    refilter();
}

// The sizes of the four lists and the first and last branch of each side: a refresh that found
// the same refs leaves it as it was, and no pass runs.
std::size_t SidebarFilterViewModel::listsFingerprint() const {
    const SidebarLists& lists = *sources_;
    std::size_t seed = 0;
    for (const std::size_t size :
         {lists.localBranches.size(), lists.remoteBranches.size(), lists.tags.size(), lists.stashes.size()})
        combine(seed, size);
    for (const auto* branches : {&lists.localBranches, &lists.remoteBranches}) {
        if (branches->empty())
            continue;
        combine(seed, std::hash<std::string>{}(branches->front().name));
        combine(seed, std::hash<std::string>{}(branches->back().name));
    }
    return seed;
}

void SidebarFilterViewModel::refilter() {
    const FilterKey key{{debouncedQuery_, isWordMatch_, isRegexSearch_}, listsFingerprint()};
    if (lastKey_ == key)
        return;
    lastKey_ = key;
    if (!isActive()) {
        passes_.cancel();
        isFiltering_ = false;
        filtered_ = {};
        emit resultsChanged();
        return;
    }
    runPass(key.query);
}

QCoro::Task<void> SidebarFilterViewModel::runPass(FilterQuery query) {
    auto ticket = passes_.begin(this);
    isFiltering_ = true;
    auto pass = runOnPool(backgroundPool(), [sources = sources_, query, stop = ticket.stopToken()] {
        return filterLists(*sources, query, stop);
    });
    std::optional<Outcome> outcome = co_await std::move(pass);
    if (!ticket.isCurrent() || !outcome)
        co_return;
    isFiltering_ = false;
    filtered_ = std::move(outcome->lists);
    if (outcome->timedOut) {
        qCDebug(lcUi, "op=sidebar.filter result=timedOut");
        toasts_.show(localized("Search timed out; try a simpler pattern"), ToastType::warning);
    }
    emit resultsChanged();
}

std::optional<SidebarFilterViewModel::Outcome> SidebarFilterViewModel::filterLists(const SidebarLists& source,
                                                                                   const FilterQuery& query,
                                                                                   std::stop_token stop) {
    const auto deadline = FilterMatcher::Clock::now() + regexBudget - handOffReserve;
    FilterMatcher matcher(query);
    Outcome outcome;
    SidebarLists& found = outcome.lists;
    bool& timedOut = outcome.timedOut;
    const auto branchName = [](const BranchEntry& branch) -> std::string_view { return branch.name; };
    const bool finished =
        filterList(source.localBranches, found.localBranches, matcher, stop, deadline, timedOut,
                   branchName) &&
        filterList(source.remoteBranches, found.remoteBranches, matcher, stop, deadline, timedOut,
                   branchName) &&
        filterList(source.tags, found.tags, matcher, stop, deadline, timedOut,
                   [](const TagEntry& tag) -> std::string_view { return tag.name; }) &&
        filterList(source.stashes, found.stashes, matcher, stop, deadline, timedOut,
                   [](const StashEntry& stash) -> std::string_view { return stash.message; });
    if (!finished)
        return std::nullopt;
    return outcome;
}

} // namespace orvel
