// What real repositories cannot show of staging and committing: every path stands behind "--",
// unstaging falls back to removing from the index when "reset" cannot run, and commits and tags
// are signed as the configuration says (the test machine has no key to sign with).
#include "RealGitService.h"

#include "core/commands/SigningSetting.h"
#include "core/commands/StagingCommands.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "support/Await.h"
#include "support/RecordingExecutor.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

using namespace orvel;
using Arguments = GitExecutorProtocol::Arguments;

namespace {

std::string historyRecord(const std::string& subject) {
    using namespace std::string_literals;
    return "\x01"s + std::string(40, 'c') + "\0ccccccc\0\0A\0a@x\0"s + "2026-01-01T00:00:00Z\0A\0a@x\0"s +
           "2026-01-01T00:00:00Z\0"s + subject + "\0\0HEAD -> main\0N\0\n"s;
}

} // namespace

TEST(SigningLookUp, CommitAndTagSigningCountOnlyTrueInAnyCaseAndSpacing) {
    for (const std::string_view key : {commitSigningKey, tagSigningKey}) {
        SCOPED_TRACE(key);
        test::RecordingExecutor git;
        for (const auto& [answer, enabled] : std::vector<std::pair<std::string, bool>>{{" True \n", true},
                                                                                       {"true\n", true},
                                                                                       {"TRUE", true},
                                                                                       {"", false},
                                                                                       {"\n", false},
                                                                                       {"false\n", false},
                                                                                       {"yes\n", false},
                                                                                       {"1\n", false}}) {
            git.reply(answer);
            EXPECT_EQ(signingEnabled(git, "/r", key), enabled) << answer;
        }
        git.fail("config");
        EXPECT_FALSE(signingEnabled(git, "/r", key));
        EXPECT_EQ(git.argumentLists(), std::vector<Arguments>(9, Arguments{"config", std::string(key)}));
    }
}

TEST(CommitSigning, ServiceAsksBeforeCommitAndAmendThenReadsTheCommitBack) {
    auto executor = std::make_shared<test::RecordingExecutor>();
    NativeGitService service(executor, std::make_shared<GitOpRunner>(2));
    service.setUndoLimits({0, 0}); // only the commit's own runs are recorded
    const RepoEntry repo = test::RealGitService::repoAt("/r");
    for (std::string answer : {std::string("true\n"), std::string(), historyRecord("signed")})
        executor->reply(std::move(answer));
    const CommitEntry made = test::await(service.commit(repo, "signed"));
    EXPECT_EQ(made.subject, "signed");
    EXPECT_EQ(made.refs, std::vector<std::string>{"HEAD -> main"});
    for (std::string answer : {std::string("true\n"), std::string(), historyRecord("amended")})
        executor->reply(std::move(answer));
    EXPECT_EQ(test::await(service.amendCommit(repo, "fix")).subject, "amended");
    const auto lists = executor->argumentLists();
    ASSERT_EQ(lists.size(), 6u);
    EXPECT_EQ(lists[0], (Arguments{"config", "commit.gpgsign"}));
    EXPECT_EQ(lists[1], (Arguments{"commit", "-S", "-m", "signed"}));
    EXPECT_EQ(lists[4], (Arguments{"commit", "--amend", "-S", "-m", "fix"}));
    EXPECT_EQ(executor->calls()[0].repoPath, "/r");
}

TEST(CommitArguments, AnEmptyReadBackIsAParseFailure) {
    test::RecordingExecutor git;
    EXPECT_STREQ(test::serviceError([&] { StagingCommands::commit(git, "/r", "m", false); }).what(),
                 "Failed to parse git commit: no commit returned from log -1");
    EXPECT_EQ(test::serviceError([&] { StagingCommands::amendCommit(git, "/r", "m", false); }).command(),
              "commit --amend");
}
