// The commit search's git runs: the exact argument lists of every scope, and one search of each
// scope git answers over a real repository, where option-like and pattern-like queries are taken
// literally.
#include "core/commands/SearchCommands.h"
#include "core/RealGitService.h"
#include "core/support/Text.h"
#include "support/Await.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace orvel;
using Lists = std::vector<std::vector<std::string>>;

TEST(SearchCommands, ArgumentListsByScope) {
    const std::string format(SearchCommands::hashFormat);
    struct Case {
        CommitSearchType scope;
        std::string query;
        Lists expected;
    };
    const std::vector<Case> cases{
        {CommitSearchType::message, "Fix", {{"log", "--exclude=refs/orvel/*", "--all", "--grep=Fix", "-i", format}}},
        {CommitSearchType::author, "-ada", {{"log", "--exclude=refs/orvel/*", "--all", "--author=-ada", "-i", format}}},
        {CommitSearchType::diff,
         "a.*b",
         {{"log", "--exclude=refs/orvel/*", "--all", "-S", "a.*b", "--fixed-strings", format}}},
        {CommitSearchType::filePath, "--all", {{"log", "--exclude=refs/orvel/*", "--all", format, "--", "--all"}}},
        {CommitSearchType::all,
         "x",
         {{"log", "--exclude=refs/orvel/*", "--all", "--grep=x", "-i", format},
          {"log", "--exclude=refs/orvel/*", "--all", "--author=x", "-i", format}}},
        {CommitSearchType::hash, "abc", {}},
        {CommitSearchType::ref, "main", {}},
        {CommitSearchType::message, "", {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(SearchCommands::searchCommandLines(c.query, c.scope), c.expected) << c.query;
}

class SearchRepositoryTest : public test::RepositoryTest {
  protected:
    std::vector<std::string> subjectsFound(const std::string& query, CommitSearchType scope) {
        std::vector<std::string> subjects;
        for (const auto& hash : test::await(real.service.searchCommits(entry(), query, scope)))
            subjects.push_back(trimmed(repo.git({"log", "-1", "--format=%s", hash})));
        std::sort(subjects.begin(), subjects.end());
        return subjects;
    }
};

TEST_F(SearchRepositoryTest, EachScopeFindsWhatGitFinds) {
    repo.write("-odd name.txt", "value = a.*b\n");
    repo.commitAll("Add the odd file");
    repo.write("plain.txt", "aXXb\n");
    repo.commitAll("Fix the PLAIN file");
    repo.git(
        {"commit", "--allow-empty", "-m", "Ada fixes nothing", "--author=Grace <grace@example.invalid>"});

    EXPECT_EQ(subjectsFound("fix", CommitSearchType::message),
              (std::vector<std::string>{"Ada fixes nothing", "Fix the PLAIN file"}));
    EXPECT_EQ(subjectsFound("GRACE", CommitSearchType::author),
              std::vector<std::string>{"Ada fixes nothing"});
    EXPECT_EQ(subjectsFound("a.*b", CommitSearchType::diff), std::vector<std::string>{"Add the odd file"});
    EXPECT_EQ(subjectsFound("-odd name.txt", CommitSearchType::filePath),
              std::vector<std::string>{"Add the odd file"});
    // Found by both the message and the author search, counted once.
    EXPECT_EQ(subjectsFound("grace", CommitSearchType::all), std::vector<std::string>{"Ada fixes nothing"});
    EXPECT_EQ(subjectsFound("Ada", CommitSearchType::all), std::vector<std::string>{"Ada fixes nothing"});
}
