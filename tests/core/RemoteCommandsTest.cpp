// Remote commands: the checks before a push and the URL check, then every operation against a
// local bare repository that serves as "origin", with a second clone pushing to it to make the
// histories diverge.
#include "core/commands/RemoteCommands.h"
#include "RealGitService.h"
#include "core/service/GitServiceError.h"
#include "core/service/NativeGitService.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/RecordingExecutor.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>

using namespace std::string_literals;

using namespace orvel;
using test::RecordingExecutor;
using test::TempRepo;
using Args = std::vector<std::string>;

namespace {

template <typename Alternative>
const Alternative& expectCase(const MergeResult& result) {
    EXPECT_TRUE(std::holds_alternative<Alternative>(result)) << RemoteCommands::describe(result);
    static const Alternative none{};
    const auto* value = std::get_if<Alternative>(&result);
    return value ? *value : none;
}

} // namespace

// Push checks HEAD, then the remote list, before anything reaches the network: a detached HEAD
// never runs "remote", an unknown name stops before "push", and an unreadable list skips the check.
TEST(RemoteCommandChecks, PushRunsOnlyPastItsChecks) {
    struct Case {
        // git's answers to "symbolic-ref HEAD", then to "remote"; an absent one is a failure.
        std::vector<std::optional<std::string>> replies;
        std::string remote;
        std::optional<std::string> error;
        std::vector<Args> ran;
    };
    const std::vector<Case> cases{
        {{std::nullopt},
         "origin",
         "Cannot push: HEAD is detached. Check out a branch first.",
         {{"symbolic-ref", "HEAD"}}},
        {{"refs/heads/main\n", "origin\n"},
         "orign",
         "Cannot push: remote \"orign\" does not exist.",
         {{"symbolic-ref", "HEAD"}, {"remote"}}},
        {{"refs/heads/main\n", "origin\n  upstream  \n\n"},
         "upstream",
         std::nullopt,
         {{"symbolic-ref", "HEAD"}, {"remote"}, {"push", "-u", "--", "upstream", "HEAD"}}},
        // An unreadable remote list skips the check.
        {{"refs/heads/main\n", std::nullopt},
         "anything",
         std::nullopt,
         {{"symbolic-ref", "HEAD"}, {"remote"}, {"push", "-u", "--", "anything", "HEAD"}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.remote);
        RecordingExecutor git;
        for (const auto& reply : c.replies)
            reply ? git.reply(*reply) : git.fail("scripted");
        if (c.error)
            EXPECT_EQ(test::serviceError([&] { RemoteCommands::push(git, "/r", c.remote); }).description(),
                      *c.error);
        else
            RemoteCommands::push(git, "/r", c.remote);
        EXPECT_EQ(git.argumentLists(), c.ran);
    }
}

TEST(RemoteCommandChecks, AddRemoteRefusesAUrlThatLooksLikeAnOptionAndRunsNothing) {
    auto git = std::make_shared<RecordingExecutor>();
    NativeGitService service(git, std::make_shared<GitOpRunner>(1));
    const RepoEntry repo = test::RealGitService::repoAt("/r");
    const GitServiceError refused =
        test::serviceError([&] { test::await(service.addRemote(repo, "evil", "  -x")); });
    EXPECT_EQ(refused.kind(), GitServiceError::Kind::invalidInput);
    EXPECT_STREQ(refused.what(), "Invalid input: URL must not begin with '-': -x");
    EXPECT_THROW(test::await(service.addRemote(repo, "empty", " ")), GitServiceError);
    EXPECT_TRUE(git->calls().empty());
    // Blanks inside a url are the url's own; only the check trims.
    test::await(service.addRemote(repo, "spaced", " /srv/a b.git"));
    EXPECT_EQ(git->argumentLists(), (std::vector<Args>{{"remote", "add", "--", "spaced", " /srv/a b.git"}}));
}

// A bare "origin", a clone to work in ("local") and a second clone ("other") that pushes to origin.
class RemoteRepositories : public ::testing::Test {
  protected:
    void SetUp() override {
        TempRepo seed;
        seed.write("shared.txt", "one\ntwo\nthree\n");
        seed.commitAll("initial");
        seed.git({"push", "-q", origin.path(), "main"});
        local.git({"clone", "-q", origin.path(), "."});
        other.git({"clone", "-q", "file://" + origin.path(), "."});
    }

    static std::string commitIn(const TempRepo& clone, const std::string& file, const std::string& content,
                                const std::string& message) {
        clone.write(file, content);
        return clone.commitAll(message);
    }
    std::string originMain() const { return origin.rev("main"); }

    MergeResult pull(PullStrategy strategy) {
        return test::await(real.service.pull(repo(), "origin", strategy));
    }
    RepoEntry repo() const { return test::RealGitService::repoAt(local.path()); }

    TempRepo origin{TempRepo::Kind::bare};
    TempRepo local{TempRepo::Kind::uninitialised};
    TempRepo other{TempRepo::Kind::uninitialised};
    test::RealGitService real;
};

TEST_F(RemoteRepositories, AddingAndRemovingARemoteRenewsTheNamesTheGraphUses) {
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
    test::await(real.service.addRemote(repo(), "mirror", "file://" + other.path()));
    test::await(real.service.fetch(repo(), "mirror", false));
    EXPECT_EQ(remoteRefsOf(), (std::vector<std::string>{"mirror/main", "origin/HEAD", "origin/main"}));
    test::await(real.service.removeRemote(repo(), "mirror"));
    EXPECT_EQ(remoteRefsOf(), (std::vector<std::string>{"origin/HEAD", "origin/main"}));
}

TEST_F(RemoteRepositories, PullFastForwardsThenIsUpToDate) {
    const std::string theirs = commitIn(other, "theirs.txt", "x\n", "theirs");
    other.git({"push", "-q", "origin", "main"});
    EXPECT_EQ(expectCase<merge::FastForward>(pull(PullStrategy::fastForwardOnly)).newHead, theirs);
    EXPECT_EQ(local.head(), theirs);
    expectCase<merge::AlreadyUpToDate>(pull(PullStrategy::useConfig));
}

TEST_F(RemoteRepositories, PullOfDivergedHistoryByEachStrategy) {
    commitIn(other, "theirs.txt", "x\n", "theirs");
    other.git({"push", "-q", "origin", "main"});
    const std::string mine = commitIn(local, "mine.txt", "y\n", "mine");

    // Only a fast-forward is allowed: git refuses and the error carries its words.
    const GitServiceError refused = test::serviceError([&] { pull(PullStrategy::fastForwardOnly); });
    EXPECT_EQ(refused.command(), "pull");
    EXPECT_NE(refused.stderrText().find("Not possible to fast-forward"), std::string::npos)
        << refused.stderrText();
    EXPECT_EQ(local.head(), mine);

    const auto merged = expectCase<merge::Merged>(pull(PullStrategy::merge));
    EXPECT_EQ(merged.commitHash, local.head());
    // A merge commit whose first parent is the local commit.
    EXPECT_EQ(local.git({"log", "-1", "--format=%P"}).substr(0, 41), mine + " ");

    // Undo the merge and replay the local commit on top instead.
    local.git({"reset", "-q", "--hard", mine});
    const auto rebased = expectCase<merge::Merged>(pull(PullStrategy::rebase));
    EXPECT_EQ(rebased.commitHash, local.head());
    EXPECT_EQ(local.rev("HEAD~1"), local.rev("origin/main"));

    // The configured strategy applies when none is chosen.
    local.git({"reset", "-q", "--hard", mine});
    local.git({"config", "pull.rebase", "true"});
    expectCase<merge::Merged>(pull(PullStrategy::useConfig));
    EXPECT_EQ(local.rev("HEAD~1"), local.rev("origin/main"));
}

TEST_F(RemoteRepositories, ConflictingPullAnswersTheConflictedFiles) {
    commitIn(other, "shared.txt", "one\ntheirs\nthree\n", "theirs");
    other.git({"push", "-q", "origin", "main"});
    commitIn(local, "shared.txt", "one\nmine\nthree\n", "mine");

    const auto merging = expectCase<Conflicted>(pull(PullStrategy::merge));
    ASSERT_EQ(merging.files.size(), 1u);
    EXPECT_EQ(merging.files[0].path, "shared.txt");
    local.git({"merge", "--abort"});

    const auto rebasing = expectCase<Conflicted>(pull(PullStrategy::rebase));
    ASSERT_EQ(rebasing.files.size(), 1u);
    EXPECT_EQ(rebasing.files[0].path, "shared.txt");
}

TEST_F(RemoteRepositories, PushSetsUpstreamAndRejectedPushCarriesGitsWords) {
    const std::string mine = commitIn(local, "mine.txt", "y\n", "mine");
    local.git({"checkout", "-q", "-b", "topic"});
    test::await(real.service.push(repo(), "origin"));
    EXPECT_EQ(origin.rev("topic"), mine);
    EXPECT_EQ(local.git({"config", "branch.topic.remote"}), "origin\n");

    local.git({"checkout", "-q", "main"});
    test::await(real.service.pushBranch(repo(), "main", "origin"));
    EXPECT_EQ(originMain(), mine);

    other.git({"pull", "-q", "--no-rebase", "origin", "main"});
    commitIn(other, "theirs.txt", "x\n", "theirs");
    other.git({"push", "-q", "origin", "main"});
    commitIn(local, "mine2.txt", "z\n", "mine again");
    const GitServiceError rejected =
        test::serviceError([&] { test::await(real.service.push(repo(), "origin")); });
    EXPECT_EQ(rejected.kind(), GitServiceError::Kind::commandFailed);
    EXPECT_EQ(rejected.command(), "push");
    EXPECT_NE(rejected.stderrText().find("rejected"), std::string::npos) << rejected.stderrText();
    EXPECT_NE(originMain(), local.head());
}
