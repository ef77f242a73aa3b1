// Commits at chosen dates for parser tests. The test main fixes one author and committer date for
// every commit; these helpers set other ones for a single git run and put the fixed ones back.
#pragma once

#include "support/GitFixture.h"

#include <cstdlib>
#include <string>

namespace orvel::test {

// Sets the author and committer dates of every git run in its scope.
class ScopedGitDates {
  public:
    explicit ScopedGitDates(const std::string& date)
        : author_(valueOf("GIT_AUTHOR_DATE")), committer_(valueOf("GIT_COMMITTER_DATE")) {
        ::setenv("GIT_AUTHOR_DATE", date.c_str(), 1);
        ::setenv("GIT_COMMITTER_DATE", date.c_str(), 1);
    }
    ~ScopedGitDates() {
        restore("GIT_AUTHOR_DATE", author_);
        restore("GIT_COMMITTER_DATE", committer_);
    }
    ScopedGitDates(const ScopedGitDates&) = delete;
    ScopedGitDates& operator=(const ScopedGitDates&) = delete;

  private:
    static std::string valueOf(const char* key) {
        const char* value = std::getenv(key);
        return value ? value : "";
    }
    static void restore(const char* key, const std::string& value) {
        if (value.empty())
            ::unsetenv(key);
        else
            ::setenv(key, value.c_str(), 1);
    }

    std::string author_;
    std::string committer_;
};

// Stages everything and commits at `date` ("2026-03-01T10:00:00+0000"); returns the new HEAD.
inline std::string commitAt(const TempRepo& repo, const std::string& message, const std::string& date) {
    ScopedGitDates dates(date);
    return repo.commitAll(message);
}

} // namespace orvel::test
