// Commits at chosen dates for parser tests. The test main fixes one author and committer date for
// every commit; these helpers set other ones for a single git run and put the fixed ones back.
#pragma once

#include "support/GitFixture.h"
#include "support/ScopedEnvironment.h"

#include <string>

namespace orvel::test {

// Sets the author and committer dates of every git run in its scope.
struct ScopedGitDates {
    explicit ScopedGitDates(const std::string& date)
        : author("GIT_AUTHOR_DATE", date), committer("GIT_COMMITTER_DATE", date) {}

    ScopedEnvironment author;
    ScopedEnvironment committer;
};

// Stages everything and commits at `date` ("2026-03-01T10:00:00+0000"); returns the new HEAD.
inline std::string commitAt(const TempRepo& repo, const std::string& message, const std::string& date) {
    ScopedGitDates dates(date);
    return repo.commitAll(message);
}

} // namespace orvel::test
