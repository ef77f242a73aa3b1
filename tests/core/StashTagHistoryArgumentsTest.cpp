// What real repositories cannot show of the stash, tag, history-editing, conflict-side, blame,
// file-history and blob commands: user names never reach git as options (paths behind "--", tags
// behind "tags/"), signed tags, and how the conflict
// recovery treats errors of its own query.
#include "core/commands/BlobCommands.h"
#include "core/commands/ConflictSideCommands.h"
#include "core/commands/FileHistoryCommands.h"
#include "core/commands/HistoryEditCommands.h"
#include "core/commands/StashCommands.h"
#include "core/commands/TagCommands.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "support/Await.h"
#include "support/RecordingExecutor.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

#include <functional>

using namespace orvel;
using namespace std::string_literals;
using Arguments = GitExecutorProtocol::Arguments;
using Lists = std::vector<Arguments>;

TEST(UserTextArguments, PathsStandBehindTheSeparatorAndTagsBehindTheirPrefix) {
    test::RecordingExecutor git;
    git.reply(" M -dash file.txt\n");
    StashCommands::stashFile(git, "/r", "-dash file.txt");
    git.reply("  ?? -new.txt\n");
    StashCommands::stashFile(git, "/r", "-new.txt");
    ConflictSideCommands::resolveUsingOurs(git, "/r", "-a b");
    ConflictSideCommands::resolveUsingTheirs(git, "/r", "--theirs");
    FileHistoryCommands::blame(git, "/r", "-x y");
    TagCommands::tagDetail(git, "/r", "v1");
    TagCommands::checkoutTag(git, "/r", "v1");
    StashCommands::stashSave(git, "/r", "-m $(rm -rf) \"q\""s, true);
    const Lists lists = git.argumentLists();
    const Lists expected{
        {"status", "--porcelain=v1", "--", "-dash file.txt"},
        {"stash", "push", "--", "-dash file.txt"},
        {"status", "--porcelain=v1", "--", "-new.txt"},
        {"stash", "push", "--include-untracked", "--", "-new.txt"},
        {"checkout", "--ours", "--", "-a b"},
        {"add", "--", "-a b"},
        {"checkout", "--theirs", "--", "--theirs"},
        {"add", "--", "--theirs"},
        {"blame", "--porcelain", "--", "-x y"},
        {"show", "--no-patch", "tags/v1"},
        {"checkout", "tags/v1"},
        {"stash", "push", "--include-untracked", "-m", "-m $(rm -rf) \"q\""},
    };
    EXPECT_EQ(lists, expected);
    FileHistoryCommands::fileHistory(git, "/r", "-x y", 100);
    const Arguments history = git.argumentLists().back();
    ASSERT_GE(history.size(), 2u);
    EXPECT_EQ((Arguments{history.end() - 2, history.end()}), (Arguments{"--", "-x y"}));
}

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
