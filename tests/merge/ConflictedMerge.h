// A repository in the middle of a merge that conflicts on one file, made by real git, and the
// three versions of that file used by the merge editor's tests; operations stopped on a conflict.
#pragma once

#include "support/GitFixture.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace orvel::test {

namespace conflict_texts {
inline const std::string baseText =
    "header\nshared 1\nvalue = 1\nshared 2\nshared 3\nshared 4\nshared 5\nshared 6\nlast = base\ntrailer\n";
inline const std::string oursText =
    "header\nshared 1\nvalue = 2\nextra ours\nshared 2\nshared 3\nshared 4\nshared "
    "5\nshared 6\nlast = ours\ntrailer\n";
inline const std::string theirsText =
    "header\nshared 1\nvalue = 3\nshared 2\nshared 3\nshared 4\nshared 5\nshared "
    "6\nlast = 'theirs' $(x)\ntrailer\n";

} // namespace conflict_texts

// A repository in the middle of a merge of "other" into "main" that conflicts on "file.txt".
struct ConflictedMerge {
    TempRepo repo;
    std::string text; // the working-tree file with git's markers

    ConflictedMerge(const std::string& base, const std::string& ours, const std::string& theirs, bool diff3) {
        repo.write("file.txt", base);
        repo.commitAll("base");
        repo.git({"checkout", "-q", "-b", "other"});
        repo.write("file.txt", theirs);
        repo.commitAll("theirs");
        repo.git({"checkout", "-q", "main"});
        repo.write("file.txt", ours);
        repo.commitAll("ours");
        const auto merge = repo.gitAllowingFailure(
            {"-c", std::string("merge.conflictStyle=") + (diff3 ? "diff3" : "merge"), "merge", "other"});
        EXPECT_NE(merge.exitCode, 0) << "the merge was expected to conflict";
        text = repo.read("file.txt");
    }

    std::string stage(int number) const {
        return repo.git({"show", ":" + std::to_string(number) + ":file.txt"});
    }
};

// Stops `repo`, as TempRepo::divergeOnOneFile leaves it, on the conflict in "file" of `operation`:
// "merge", "cherry-pick" or "revert" on "main", or "rebase" of "topic" onto "main".
inline void stopOnConflict(const TempRepo& repo, std::string_view operation) {
    if (operation == "rebase") {
        repo.git({"checkout", "-q", "topic"});
        repo.gitAllowingFailure({"rebase", "main"});
    } else if (operation == "revert") {
        repo.write("file", "main again\n");
        repo.commitAll("main changes file again");
        repo.gitAllowingFailure({"revert", "--no-edit", "HEAD~1"});
    } else {
        repo.gitAllowingFailure({std::string(operation), "topic"});
    }
}

} // namespace orvel::test
