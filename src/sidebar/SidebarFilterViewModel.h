// The sidebar's search: a query typed into the filter field, settled after a pause in typing, tested
// against every branch, tag and stash off the GUI thread as plain text, whole words or a regular
// expression. A pass whose regular expression runs out of time keeps what it found so far and
// says so once.
#pragma once

#include "core/support/LoadGeneration.h"
#include "sidebar/FilterMatcher.h"
#include "sidebar/SidebarLists.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <QCoro/QCoroTask>

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <stop_token>

namespace orvel {

class ToastManager;

class SidebarFilterViewModel final : public QObject {
    Q_OBJECT

  public:
    static constexpr std::chrono::milliseconds debounce{200};
    // How long one pass of a regular expression may take, all names together.
    static constexpr std::chrono::milliseconds regexBudget{100};

    struct Outcome {
        SidebarLists lists;
        bool timedOut = false;
    };

    explicit SidebarFilterViewModel(ToastManager& toasts, QObject* parent = nullptr);

    const QString& searchQuery() const { return searchQuery_; }
    const QString& debouncedQuery() const { return debouncedQuery_; }
    bool isWordMatch() const { return isWordMatch_; }
    bool isRegexSearch() const { return isRegexSearch_; }
    // A query is in force: the lists shown are the filtered ones.
    bool isActive() const { return !debouncedQuery_.isEmpty(); }
    // A pass is under way; its finds have not come yet.
    bool isFiltering() const { return isFiltering_; }
    // The lists to show: the sources as they stand without a query, else the last pass's finds.
    const SidebarLists& results() const { return isActive() ? filtered_ : *sources_; }

    // The query takes effect after `debounce` without another change; the switches at once.
    void setSearchQuery(const QString& query);
    void setWordMatch(bool on);
    void setRegexSearch(bool on);
    void setSources(SidebarLists lists);

    // One pass over `source`, as the background runs it: every item tested in order, the stop
    // token read before each; a stopped pass answers nothing. A regular expression that runs past
    // the pass's budget ends the pass with what it found before.
    static std::optional<Outcome> filterLists(const SidebarLists& source, const FilterQuery& query,
                                              std::stop_token stop);

  signals:
    void queryChanged();
    void resultsChanged();

  private:
    // What decides whether a pass must run again.
    struct FilterKey {
        FilterQuery query;
        std::size_t listsFingerprint = 0;
        bool operator==(const FilterKey&) const = default;
    };

    std::size_t listsFingerprint() const;
    void refilter();
    QCoro::Task<void> runPass(FilterQuery query);

    ToastManager& toasts_;
    QString searchQuery_;
    QString debouncedQuery_;
    bool isWordMatch_ = false;
    bool isRegexSearch_ = false;
    std::shared_ptr<const SidebarLists> sources_ = std::make_shared<SidebarLists>();
    SidebarLists filtered_;
    std::optional<FilterKey> lastKey_;
    bool isFiltering_ = false;
    QTimer debounceTimer_;
    LoadGeneration passes_;
};

} // namespace orvel
