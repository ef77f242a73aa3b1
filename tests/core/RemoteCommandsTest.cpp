// Remote commands: the exact argument lists, the checks before a push and the reading of pull
// results, then the same operations against a local bare repository that serves as "origin",
// with a second clone pushing to it to make the histories diverge.
#include "core/commands/RemoteCommands.h"
#include "RealGitService.h"
#include "core/service/GitServiceError.h"
#include "core/service/NativeGitService.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/RecordingExecutor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace std::string_literals;

using namespace orvel;
using test::RecordingExecutor;
using test::TempDir;
using test::TempRepo;
using Args = std::vector<std::string>;

namespace {

GitServiceError failure(const std::string& command, const std::string& text) {
    return GitServiceError::commandFailed(command, text);
}

template <typename Alternative>
const Alternative& expectCase(const MergeResult& result) {
    EXPECT_TRUE(std::holds_alternative<Alternative>(result)) << RemoteCommands::describe(result);
    static const Alternative none{};
    const auto* value = std::get_if<Alternative>(&result);
    return value ? *value : none;
}

} // namespace

TEST(RemoteCommandArguments, ListAddRemoveFetchAndPushForms) {
    RecordingExecutor git;
    git.reply("origin\t/srv/o.git (fetch)\norigin\t/srv/o.git (push)\n");
    EXPECT_EQ(RemoteCommands::listRemotes(git, "/r"),
              (std::vector<RemoteEntry>{{"origin", "/srv/o.git", "/srv/o.git"}}));
    RemoteCommands::addRemote(git, "/r", "fork", "https://example.invalid/a b.git");
    RemoteCommands::removeRemote(git, "/r", "fork");
    RemoteCommands::fetch(git, "/r", "origin", false);
    RemoteCommands::fetch(git, "/r", "origin", true);
    RemoteCommands::pushBranch(git, "/r", "feature", "origin");
    RemoteCommands::forcePush(git, "/r", "origin");
    EXPECT_EQ(git.argumentLists(),
              (std::vector<Args>{{"remote", "-v"},
                                 {"remote", "add", "fork", "https://example.invalid/a b.git"},
                                 {"remote", "remove", "fork"},
                                 {"fetch", "origin"},
                                 {"fetch", "--prune", "origin"},
                                 {"push", "-u", "origin", "feature"},
                                 {"push", "--force-with-lease", "origin", "HEAD"}}));
    for (const auto& call : git.calls())
        EXPECT_EQ(call.repoPath, "/r");
}

TEST(RemoteCommandArguments, PullFlagOfEachStrategy) {
    const std::vector<std::pair<PullStrategy, Args>> cases{
        {PullStrategy::merge, {"pull", "--no-rebase", "origin"}},
        {PullStrategy::rebase, {"pull", "--rebase", "origin"}},
        {PullStrategy::fastForwardOnly, {"pull", "--ff-only", "origin"}},
        {PullStrategy::useConfig, {"pull", "origin"}},
    };
    for (const auto& [strategy, expected] : cases) {
        RecordingExecutor git;
        git.reply("Already up to date.\n");
        expectCase<merge::AlreadyUpToDate>(RemoteCommands::pull(git, "/r", "origin", strategy));
        EXPECT_EQ(git.argumentLists(), std::vector<Args>{expected}) << RemoteCommands::toString(strategy);
    }
}

TEST(RemoteCommandArguments, PullResultIsReadFromItsOutputAndHead) {
    RecordingExecutor fastForward;
    fastForward.reply("Updating 1111111..2222222\nFast-forward\n a.txt | 1 +\n");
    fastForward.reply("2222222222\n");
    EXPECT_EQ(
        expectCase<merge::FastForward>(RemoteCommands::pull(fastForward, "/r", "origin", PullStrategy::merge))
            .newHead,
        "2222222222");
    EXPECT_EQ(fastForward.argumentLists().back(), (Args{"rev-parse", "HEAD"}));

    RecordingExecutor merged;
    merged.reply("Merge made by the 'ort' strategy.\n");
    merged.reply("3333333333\n");
    EXPECT_EQ(expectCase<merge::Merged>(RemoteCommands::pull(merged, "/r", "origin", PullStrategy::merge))
                  .commitHash,
              "3333333333");
}

TEST(RemoteCommandArguments, FailedPullWithoutConflictsKeepsGitsError) {
    RecordingExecutor git;
    git.fail(std::make_exception_ptr(failure("pull", "fatal: Not possible to fast-forward, aborting.\n")));
    git.reply("1 .M N... 100644 100644 100644 aaa bbb a.txt\0"s);
    try {
        RemoteCommands::pull(git, "/r", "origin", PullStrategy::fastForwardOnly);
        FAIL() << "expected an error";
    } catch (const GitServiceError& error) {
        EXPECT_EQ(error.kind(), GitServiceError::Kind::commandFailed);
        EXPECT_NE(error.stderrText().find("Not possible to fast-forward"), std::string::npos);
    }
    EXPECT_EQ(git.argumentLists().back(), (Args{"status", "--porcelain=v2", "-uall", "-z"}));
}

TEST(RemoteCommandArguments, PushChecksHeadThenRemotesThenPushes) {
    RecordingExecutor git;
    git.reply("refs/heads/main\n");
    git.reply("origin\n  upstream  \n\n");
    RemoteCommands::push(git, "/r", "upstream");
    EXPECT_EQ(git.argumentLists(),
              (std::vector<Args>{{"symbolic-ref", "HEAD"}, {"remote"}, {"push", "-u", "upstream", "HEAD"}}));
}

TEST(RemoteCommandArguments, PushInDetachedStateNeverRunsRemote) {
    RecordingExecutor git;
    git.fail(std::make_exception_ptr(failure("symbolic-ref", "fatal: ref HEAD is not a symbolic ref\n")));
    try {
        RemoteCommands::push(git, "/r", "origin");
        FAIL() << "expected detachedHead";
    } catch (const GitServiceError& error) {
        EXPECT_EQ(error.kind(), GitServiceError::Kind::detachedHead);
        EXPECT_STREQ(error.what(), "Cannot push: HEAD is detached. Check out a branch first.");
    }
    EXPECT_EQ(git.argumentLists(), (std::vector<Args>{{"symbolic-ref", "HEAD"}}));
}

TEST(RemoteCommandArguments, PushToUnknownRemoteStopsBeforePushing) {
    RecordingExecutor git;
    git.reply("refs/heads/main\n");
    git.reply("origin\n");
    try {
        RemoteCommands::push(git, "/r", "orign");
        FAIL() << "expected unknownRemote";
    } catch (const GitServiceError& error) {
        EXPECT_EQ(error.kind(), GitServiceError::Kind::unknownRemote);
        EXPECT_STREQ(error.what(), "Cannot push: remote \"orign\" does not exist.");
    }
    EXPECT_EQ(git.argumentLists().size(), 2u);
}

TEST(RemoteCommandArguments, UnreadableRemoteListSkipsTheCheck) {
    RecordingExecutor git;
    git.reply("refs/heads/main\n");
    git.fail(std::make_exception_ptr(failure("remote", "fatal: bad config\n")));
    RemoteCommands::push(git, "/r", "anything");
    EXPECT_EQ(git.argumentLists().back(), (Args{"push", "-u", "anything", "HEAD"}));
}

TEST(RemoteServiceValidation, AddRemoteRefusesAUrlThatLooksLikeAnOptionAndRunsNothing) {
    auto git = std::make_shared<RecordingExecutor>();
    NativeGitService service(git, std::make_shared<GitOpRunner>(1));
    const RepoEntry repo = test::RealGitService::repoAt("/r");
    try {
        test::await(service.addRemote(repo, "evil", "  -x"));
        FAIL() << "expected invalidInput";
    } catch (const GitServiceError& error) {
        EXPECT_EQ(error.kind(), GitServiceError::Kind::invalidInput);
        EXPECT_STREQ(error.what(), "Invalid input: URL must not begin with '-': -x");
    }
    EXPECT_THROW(test::await(service.addRemote(repo, "empty", " ")), GitServiceError);
    EXPECT_TRUE(git->calls().empty());
    // Blanks inside a url are the url's own; only the check trims.
    test::await(service.addRemote(repo, "spaced", " /srv/a b.git"));
    EXPECT_EQ(git->argumentLists(), (std::vector<Args>{{"remote", "add", "spaced", " /srv/a b.git"}}));
}

// A bare "origin", a clone to work in ("local") and a second clone ("other") that pushes to origin.
class RemoteRepositories : public ::testing::Test {
  protected:
    void SetUp() override {
        TempRepo seed;
        seed.write("shared.txt", "one\ntwo\nthree\n");
        seed.commitAll("initial");
        seed.git({"push", "-q", origin.path(), "main"});
        test::git(local.path(), {"clone", "-q", origin.path(), "."});
        test::git(other.path(), {"clone", "-q", "file://" + origin.path(), "."});
    }

    std::string commitIn(const TempDir& clone, const std::string& file, const std::string& content,
                         const std::string& message) {
        test::writeFile(clone / file, content);
        test::git(clone.path(), {"add", "--", file});
        test::git(clone.path(), {"commit", "-q", "-m", message});
        return head(clone);
    }

    static std::string head(const TempDir& clone) { return trimmedHead(clone.path(), "HEAD"); }
    std::string originMain() const { return trimmedHead(origin.path(), "main"); }
    static std::string trimmedHead(const std::string& dir, const std::string& rev) {
        std::string out = test::git(dir, {"rev-parse", rev});
        while (!out.empty() && out.back() == '\n')
            out.pop_back();
        return out;
    }

    MergeResult pull(PullStrategy strategy) {
        return test::await(real.service.pull(repo(), "origin", strategy));
    }
    RepoEntry repo() const { return test::RealGitService::repoAt(local.path()); }

    TempRepo origin{TempRepo::Kind::bare};
    TempDir local;
    TempDir other;
    test::RealGitService real;
};

TEST_F(RemoteRepositories, ListAddAndRemoveRemotes) {
    auto remotes = test::await(real.service.listRemotes(repo()));
    ASSERT_EQ(remotes.size(), 1u);
    EXPECT_EQ(remotes[0], (RemoteEntry{"origin", origin.path(), origin.path()}));

    test::await(real.service.addRemote(repo(), "mirror", "file://" + other.path()));
    test::git(local.path(), {"remote", "set-url", "--push", "mirror", "/srv/push only.git"});
    remotes = test::await(real.service.listRemotes(repo()));
    ASSERT_EQ(remotes.size(), 2u);
    EXPECT_EQ(remotes[0], (RemoteEntry{"mirror", "file://" + other.path(), "/srv/push only.git"}));

    EXPECT_THROW(test::await(real.service.addRemote(repo(), "mirror", "/elsewhere")), GitServiceError);
    test::await(real.service.removeRemote(repo(), "mirror"));
    EXPECT_EQ(test::await(real.service.listRemotes(repo())).size(), 1u);
    EXPECT_THROW(test::await(real.service.removeRemote(repo(), "mirror")), GitServiceError);
}

TEST_F(RemoteRepositories, AddingARemoteRefreshesTheNamesTheGraphUses) {
    const auto remoteRefsOf = [&] {
        std::vector<std::string> names;
        for (const auto& commit : test::await(real.service.commitGraph(repo(), 50)))
            for (const auto& ref : commit.refs)
                if (ref.type == GraphRefType::remoteBranch)
                    names.push_back(ref.name);
        std::sort(names.begin(), names.end());
        return names;
    };
    EXPECT_EQ(remoteRefsOf(), (std::vector<std::string>{"origin/HEAD", "origin/main"}));
    test::await(real.service.addRemote(repo(), "mirror", other.path()));
    test::await(real.service.fetch(repo(), "mirror", false));
    EXPECT_EQ(remoteRefsOf(), (std::vector<std::string>{"mirror/main", "origin/HEAD", "origin/main"}));
    test::await(real.service.removeRemote(repo(), "mirror"));
    EXPECT_EQ(remoteRefsOf(), (std::vector<std::string>{"origin/HEAD", "origin/main"}));
}

TEST_F(RemoteRepositories, FetchKeepsDeletedBranchesUnlessPruning) {
    test::git(other.path(), {"push", "-q", "origin", "HEAD:refs/heads/feature"});
    test::await(real.service.fetch(repo(), "origin", false));
    EXPECT_EQ(
        test::gitAllowingFailure(local.path(), {"rev-parse", "--verify", "-q", "origin/feature"}).exitCode,
        0);

    test::git(other.path(), {"push", "-q", "origin", "--delete", "feature"});
    test::await(real.service.fetch(repo(), "origin", false));
    EXPECT_EQ(
        test::gitAllowingFailure(local.path(), {"rev-parse", "--verify", "-q", "origin/feature"}).exitCode,
        0);
    test::await(real.service.fetch(repo(), "origin", true));
    EXPECT_NE(
        test::gitAllowingFailure(local.path(), {"rev-parse", "--verify", "-q", "origin/feature"}).exitCode,
        0);

    EXPECT_THROW(test::await(real.service.fetch(repo(), "nowhere", false)), GitServiceError);
}

TEST_F(RemoteRepositories, DeleteRemoteBranchRemovesItFromTheRemote) {
    test::git(local.path(), {"push", "-q", "origin", "HEAD:refs/heads/a/b/c"});
    test::await(real.service.deleteRemoteBranch(repo(), "origin", "a/b/c"));
    EXPECT_NE(test::gitAllowingFailure(origin.path(), {"rev-parse", "--verify", "-q", "refs/heads/a/b/c"}).exitCode,
              0);
    EXPECT_EQ(test::gitAllowingFailure(origin.path(), {"rev-parse", "--verify", "-q", "refs/heads/main"}).exitCode,
              0);
    EXPECT_THROW(test::await(real.service.deleteRemoteBranch(repo(), "origin", "a/b/c")), GitServiceError);
}

TEST_F(RemoteRepositories, PullFastForwardsThenIsUpToDate) {
    const std::string theirs = commitIn(other, "theirs.txt", "x\n", "theirs");
    test::git(other.path(), {"push", "-q", "origin", "main"});
    EXPECT_EQ(expectCase<merge::FastForward>(pull(PullStrategy::fastForwardOnly)).newHead, theirs);
    EXPECT_EQ(head(local), theirs);
    expectCase<merge::AlreadyUpToDate>(pull(PullStrategy::useConfig));
}

TEST_F(RemoteRepositories, PullOfDivergedHistoryByEachStrategy) {
    commitIn(other, "theirs.txt", "x\n", "theirs");
    test::git(other.path(), {"push", "-q", "origin", "main"});
    const std::string mine = commitIn(local, "mine.txt", "y\n", "mine");

    // Only a fast-forward is allowed: git refuses and the error carries its words.
    try {
        pull(PullStrategy::fastForwardOnly);
        FAIL() << "expected a refused pull";
    } catch (const GitServiceError& error) {
        EXPECT_EQ(error.command(), "pull");
        EXPECT_NE(error.stderrText().find("Not possible to fast-forward"), std::string::npos)
            << error.stderrText();
    }
    EXPECT_EQ(head(local), mine);

    const auto merged = expectCase<merge::Merged>(pull(PullStrategy::merge));
    EXPECT_EQ(merged.commitHash, head(local));
    // A merge commit whose first parent is the local commit.
    EXPECT_EQ(test::git(local.path(), {"log", "-1", "--format=%P"}).substr(0, 41), mine + " ");

    // Undo the merge and replay the local commit on top instead.
    test::git(local.path(), {"reset", "-q", "--hard", mine});
    const auto rebased = expectCase<merge::Merged>(pull(PullStrategy::rebase));
    EXPECT_EQ(rebased.commitHash, head(local));
    EXPECT_EQ(trimmedHead(local.path(), "HEAD~1"), trimmedHead(local.path(), "origin/main"));

    // The configured strategy applies when none is chosen.
    test::git(local.path(), {"reset", "-q", "--hard", mine});
    test::git(local.path(), {"config", "pull.rebase", "true"});
    expectCase<merge::Merged>(pull(PullStrategy::useConfig));
    EXPECT_EQ(trimmedHead(local.path(), "HEAD~1"), trimmedHead(local.path(), "origin/main"));
}

TEST_F(RemoteRepositories, ConflictingPullAnswersTheConflictedFiles) {
    commitIn(other, "shared.txt", "one\ntheirs\nthree\n", "theirs");
    test::git(other.path(), {"push", "-q", "origin", "main"});
    commitIn(local, "shared.txt", "one\nmine\nthree\n", "mine");

    const auto merging = expectCase<Conflicted>(pull(PullStrategy::merge));
    ASSERT_EQ(merging.files.size(), 1u);
    EXPECT_EQ(merging.files[0].path, "shared.txt");
    test::git(local.path(), {"merge", "--abort"});

    const auto rebasing = expectCase<Conflicted>(pull(PullStrategy::rebase));
    ASSERT_EQ(rebasing.files.size(), 1u);
    EXPECT_EQ(rebasing.files[0].path, "shared.txt");
}

TEST_F(RemoteRepositories, PushSetsUpstreamAndRejectedPushCarriesGitsWords) {
    const std::string mine = commitIn(local, "mine.txt", "y\n", "mine");
    test::git(local.path(), {"checkout", "-q", "-b", "topic"});
    test::await(real.service.push(repo(), "origin"));
    EXPECT_EQ(trimmedHead(origin.path(), "topic"), mine);
    EXPECT_EQ(test::git(local.path(), {"config", "branch.topic.remote"}), "origin\n");

    test::git(local.path(), {"checkout", "-q", "main"});
    test::await(real.service.pushBranch(repo(), "main", "origin"));
    EXPECT_EQ(originMain(), mine);

    test::git(other.path(), {"pull", "-q", "--no-rebase", "origin", "main"});
    commitIn(other, "theirs.txt", "x\n", "theirs");
    test::git(other.path(), {"push", "-q", "origin", "main"});
    commitIn(local, "mine2.txt", "z\n", "mine again");
    try {
        test::await(real.service.push(repo(), "origin"));
        FAIL() << "expected a rejected push";
    } catch (const GitServiceError& error) {
        EXPECT_EQ(error.kind(), GitServiceError::Kind::commandFailed);
        EXPECT_EQ(error.command(), "push");
        EXPECT_NE(error.stderrText().find("rejected"), std::string::npos) << error.stderrText();
    }
    EXPECT_NE(originMain(), head(local));
}

TEST_F(RemoteRepositories, ForcePushHonoursItsLease) {
    commitIn(other, "theirs.txt", "x\n", "theirs");
    test::git(other.path(), {"push", "-q", "origin", "main"});
    test::await(real.service.fetch(repo(), "origin", false));
    const std::string mine = commitIn(local, "mine.txt", "y\n", "mine");

    // origin/main is what local last saw: the lease holds and origin's commit is overwritten.
    test::await(real.service.forcePush(repo(), "origin"));
    EXPECT_EQ(originMain(), mine);

    // Someone pushes after the last fetch: the lease breaks and origin keeps their commit.
    test::git(other.path(), {"fetch", "-q", "origin"});
    test::git(other.path(), {"reset", "-q", "--hard", "origin/main"});
    const std::string theirs = commitIn(other, "late.txt", "z\n", "late");
    test::git(other.path(), {"push", "-q", "origin", "main"});
    commitIn(local, "mine2.txt", "w\n", "mine again");
    try {
        test::await(real.service.forcePush(repo(), "origin"));
        FAIL() << "expected the lease to break";
    } catch (const GitServiceError& error) {
        EXPECT_NE(error.stderrText().find("stale info"), std::string::npos) << error.stderrText();
    }
    EXPECT_EQ(originMain(), theirs);
}

TEST_F(RemoteRepositories, PushRefusesDetachedHeadAndUnknownRemote) {
    test::git(local.path(), {"checkout", "-q", "--detach"});
    try {
        test::await(real.service.push(repo(), "origin"));
        FAIL() << "expected detachedHead";
    } catch (const GitServiceError& error) {
        EXPECT_EQ(error.kind(), GitServiceError::Kind::detachedHead);
    }
    test::git(local.path(), {"checkout", "-q", "main"});
    commitIn(local, "mine.txt", "y\n", "mine");
    try {
        test::await(real.service.push(repo(), "nowhere"));
        FAIL() << "expected unknownRemote";
    } catch (const GitServiceError& error) {
        EXPECT_EQ(error.kind(), GitServiceError::Kind::unknownRemote);
        EXPECT_EQ(error.name(), "nowhere");
    }
    EXPECT_NE(originMain(), head(local));
}
