// The sidebar filter's test of one name against the query: plain text ignoring case, a whole path
// component ("feature" matches "feature/x", not "features/x"), or a regular expression. A user's
// regular expression can take unbounded time, so a match stops at a deadline and says so.
#pragma once

#include <QString>

#include <chrono>
#include <cstddef>
#include <memory>
#include <string_view>

namespace orvel {

enum class MatchResult { matched, noMatch, timedOut };

struct FilterQuery {
    QString text;
    bool wordMatch = false;
    bool useRegex = false;

    bool operator==(const FilterQuery&) const = default;
};

// Compiles the query once for a whole pass. Not shared between threads: a match keeps its
// scratch space in the matcher.
class FilterMatcher {
  public:
    using Clock = std::chrono::steady_clock;

    // A query this long or longer matches nothing; a name is tested on this many bytes at most.
    static constexpr qsizetype refusedQueryLength = 257;
    static constexpr std::size_t maxTextBytes = 1024;

    explicit FilterMatcher(const FilterQuery& query);
    ~FilterMatcher();
    FilterMatcher(const FilterMatcher&) = delete;
    FilterMatcher& operator=(const FilterMatcher&) = delete;

    // `text` is git's bytes. Only a regular expression can time out: it is stopped once the clock
    // passes `deadline`, and by the regular-expression engine's own limits on backtracking.
    MatchResult match(std::string_view text, Clock::time_point deadline);

  private:
    struct Regex;

    FilterQuery query_;
    QString lowerQuery_;
    bool refused_ = false;
    std::unique_ptr<Regex> regex_; // null when the pattern does not compile
};

} // namespace orvel
