// The argument lists of the stash, tag, history-editing, conflict-side, blame, file-history and
// blob commands, with git's answers scripted: exact words and order, "--" before every path,
// option-like names refused before git runs, and conflict recovery's status query.
#include "core/commands/BlobCommands.h"
#include "core/commands/ConflictSideCommands.h"
#include "core/commands/FileHistoryCommands.h"
#include "core/commands/HistoryEditCommands.h"
#include "core/commands/StashCommands.h"
#include "core/commands/TagCommands.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/GitServiceError.h"
#include "core/service/NativeGitService.h"
#include "support/Await.h"
#include "support/RecordingExecutor.h"

#include <gtest/gtest.h>

using namespace orvel;
using namespace std::string_literals;
using Arguments = GitExecutorProtocol::Arguments;
using Lists = std::vector<Arguments>;

namespace {

const Arguments conflictQuery{"status", "--porcelain=v2", "-uall", "-z"};

std::exception_ptr gitFailure(const char* command) {
    return std::make_exception_ptr(GitServiceError::commandFailed(command, "error: scripted\n"));
}

// One unmerged entry as "status --porcelain=v2 -z" prints it.
std::string unmergedRecord(const std::string& path) {
    const std::string blob(40, 'b');
    return "u UU N... 100644 100644 100644 100644 " + blob + " " + blob + " " + blob + " " + path + "\0"s;
}

template <typename Function>
GitServiceError::Kind failureKind(Function&& function) {
    try {
        function();
    } catch (const GitServiceError& error) {
        return error.kind();
    }
    ADD_FAILURE() << "expected a GitServiceError";
    return GitServiceError::Kind::gitNotFound;
}

} // namespace

TEST(StashArguments, SaveApplyDropAndList) {
    test::RecordingExecutor git;
    StashCommands::stashSave(git, "/r", std::nullopt, false);
    StashCommands::stashSave(git, "/r", ""s, false);
    StashCommands::stashSave(git, "/r", "-m $(rm -rf) \"q\""s, true);
    StashCommands::stashPop(git, "/r");
    StashCommands::stashApply(git, "/r", 3);
    StashCommands::stashDrop(git, "/r", 0);
    StashCommands::stashList(git, "/r");
    EXPECT_EQ(git.argumentLists(), (Lists{
                                       {"stash", "push"},
                                       {"stash", "push", "-m", ""},
                                       {"stash", "push", "--include-untracked", "-m", "-m $(rm -rf) \"q\""},
                                       {"stash", "pop"},
                                       {"stash", "apply", "stash@{3}"},
                                       {"stash", "drop", "stash@{0}"},
                                       {"stash", "list", "--format=%gd%x00%H%x00%P%x00%gs%x00%aI"},
                                   }));
}

TEST(StashArguments, StashFileAsksStatusFirst) {
    test::RecordingExecutor git;
    git.reply(" M -dash file.txt\n");
    StashCommands::stashFile(git, "/r", "-dash file.txt");
    git.reply("  ?? new.txt\n");
    StashCommands::stashFile(git, "/r", "new.txt");
    git.fail(gitFailure("status")); // read as empty: tracked
    StashCommands::stashFile(git, "/r", "x");
    EXPECT_EQ(git.argumentLists(), (Lists{
                                       {"status", "--porcelain=v1", "--", "-dash file.txt"},
                                       {"stash", "push", "--", "-dash file.txt"},
                                       {"status", "--porcelain=v1", "--", "new.txt"},
                                       {"stash", "push", "--include-untracked", "--", "new.txt"},
                                       {"status", "--porcelain=v1", "--", "x"},
                                       {"stash", "push", "--", "x"},
                                   }));
}

TEST(StashArguments, FailedApplyIsAConflictOnlyWithUnmergedPaths) {
    test::RecordingExecutor git;
    git.fail(gitFailure("stash"));
    git.reply(unmergedRecord("a b.txt"));
    const OperationResult conflicted = StashCommands::stashApply(git, "/r", 1);
    ASSERT_TRUE(std::holds_alternative<Conflicted>(conflicted));
    ASSERT_EQ(std::get<Conflicted>(conflicted).files.size(), 1u);
    EXPECT_EQ(std::get<Conflicted>(conflicted).files[0].path, "a b.txt");

    git.fail(gitFailure("stash"));
    git.reply("");
    EXPECT_THROW(StashCommands::stashPop(git, "/r"), GitServiceError);

    const OperationResult clean = StashCommands::stashPop(git, "/r");
    ASSERT_TRUE(std::holds_alternative<operation::Success>(clean));
    EXPECT_FALSE(std::get<operation::Success>(clean).commitHash.has_value());
    EXPECT_EQ(git.argumentLists(), (Lists{{"stash", "apply", "stash@{1}"},
                                          conflictQuery,
                                          {"stash", "pop"},
                                          conflictQuery,
                                          {"stash", "pop"}}));
}

TEST(TagArguments, CreateInEachShape) {
    test::RecordingExecutor git;
    TagCommands::createTag(git, "/r", "v1", std::nullopt, "release $(x)"s, false);
    TagCommands::createTag(git, "/r", "v2", "abc"s, std::nullopt, true);
    TagCommands::createTag(git, "/r", "v3", "abc"s, "signed"s, true);
    TagCommands::createTag(git, "/r", "v4", std::nullopt, ""s, false);
    EXPECT_EQ(git.argumentLists(), (Lists{
                                       {"tag", "-a", "-m", "release $(x)", "v1"},
                                       {"tag", "v2", "abc"},
                                       {"tag", "-s", "-m", "signed", "v3", "abc"},
                                       {"tag", "-a", "-m", "", "v4"},
                                   }));
    // Only the lightweight tag switches git's own tag signing off, for its run alone.
    const auto calls = git.calls();
    EXPECT_TRUE(calls[0].environment.empty());
    EXPECT_EQ(calls[1].environment, (GitExecutorProtocol::Environment{{"GIT_CONFIG_COUNT", "1"},
                                                                      {"GIT_CONFIG_KEY_0", "tag.gpgSign"},
                                                                      {"GIT_CONFIG_VALUE_0", "false"}}));
    EXPECT_TRUE(calls[2].environment.empty());
}

TEST(TagArguments, ListShowPushDeleteCheckout) {
    test::RecordingExecutor git;
    TagCommands::listTags(git, "/r");
    TagCommands::tagDetail(git, "/r", "-v1");
    TagCommands::pushTag(git, "/r", "v1", "origin");
    TagCommands::deleteTag(git, "/r", "v1");
    TagCommands::checkoutTag(git, "/r", "-v1");
    EXPECT_EQ(
        git.argumentLists(),
        (Lists{
            {"tag", "-l", "--format",
             "%(refname:short)%00%(objectname)%00%(*objectname)%00%(objecttype)%00%(taggername)%00"
             "%(taggeremail)%00%(taggerdate:iso-strict)%00%(contents:subject)%00%(contents:signature)%00"},
            {"show", "--no-patch", "tags/-v1"},
            {"push", "origin", "v1"},
            {"tag", "-d", "v1"},
            {"checkout", "tags/-v1"},
        }));
}

TEST(TagArguments, OptionLikeNamesAreRefusedBeforeGitRuns) {
    test::RecordingExecutor git;
    using Kind = GitServiceError::Kind;
    EXPECT_EQ(
        failureKind([&] { TagCommands::createTag(git, "/r", "-d", std::nullopt, std::nullopt, false); }),
        Kind::invalidInput);
    EXPECT_EQ(failureKind([&] { TagCommands::createTag(git, "/r", "v", "--all"s, std::nullopt, false); }),
              Kind::invalidInput);
    EXPECT_EQ(failureKind([&] { TagCommands::deleteTag(git, "/r", "-l"); }), Kind::invalidInput);
    EXPECT_EQ(failureKind([&] { TagCommands::pushTag(git, "/r", "--all", "origin"); }), Kind::invalidInput);
    EXPECT_EQ(failureKind([&] { TagCommands::pushTag(git, "/r", "v1", "--mirror"); }), Kind::invalidInput);
    EXPECT_EQ(failureKind([&] { HistoryEditCommands::reset(git, "/r", "--hard", ResetMode::soft); }),
              Kind::invalidInput);
    EXPECT_EQ(failureKind([&] { HistoryEditCommands::cherryPick(git, "/r", "--continue"); }),
              Kind::invalidInput);
    EXPECT_EQ(failureKind([&] { HistoryEditCommands::revert(git, "/r", "--abort"); }), Kind::invalidInput);
    EXPECT_EQ(failureKind([&] { BlobCommands::readBlob(git, "/r", " -p "); }), Kind::invalidInput);
    EXPECT_TRUE(git.argumentLists().empty());
}

TEST(TagArguments, SigningLookUpReadsTagGpgSign) {
    test::RecordingExecutor git;
    git.reply(" TRUE\n");
    EXPECT_TRUE(TagCommands::signingEnabled(git, "/r"));
    git.reply("yes\n");
    EXPECT_FALSE(TagCommands::signingEnabled(git, "/r"));
    git.fail(gitFailure("config"));
    EXPECT_FALSE(TagCommands::signingEnabled(git, "/r"));
    EXPECT_EQ(git.argumentLists(), (Lists(3, Arguments{"config", "tag.gpgsign"})));
}

TEST(TagService, SigningDecidesBetweenSignedAndAnnotated) {
    auto executor = std::make_shared<test::RecordingExecutor>();
    NativeGitService service(executor, std::make_shared<GitOpRunner>(2));
    RepoEntry repo;
    repo.path = "/r";
    executor->reply("true\n");
    test::await(service.createTag(repo, "v1", std::nullopt, "m"s));
    executor->reply("");
    test::await(service.createTag(repo, "v2", "abc"s, "m"s));
    EXPECT_EQ(executor->argumentLists(), (Lists{{"config", "tag.gpgsign"},
                                                {"tag", "-s", "-m", "m", "v1"},
                                                {"config", "tag.gpgsign"},
                                                {"tag", "-a", "-m", "m", "v2", "abc"}}));
}

TEST(HistoryEditArguments, ResetModesPickAndRevert) {
    test::RecordingExecutor git;
    for (ResetMode mode :
         {ResetMode::soft, ResetMode::mixed, ResetMode::hard, ResetMode::merge, ResetMode::keep})
        HistoryEditCommands::reset(git, "/r", "abc", mode);
    HistoryEditCommands::cherryPick(git, "/r", "abc");
    HistoryEditCommands::revert(git, "/r", "abc");
    EXPECT_EQ(git.argumentLists(), (Lists{
                                       {"reset", "--soft", "abc"},
                                       {"reset", "--mixed", "abc"},
                                       {"reset", "--hard", "abc"},
                                       {"reset", "--merge", "abc"},
                                       {"reset", "--keep", "abc"},
                                       {"cherry-pick", "abc"},
                                       {"revert", "--no-edit", "abc"},
                                   }));
}

TEST(HistoryEditArguments, FailedPickGoesThroughConflictRecovery) {
    test::RecordingExecutor git;
    git.fail(gitFailure("cherry-pick"));
    git.reply(unmergedRecord("f"));
    EXPECT_TRUE(std::holds_alternative<Conflicted>(HistoryEditCommands::cherryPick(git, "/r", "abc")));
    git.fail(gitFailure("revert"));
    git.fail(gitFailure("status")); // the query's error wins
    try {
        HistoryEditCommands::revert(git, "/r", "abc");
        FAIL() << "expected the status failure";
    } catch (const GitServiceError& error) {
        EXPECT_EQ(error.command(), "status");
    }
    git.fail(std::make_exception_ptr(std::runtime_error("spawn failed"))); // not ours: no query
    EXPECT_THROW(HistoryEditCommands::revert(git, "/r", "abc"), std::runtime_error);
    EXPECT_EQ(git.argumentLists(), (Lists{{"cherry-pick", "abc"},
                                          conflictQuery,
                                          {"revert", "--no-edit", "abc"},
                                          conflictQuery,
                                          {"revert", "--no-edit", "abc"}}));
}

TEST(ConflictSideArguments, CheckoutThenAddBehindTheSeparator) {
    test::RecordingExecutor git;
    ConflictSideCommands::resolveUsingOurs(git, "/r", "-a b");
    ConflictSideCommands::resolveUsingTheirs(git, "/r", "--theirs");
    EXPECT_EQ(git.argumentLists(), (Lists{
                                       {"checkout", "--ours", "--", "-a b"},
                                       {"add", "--", "-a b"},
                                       {"checkout", "--theirs", "--", "--theirs"},
                                       {"add", "--", "--theirs"},
                                   }));
    test::RecordingExecutor failing;
    failing.fail(gitFailure("checkout"));
    EXPECT_THROW(ConflictSideCommands::resolveUsingOurs(failing, "/r", "f"), GitServiceError);
    EXPECT_EQ(failing.argumentLists().size(), 1u); // nothing staged after a failed checkout
}

TEST(FileArguments, BlameHistoryAndBlob) {
    test::RecordingExecutor git;
    FileHistoryCommands::blame(git, "/r", "-x y");
    FileHistoryCommands::fileHistory(git, "/r", "-x y", 100);
    BlobCommands::readBlob(git, "/r", "  abc \t");
    EXPECT_EQ(
        git.argumentLists(),
        (Lists{
            {"blame", "--porcelain", "--", "-x y"},
            {"log", "--follow", "-n", "100",
             "--format=%x01%H%x00%h%x00%P%x00%aN%x00%aE%x00%aI%x00%cN%x00%cE%x00%cI%x00%s%x00%b%x00%D%x00%G?"
             "%x00%(trailers:key=Co-Authored-By,valueonly,separator=%x1E)",
             "--", "-x y"},
            {"cat-file", "blob", "abc"},
        }));
}

TEST(FileService, EmptyBlobHashFailsWithoutGit) {
    auto executor = std::make_shared<test::RecordingExecutor>();
    NativeGitService service(executor, std::make_shared<GitOpRunner>(2));
    RepoEntry repo;
    repo.path = "/r";
    try {
        test::await(service.readBlob(repo, "  "));
        FAIL() << "expected commandFailed";
    } catch (const GitServiceError& error) {
        EXPECT_EQ(error.kind(), GitServiceError::Kind::commandFailed);
        EXPECT_STREQ(error.what(), "git cat-file blob failed: empty hash");
    }
    EXPECT_TRUE(executor->argumentLists().empty());
}

TEST(FileService, WorkTreeFileStaysInsideTheRepository) {
    EXPECT_EQ(BlobCommands::workTreeFile("/r", "a/b.txt"), "/r/a/b.txt");
    EXPECT_EQ(BlobCommands::workTreeFile("/r/", "/a b"), "/r/a b");
    EXPECT_EQ(BlobCommands::workTreeFile("/", "-x"), "/-x");
}
