#include "e2e/GraphInputs.h"

#include <chrono>
#include <cstdio>

namespace orvel::bench {

GraphInputs graphInputs(const std::vector<GraphCommit>& commits) {
    GraphInputs inputs;
    inputs.nodes.reserve(commits.size());
    inputs.info.reserve(commits.size());
    for (const auto& commit : commits) {
        inputs.nodes.push_back({commit.hash, commit.parentHashes});
        const std::chrono::year_month_day day{std::chrono::floor<std::chrono::days>(commit.date)};
        char date[16];
        std::snprintf(date, sizeof date, "%04d-%02u-%02u", static_cast<int>(day.year()),
                      static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
        inputs.info.emplace(
            commit.hash,
            CommitInfo{commit.subject, commit.authors.empty() ? "" : commit.authors[0].name, date});
    }
    return inputs;
}

} // namespace orvel::bench
