// Reading `git --version`: the version is the last word of git's line; what another program says
// to "--version" is no version at all.
#include "core/parsers/GitVersionParser.h"
#include "support/GitFixture.h"

#include <gtest/gtest.h>

#include <optional>

using namespace orvel;
using GitOutputParser::parseGitVersion;

TEST(GitVersionParser, TakesTheLastWordOfGitsLineAndNothingFromOtherPrograms) {
    const struct {
        std::string output;
        std::optional<std::string> version;
    } cases[] = {
        {test::git(".", {"--version"}), "2.39.5"},
        {"git version 2.39.5\n", "2.39.5"},
        {"  git version 2.45.1 (vendor build)\r\n", "build)"},
        {"git version 2.39.5\nsecond line\n", "2.39.5"},
        {"git version\n", std::nullopt},
        {"git version \n", std::nullopt},
        {"ls (GNU coreutils) 9.1\nCopyright\n", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.output);
        EXPECT_EQ(parseGitVersion(c.output), c.version);
    }
}
