// Reading `git remote -v`: fetch and push lines pair up by name, and lines that don't fit are
// dropped. The inputs are what git 2.39 printed for real remotes.
#include "core/parsers/RemoteParser.h"

#include <gtest/gtest.h>

using namespace orvel;
using GitOutputParser::parseRemotes;

TEST(RemoteParser, FetchAndPushLinesPairUpWithBlanksInUrlsAndSortedNames) {
    const auto remotes = parseRemotes("origin\t/srv/origin.git (fetch)\n"
                                      "origin\t/srv/origin.git (push)\n"
                                      "pushonly2\t\n"
                                      "pushonly2\t/p.git (push)\n"
                                      "upstream\tfile:///srv/up stream.git (fetch)\n"
                                      "upstream\tssh://example.invalid/up.git (push)\n");
    // A remote with only a push URL configured prints a fetch line without a direction: left out.
    ASSERT_EQ(remotes.size(), 2u);
    EXPECT_EQ(remotes[0], (RemoteEntry{"origin", "/srv/origin.git", "/srv/origin.git"}));
    EXPECT_EQ(remotes[1],
              (RemoteEntry{"upstream", "file:///srv/up stream.git", "ssh://example.invalid/up.git"}));
}

TEST(RemoteParser, MissingPushLineFallsBackToFetchUrlAndOrderOfInputDoesNotMatter) {
    const auto remotes = parseRemotes("zeta\t/z (fetch)\nalpha\t/a (push)\nalpha\t/a-fetch (fetch)\n");
    ASSERT_EQ(remotes.size(), 2u);
    EXPECT_EQ(remotes[0], (RemoteEntry{"alpha", "/a-fetch", "/a"}));
    EXPECT_EQ(remotes[1], (RemoteEntry{"zeta", "/z", "/z"}));
}

TEST(RemoteParser, LastLineOfANameAndDirectionWins) {
    const auto remotes = parseRemotes("o\t/one (fetch)\no\t/two (fetch)\no\t/p1 (push)\no\t/p2 (push)\n");
    ASSERT_EQ(remotes.size(), 1u);
    EXPECT_EQ(remotes[0], (RemoteEntry{"o", "/two", "/p2"}));
}

TEST(RemoteParser, MalformedLinesAreDropped) {
    EXPECT_TRUE(parseRemotes("").empty());
    EXPECT_TRUE(parseRemotes("\n\n").empty());
    EXPECT_TRUE(parseRemotes("origin /srv/origin.git (fetch)\n").empty());
    EXPECT_TRUE(parseRemotes("origin\t/srv/origin.git (pull)\n").empty());
    EXPECT_TRUE(parseRemotes("only\t/x (push)\n").empty());
    // Only the first tab splits: the rest of the line, tabs and all, is the url.
    const auto remotes = parseRemotes("a\tb\tc (fetch)");
    ASSERT_EQ(remotes.size(), 1u);
    EXPECT_EQ(remotes[0].fetchURL, "b\tc");
}
