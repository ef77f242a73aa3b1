// The message git prepares when a merge, a pick or a revert stops: read from real stops, then the
// same text cut and bent. A linked worktree's stop is read with the worktree's opening.
#include "RealGitService.h"

#include "core/parsers/PreparedMessageParser.h"
#include "support/Await.h"

#include <gtest/gtest.h>

#include <functional>

using namespace orvel;
using test::TempRepo;

TEST(PreparedMessage, RealStopsGiveGitsMessageWithoutItsComments) {
    test::RealGitService real;
    const struct {
        const char* name;
        std::vector<std::string> stop;
        std::function<std::string(const TempRepo&)> expected;
    } cases[] = {
        {"merge", {"merge", "topic"}, [](const TempRepo&) { return "Merge branch 'topic'"; }},
        {"pick", {"cherry-pick", "topic"}, [](const TempRepo&) { return "topic changes file"; }},
        {"revert",
         {"revert", "--no-edit", "main~1"},
         [](const TempRepo& repo) {
             return "Revert \"base\"\n\nThis reverts commit " + repo.rev("main~1") + ".";
         }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        TempRepo repo;
        repo.divergeOnOneFile();
        const RepoEntry entry = test::await(real.service.open(repo.path()));
        EXPECT_EQ(test::await(real.service.preparedCommitMessage(entry)), std::nullopt);
        ASSERT_NE(repo.gitAllowingFailure(c.stop).exitCode, 0);
        // The file holds git's list of conflicts as comments; the message has none of it.
        ASSERT_NE(repo.read(".git/MERGE_MSG").find("# Conflicts:"), std::string::npos);
        EXPECT_EQ(test::await(real.service.preparedCommitMessage(entry)), c.expected(repo));
    }
}

TEST(PreparedMessage, BentTextKeepsOnlyTheMessage) {
    const struct {
        std::string text;
        std::optional<std::string> message;
    } cases[] = {
        {"", std::nullopt},
        {"# Conflicts:\n#\tfile\n", std::nullopt},
        {"\n\n  \n", std::nullopt},
        {"Subject", "Subject"},
        {"Subject  \r\n\r\nBody\t\r\n# comment\r\n", "Subject\n\nBody"},
        {"\n# leading comment\n\nSubject\n\n# between\nBody\n#", "Subject\n\nBody"},
        {"Keep a # inside\n #not at the start\n", "Keep a # inside\n #not at the start"},
        {"\n  #indented\n", "  #indented"},
        {std::string("Sub\0ject\n", 9), std::string("Sub\0ject", 8)},
    };
    for (const auto& c : cases)
        EXPECT_EQ(GitOutputParser::parsePreparedMessage(c.text), c.message) << c.text;
}
