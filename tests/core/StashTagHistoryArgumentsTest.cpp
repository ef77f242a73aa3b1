// What real repositories cannot show of the tag, history-editing and blob commands: a blank blob
// hash runs nothing, signed tags, and how the conflict recovery treats errors of its own query.
#include "core/commands/BlobCommands.h"
#include "core/commands/HistoryEditCommands.h"
#include "core/commands/TagCommands.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "support/Await.h"
#include "support/RecordingExecutor.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

using namespace orvel;
using namespace std::string_literals;
using Arguments = GitExecutorProtocol::Arguments;
using Lists = std::vector<Arguments>;

TEST(UserTextArguments, ABlankBlobHashFailsWithoutRunningGit) {
    auto executor = std::make_shared<test::RecordingExecutor>();
    NativeGitService service(executor, std::make_shared<GitOpRunner>(2));
    RepoEntry repo;
    repo.path = "/r";
    const GitServiceError empty = test::serviceError([&] { test::await(service.readBlob(repo, "  ")); });
    EXPECT_EQ(empty.kind(), GitServiceError::Kind::commandFailed);
    EXPECT_STREQ(empty.what(), "git cat-file blob failed: empty hash");
    EXPECT_TRUE(executor->argumentLists().empty());
}

// Signing needs a key, which the test machine lacks: the configuration's effect is checked here.
TEST(TagSigning, ConfigDecidesBetweenSignedAndAnnotated) {
    auto executor = std::make_shared<test::RecordingExecutor>();
    NativeGitService service(executor, std::make_shared<GitOpRunner>(2));
    RepoEntry repo;
    repo.path = "/r";
    executor->reply("true\n");
    test::await(service.createTag(repo, "v1", std::nullopt, "m"s));
    executor->reply("");
    test::await(service.createTag(repo, "v2", "abc"s, "m"s));
    EXPECT_EQ(executor->argumentLists(), (Lists{{"config", "tag.gpgsign"},
                                                {"tag", "-s", "-m", "m", "--", "v1"},
                                                {"config", "tag.gpgsign"},
                                                {"tag", "-a", "-m", "m", "--", "v2", "abc"}}));
}

TEST(ConflictRecovery, AFailingQueryWinsAndForeignErrorsAskNothing) {
    test::RecordingExecutor git;
    git.fail("revert");
    git.fail("status");
    EXPECT_EQ(test::serviceError([&] { HistoryEditCommands::revert(git, "/r", "abc"); }).command(), "status");
    git.fail(std::make_exception_ptr(std::runtime_error("spawn failed")));
    EXPECT_THROW(HistoryEditCommands::cherryPick(git, "/r", "abc"), std::runtime_error);
    EXPECT_EQ(git.argumentLists(), (Lists{{"revert", "--no-edit", "abc"},
                                          {"status", "--porcelain=v2", "-uall", "-z"},
                                          {"cherry-pick", "abc"}}));
}

TEST(FileService, WorkTreeFileStaysInsideTheRepository) {
    EXPECT_EQ(BlobCommands::workTreeFile("/r", "a/b.txt"), "/r/a/b.txt");
    EXPECT_EQ(BlobCommands::workTreeFile("/r/", "/a b"), "/r/a b");
    EXPECT_EQ(BlobCommands::workTreeFile("/", "-x"), "/-x");
}
