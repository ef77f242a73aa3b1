// What real repositories cannot show, through the service and its commands over a recording
// executor: signing as the configuration says (the test machine has no key to sign with), a commit
// that cannot be read back, a blank blob hash or a negative parent that runs nothing, how the
// conflict recovery treats errors of its own query, and a failed remote look-up that is not kept.
#include "RealGitService.h"

#include "core/commands/BlobCommands.h"
#include "core/commands/HistoryEditCommands.h"
#include "core/commands/SigningSetting.h"
#include "core/commands/StagingCommands.h"
#include "support/Await.h"
#include "support/RecordingExecutor.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace orvel;
using namespace std::string_literals;
using Arguments = GitExecutorProtocol::Arguments;
using Lists = std::vector<Arguments>;

namespace {

class RecordedService : public ::testing::Test {
  protected:
    std::shared_ptr<test::RecordingExecutor> git = std::make_shared<test::RecordingExecutor>();
    NativeGitService service{git, std::make_shared<GitOpRunner>(2)};
    const RepoEntry repo = test::RealGitService::repoAt("/r");
};

std::string historyRecord(const std::string& subject) {
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

TEST_F(RecordedService, CommitAndAmendAskForSigningFirstThenReadTheCommitBack) {
    service.setUndoLimits({0, 0}); // only the commit's own runs are recorded
    for (std::string answer : {"true\n"s, ""s, historyRecord("signed")})
        git->reply(std::move(answer));
    const CommitEntry made = test::await(service.commit(repo, "signed"));
    EXPECT_EQ(made.subject, "signed");
    EXPECT_EQ(made.refs, std::vector<std::string>{"HEAD -> main"});
    for (std::string answer : {"true\n"s, ""s, historyRecord("amended")})
        git->reply(std::move(answer));
    EXPECT_EQ(test::await(service.amendCommit(repo, "fix")).subject, "amended");
    const auto lists = git->argumentLists();
    ASSERT_EQ(lists.size(), 6u);
    EXPECT_EQ(lists[0], (Arguments{"config", "commit.gpgsign"}));
    EXPECT_EQ(lists[1], (Arguments{"commit", "-S", "-m", "signed"}));
    EXPECT_EQ(lists[4], (Arguments{"commit", "--amend", "-S", "-m", "fix"}));
    EXPECT_EQ(git->calls()[0].repoPath, "/r");

    // An empty read-back is a parse failure.
    EXPECT_STREQ(test::serviceError([&] { StagingCommands::commit(*git, "/r", "m", false); }).what(),
                 "Failed to parse git commit: no commit returned from log -1");
    EXPECT_EQ(test::serviceError([&] { StagingCommands::amendCommit(*git, "/r", "m", false); }).command(),
              "commit --amend");
}

TEST_F(RecordedService, TagSigningFollowsTheConfiguration) {
    git->reply("true\n");
    test::await(service.createTag(repo, "v1", std::nullopt, "m"s));
    git->reply("");
    test::await(service.createTag(repo, "v2", "abc"s, "m"s));
    EXPECT_EQ(git->argumentLists(), (Lists{{"config", "tag.gpgsign"},
                                           {"tag", "-s", "-m", "m", "--", "v1"},
                                           {"config", "tag.gpgsign"},
                                           {"tag", "-a", "-m", "m", "--", "v2", "abc"}}));
}

TEST_F(RecordedService, ABlankBlobHashOrANegativeParentRunsNothing) {
    const GitServiceError empty = test::serviceError([&] { test::await(service.readBlob(repo, "  ")); });
    EXPECT_EQ(empty.kind(), GitServiceError::Kind::commandFailed);
    EXPECT_STREQ(empty.what(), "git cat-file blob failed: empty hash");
    EXPECT_THROW(test::await(service.diff(repo, DiffContext::commit("c", -1), std::nullopt)),
                 std::invalid_argument);
    EXPECT_TRUE(git->calls().empty());

    EXPECT_EQ(BlobCommands::workTreeFile("/r", "a/b.txt"), "/r/a/b.txt");
    EXPECT_EQ(BlobCommands::workTreeFile("/r/", "/a b"), "/r/a b");
    EXPECT_EQ(BlobCommands::workTreeFile("/", "-x"), "/-x");
}

TEST_F(RecordedService, AFailingConflictQueryWinsAndForeignErrorsAskNothing) {
    git->fail("revert");
    git->fail("status");
    EXPECT_EQ(test::serviceError([&] { HistoryEditCommands::revert(*git, "/r", "abc"); }).command(),
              "status");
    git->fail(std::make_exception_ptr(std::runtime_error("spawn failed")));
    EXPECT_THROW(HistoryEditCommands::cherryPick(*git, "/r", "abc"), std::runtime_error);
    EXPECT_EQ(git->argumentLists(), (Lists{{"revert", "--no-edit", "abc"},
                                           {"status", "--porcelain=v2", "-uall", "-z"},
                                           {"cherry-pick", "abc"}}));
}

// The remote names tell remote branches from local ones in the graph; the cache itself is checked
// against real repositories.
TEST_F(RecordedService, AFailedRemoteLookUpFailsTheGraphLoadAndIsNotKept) {
    git->fail("remote");
    EXPECT_THROW(test::await(service.commitGraph(repo, 10)), GitServiceError);
    test::await(service.commitGraph(repo, 10));
    EXPECT_EQ(git->argumentLists().size(), 3u); // remote (failed), remote, log
    EXPECT_EQ(git->argumentLists()[1], Arguments{"remote"});
}
