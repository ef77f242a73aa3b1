// Long histories for the paging tests, imported by `git fast-import` in one run: several
// lines of development with frequent merges and a few root commits, at fixed dates, the same at
// every run.
#pragma once

#include "support/GitFixture.h"

#include <string>

namespace orvel::test {

struct GeneratedHistoryShape {
    int commits = 0;
    int roots = 1;
    // The checked-out "main" stops at this commit (counted from 0, oldest first); "later" goes on
    // from it to the newest commit of its line, so `--all --topo-order` lists main's tip far down.
    // Negative: main is the newest line.
    int mainStopsAt = -1;
    // Subjects of about a hundred characters, as real projects write, with a body.
    bool longSubjects = false;
    // Tags in three naming schemes ("v<a>.<b>.<c>", "release-<year>.<n>", "build_<n>") spread over
    // the history, and branches "feature/topic-<k>" at older commits.
    int extraTags = 0;
    int extraBranches = 0;
};

// Fills the empty repository `repo` and checks "main" out. Branches "line1".."line3" end the
// other lines; tag "t<n>" marks every hundredth commit n; commit n's subject is
// "commit <n> of the history".
void importHistory(const TempRepo& repo, const GeneratedHistoryShape& shape);

} // namespace orvel::test
