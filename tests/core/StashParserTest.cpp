// The stash list parser over real `git stash list` output: stashes made on a branch, with
// untracked files, in detached state and stored by hand, then the same output cut and bent.
#include "DatedCommits.h"

#include "core/parsers/StashParser.h"
#include "core/support/Text.h"

#include <gtest/gtest.h>

using namespace orvel;
using namespace orvel::test;
using namespace std::chrono;
using namespace std::string_literals;

namespace {

std::string stashListing(const TempRepo& repo) {
    return repo.git({"stash", "list", std::string(GitOutputParser::stashListFormat)});
}

std::string shortHash(const TempRepo& repo) {
    return trimmed(repo.git({"rev-parse", "--short", "HEAD"}));
}

void stashAt(const TempRepo& repo, const std::string& date, std::vector<std::string> options = {}) {
    ScopedGitDates dates(date);
    std::vector<std::string> arguments{"stash", "push", "-q"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    repo.git(arguments);
}

// Four stashes, oldest first: on main, stored by hand with its own message, on "feature/x" with
// untracked files and a message holding ": ", and in detached state.
class StashListing : public ::testing::Test {
  protected:
    void SetUp() override {
        repo.write("tracked.txt", "one\n");
        repo.commitAll("base");
        mainShort = shortHash(repo);

        repo.write("tracked.txt", "two\n");
        stashAt(repo, "2026-04-01T09:00:00+0000");

        repo.write("tracked.txt", "three\n");
        {
            ScopedGitDates dates("2026-04-02T09:00:00+0100");
            const std::string created = trimmed(repo.git({"stash", "create"}));
            repo.git({"stash", "store", "-q", "-m", "handmade stash", created});
        }
        repo.git({"checkout", "-q", "--", "tracked.txt"});

        repo.git({"checkout", "-q", "-b", "feature/x"});
        repo.write("tracked.txt", "feature\n");
        repo.commitAll("feature work");
        repo.write("tracked.txt", "four\n");
        repo.write("new-file.txt", "untracked\n");
        stashAt(repo, "2026-04-03T09:00:00-0230", {"-u", "-m", "fix: the thing"});

        repo.git({"checkout", "-q", "--detach", "main"});
        detachedShort = shortHash(repo);
        repo.write("tracked.txt", "five\n");
        stashAt(repo, "2026-04-04T09:00:00+0000");
    }

    TempRepo repo;
    std::string mainShort;
    std::string detachedShort;
};

} // namespace

TEST_F(StashListing, ReadsEveryStashNewestFirst) {
    const auto stashes = GitOutputParser::parseStashList(stashListing(repo));
    ASSERT_EQ(stashes.size(), 4u);
    for (int n = 0; n < 4; ++n) {
        const std::string selector = "stash@{" + std::to_string(n) + "}";
        EXPECT_EQ(stashes[n].index, n);
        EXPECT_EQ(stashes[n].hash, repo.rev(selector));
        EXPECT_EQ(stashes[n].baseHash, repo.rev(selector + "^1"));
        EXPECT_FALSE(stashes[n].includesIndex);
    }

    const StashEntry& detached = stashes[0];
    EXPECT_EQ(detached.message, "WIP on (no branch): " + detachedShort + " base");
    EXPECT_EQ(detached.branchName, "(no branch)");
    EXPECT_FALSE(detached.includesUntracked);
    EXPECT_EQ(detached.date, sys_days{2026y / April / 4} + hours(9));

    const StashEntry& feature = stashes[1];
    EXPECT_EQ(feature.message, "On feature/x: fix: the thing");
    EXPECT_EQ(feature.branchName, "feature/x");
    EXPECT_TRUE(feature.includesUntracked);
    EXPECT_EQ(feature.baseHash, repo.rev("feature/x"));
    EXPECT_EQ(feature.date, sys_days{2026y / April / 3} + hours(11) + minutes(30));

    const StashEntry& handmade = stashes[2];
    EXPECT_EQ(handmade.message, "handmade stash");
    EXPECT_EQ(handmade.branchName, std::nullopt);
    EXPECT_FALSE(handmade.includesUntracked);
    EXPECT_EQ(handmade.date, sys_days{2026y / April / 2} + hours(8));

    const StashEntry& onMain = stashes[3];
    EXPECT_EQ(onMain.message, "WIP on main: " + mainShort + " base");
    EXPECT_EQ(onMain.branchName, "main");
    EXPECT_EQ(onMain.date, sys_days{2026y / April / 1} + hours(9));
}

TEST(StashListFields, SelectorsMessagesAndParentsOutOfTheOrdinary) {
    const auto one = [](const std::string& line) {
        const auto parsed = GitOutputParser::parseStashList(line + "\n");
        EXPECT_EQ(parsed.size(), 1u) << line;
        return parsed.empty() ? StashEntry{} : parsed.front();
    };
    const auto line = [](const std::string& selector, const std::string& parents, const std::string& message,
                         const std::string& date = "2026-04-01T09:00:00+00:00") {
        return selector + "\0"s + "abc" + "\0"s + parents + "\0"s + message + "\0"s + date;
    };
    EXPECT_EQ(one(line("stash@{12}", "p1 p2", "On main: quick fix")).index, 12);
    EXPECT_EQ(one(line("refs/stash", "p1 p2", "On main: quick fix")).index, 0);
    EXPECT_EQ(one(line("stash@{}", "p1 p2", "x")).index, 0);
    EXPECT_EQ(one(line("stash@{-}", "p1 p2", "x")).index, 0);
    EXPECT_EQ(one(line("stash@}3{", "p1 p2", "x")).index, 0);

    EXPECT_EQ(one(line("stash@{0}", "p1 p2", "WIP on feature/x: abc msg")).branchName, "feature/x");
    EXPECT_EQ(one(line("stash@{0}", "p1 p2", "On main")).branchName, std::nullopt);
    EXPECT_EQ(one(line("stash@{0}", "p1 p2", "on main: lower case")).branchName, std::nullopt);

    const StashEntry spaced = one(line("stash@{0}", "  p1  p2   p3 ", "x"));
    EXPECT_EQ(spaced.baseHash, "p1");
    EXPECT_TRUE(spaced.includesUntracked);
    const StashEntry orphan = one(line("stash@{0}", "", "x"));
    EXPECT_EQ(orphan.baseHash, "");
    EXPECT_FALSE(orphan.includesUntracked);

    EXPECT_EQ(one(line("stash@{0}", "p1 p2", "x", "last tuesday")).date, distantPast);
    EXPECT_EQ(one(line("stash@{0}", "p1 p2", "x", "")).date, distantPast);

    EXPECT_TRUE(GitOutputParser::parseStashList("stash@{0}\0abc\0p1 p2\0no date"s).empty());
    EXPECT_EQ(GitOutputParser::parseStashList("stash@{0}\0abc\0p1\0m\0d\0extra\nbroken\n"s).size(), 1u);
}
