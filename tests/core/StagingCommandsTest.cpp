// The argument lists of staging and committing, with git's answers scripted: paths behind "--",
// the fall-back of unstaging, the signing look-up and the read-back of a commit.
#include "RealGitService.h"

#include "core/commands/StagingCommands.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/GitServiceError.h"
#include "core/service/NativeGitService.h"
#include "support/Await.h"
#include "support/RecordingExecutor.h"

#include <gtest/gtest.h>

using namespace orvel;
using Arguments = GitExecutorProtocol::Arguments;

namespace {

const std::string historyFormatText =
    "--format=%x01%H%x00%h%x00%P%x00%aN%x00%aE%x00%aI%x00%cN%x00%cE%x00%cI%x00%s%x00%b%x00%D%x00%G?%x00"
    "%(trailers:key=Co-Authored-By,valueonly,separator=%x1E)";

std::exception_ptr gitFailure(const char* command) {
    return std::make_exception_ptr(GitServiceError::commandFailed(command, "fatal: scripted\n"));
}

std::string historyRecord(const std::string& subject) {
    using namespace std::string_literals;
    return "\x01"s + std::string(40, 'c') + "\0ccccccc\0\0A\0a@x\0"s + "2026-01-01T00:00:00Z\0A\0a@x\0"s +
           "2026-01-01T00:00:00Z\0"s + subject + "\0\0HEAD -> main\0N\0\n"s;
}

} // namespace

TEST(StagingArguments, PathsStandBehindTheSeparator) {
    test::RecordingExecutor git;
    StagingCommands::stage(git, "/r", "-rf");
    StagingCommands::stageFiles(git, "/r", {"a b", "-x", "c"});
    StagingCommands::stageFiles(git, "/r", {});
    StagingCommands::stageAll(git, "/r");
    StagingCommands::discardChanges(git, "/r", "-p", false);
    StagingCommands::discardChanges(git, "/r", "f", true);
    EXPECT_EQ(git.argumentLists(), (std::vector<Arguments>{
                                       {"add", "--", "-rf"},
                                       {"add", "--", "a b", "-x", "c"},
                                       {"add", "-A"},
                                       {"restore", "--worktree", "--", "-p"},
                                       {"restore", "--staged", "--worktree", "--", "f"},
                                   }));
}

TEST(StagingArguments, UnstageResetsToHeadWhenThereIsOne) {
    test::RecordingExecutor git;
    StagingCommands::unstage(git, "/r", "-f");
    StagingCommands::unstageFiles(git, "/r", {"a", "b"});
    StagingCommands::unstageFiles(git, "/r", {});
    StagingCommands::unstageAll(git, "/r");
    const Arguments verify{"rev-parse", "--verify", "HEAD"};
    EXPECT_EQ(git.argumentLists(), (std::vector<Arguments>{verify,
                                                           {"reset", "HEAD", "--", "-f"},
                                                           verify,
                                                           {"reset", "HEAD", "--", "a", "b"},
                                                           verify,
                                                           {"reset", "HEAD"}}));
}

TEST(StagingArguments, UnstageWithoutHeadOrWithAFailedResetRemovesFromTheIndex) {
    test::RecordingExecutor git;
    git.fail(gitFailure("rev-parse"));
    StagingCommands::unstage(git, "/r", "f");
    git.reply("");
    git.fail(gitFailure("reset"));
    StagingCommands::unstageFiles(git, "/r", {"a", "b"});
    git.fail(gitFailure("rev-parse"));
    StagingCommands::unstageAll(git, "/r");
    const Arguments verify{"rev-parse", "--verify", "HEAD"};
    EXPECT_EQ(git.argumentLists(), (std::vector<Arguments>{verify,
                                                           {"rm", "--cached", "--", "f"},
                                                           verify,
                                                           {"reset", "HEAD", "--", "a", "b"},
                                                           {"rm", "--cached", "--", "a", "b"},
                                                           verify,
                                                           {"rm", "--cached", "-r", "."}}));
    git.fail(gitFailure("rev-parse"));
    git.fail(gitFailure("rm"));
    EXPECT_THROW(StagingCommands::unstage(git, "/r", "f"), GitServiceError);
}

TEST(SigningLookUp, OnlyTrueInAnyCaseAndSpacingCounts) {
    test::RecordingExecutor git;
    for (const char* answer : {" True \n", "true\n", "TRUE"}) {
        git.reply(answer);
        EXPECT_TRUE(StagingCommands::signingEnabled(git, "/r")) << answer;
    }
    for (const char* answer : {"", "\n", "false\n", "yes\n", "1\n"}) {
        git.reply(answer);
        EXPECT_FALSE(StagingCommands::signingEnabled(git, "/r")) << answer;
    }
    git.fail(gitFailure("config"));
    EXPECT_FALSE(StagingCommands::signingEnabled(git, "/r"));
    EXPECT_EQ(git.argumentLists().back(), (Arguments{"config", "commit.gpgsign"}));
}

TEST(CommitArguments, CommitAndAmendThenReadBack) {
    test::RecordingExecutor git;
    git.reply("");
    git.reply(historyRecord("made"));
    EXPECT_EQ(StagingCommands::commit(git, "/r", "  -m $(x)\n", false).subject, "made");
    git.reply("");
    git.reply(historyRecord("amended"));
    EXPECT_EQ(StagingCommands::amendCommit(git, "/r", "fix", true).subject, "amended");
    const Arguments readBack{"log", "-1", historyFormatText};
    EXPECT_EQ(
        git.argumentLists(),
        (std::vector<Arguments>{
            {"commit", "-m", "  -m $(x)\n"}, readBack, {"commit", "--amend", "-S", "-m", "fix"}, readBack}));
}

TEST(CommitArguments, AnEmptyReadBackIsAParseFailure) {
    test::RecordingExecutor git;
    try {
        StagingCommands::commit(git, "/r", "m", false);
        FAIL() << "expected parseFailed";
    } catch (const GitServiceError& error) {
        EXPECT_STREQ(error.what(), "Failed to parse git commit: no commit returned from log -1");
    }
    try {
        StagingCommands::amendCommit(git, "/r", "m", false);
        FAIL() << "expected parseFailed";
    } catch (const GitServiceError& error) {
        EXPECT_EQ(error.command(), "commit --amend");
    }
}

TEST(CommitService, SigningIsAskedBeforeTheCommit) {
    auto executor = std::make_shared<test::RecordingExecutor>();
    NativeGitService service(executor, std::make_shared<GitOpRunner>(2));
    executor->reply("true\n");
    executor->reply("");
    executor->reply(historyRecord("signed"));
    const CommitEntry made = test::await(service.commit(test::RealGitService::repoAt("/r"), "signed"));
    EXPECT_EQ(made.refs, std::vector<std::string>{"HEAD -> main"});
    const auto lists = executor->argumentLists();
    ASSERT_EQ(lists.size(), 3u);
    EXPECT_EQ(lists[0], (Arguments{"config", "commit.gpgsign"}));
    EXPECT_EQ(lists[1], (Arguments{"commit", "-S", "-m", "signed"}));
    EXPECT_EQ(executor->calls()[0].repoPath, "/r");
}
