// Opening, creating and cloning repositories: the default-branch choice, the state markers, user
// paths and URLs kept from git's options, and what real repositories of every shape open as.
#include "RealGitService.h"

#include "core/commands/RepositoryCommands.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/GitServiceError.h"
#include "core/service/NativeGitService.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/RecordingExecutor.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

using namespace orvel;
using test::RecordingExecutor;
using test::TempDir;
using test::TempRepo;
using Args = std::vector<std::string>;

TEST(DefaultBranch, RemoteHeadWinsElseMainThenMasterThenTheFirstLocalBranch) {
    struct Case {
        std::optional<std::string> remoteHead; // absent: origin/HEAD is not a symbolic ref
        std::string localBranches;
        std::optional<std::string> expected;
    };
    const std::vector<Case> cases{
        {"refs/remotes/origin/feature/main\n", "", "main"},
        {std::nullopt, "develop\nmaster\nmain\n", "main"},
        {std::nullopt, "develop\n  master \n", "master"},
        {std::nullopt, "develop\nzeta\n", "develop"},
        {std::nullopt, "\n", std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.localBranches);
        RecordingExecutor git;
        if (c.remoteHead)
            git.reply(*c.remoteHead);
        else
            git.fail("symbolic-ref");
        git.reply(c.localBranches);
        EXPECT_EQ(RepositoryCommands::defaultBranch(git, "/r"), c.expected);
    }
}

TEST(CloneAndInit, InitPathsStandBehindTheSeparatorAndOptionLikeUrlsAreRefused) {
    RecordingExecutor git;
    TempDir dir;
    RepositoryCommands::init(git, dir / "-new/nested", std::string("trunk"));
    RepositoryCommands::init(git, dir / "plain", std::nullopt);
    EXPECT_EQ(git.argumentLists(), (std::vector<Args>{{"init", "-b", "trunk", "--", dir / "-new/nested"},
                                                      {"init", "--", dir / "plain"}}));
    EXPECT_EQ(git.calls()[0].repoPath, dir / "-new/nested");
    EXPECT_TRUE(std::filesystem::is_directory(dir / "-new/nested"));

    for (const auto& [input, message] : std::vector<std::pair<std::string, std::string>>{
             {"  --upload-pack=touch /tmp/pwned ",
              "Invalid input: URL must not begin with '-': --upload-pack=touch /tmp/pwned"},
             {" \t ", "Invalid input: URL must not be empty"}})
        EXPECT_STREQ(test::serviceError([url = input] { RepositoryCommands::validateCloneUrl(url); }).what(),
                     message.c_str());
}

TEST(StateDetection, MarkerFilesInTheirFixedOrder) {
    TempDir gitDir;
    EXPECT_EQ(RepositoryCommands::detectState(gitDir.path()), RepositoryState::clean);
    // Each marker added wins over the ones before it.
    for (const auto& [marker, state] : std::vector<std::pair<std::string, RepositoryState>>{
             {"BISECT_LOG", RepositoryState::bisecting},
             {"REVERT_HEAD", RepositoryState::reverting},
             {"CHERRY_PICK_HEAD", RepositoryState::cherryPicking},
             {"rebase-apply/patch", RepositoryState::rebasing},
             {"rebase-apply/applying", RepositoryState::applyingMailbox},
             {"MERGE_HEAD", RepositoryState::merging}}) {
        test::writeFile(gitDir / marker, "");
        EXPECT_EQ(RepositoryCommands::detectState(gitDir.path()), state) << marker;
    }
}

namespace {

class OpenRealRepository : public ::testing::Test {
  protected:
    test::RealGitService real;
    NativeGitService& service = real.service;

    RepoEntry open(const std::string& path) { return test::await(service.open(path)); }
};

} // namespace

TEST_F(OpenRealRepository, UnbornBareAndDetachedRepositories) {
    // An unborn branch has a name but no head.
    TempRepo repo;
    const RepoEntry entry = open(repo.path());
    EXPECT_EQ(entry.path, repo.path());
    EXPECT_EQ(entry.gitDirPath, repo / ".git");
    EXPECT_EQ(entry.commonDirPath, repo / ".git");
    EXPECT_FALSE(entry.isBare);
    EXPECT_EQ(entry.currentBranch, "main");
    EXPECT_FALSE(entry.headHash);
    EXPECT_EQ(entry.state, RepositoryState::clean);

    // A bare repository's git directory is "." joined to its path.
    TempRepo bare(TempRepo::Kind::bare);
    const RepoEntry bareEntry = open(bare.path());
    EXPECT_TRUE(bareEntry.isBare);
    EXPECT_EQ(std::filesystem::weakly_canonical(*bareEntry.gitDirPath), bare.path());

    // A detached head has no branch.
    const std::string first = repo.commitAll("first");
    repo.commitAll("second");
    repo.git({"checkout", "-q", first});
    const RepoEntry detached = open(repo.path());
    EXPECT_EQ(detached.headHash, first);
    EXPECT_FALSE(detached.currentBranch);
}

TEST_F(OpenRealRepository, LinkedWorktreeKeepsItsAbsoluteGitDirAndItsOwnState) {
    TempRepo repo;
    repo.divergeOnOneFile();
    TempDir place;
    const std::string worktree = place / "wt";
    repo.git({"worktree", "add", "-q", worktree, "topic"});
    EXPECT_NE(test::gitAllowingFailure(worktree, {"merge", "main"}).exitCode, 0);

    const RepoEntry entry = open(worktree);
    EXPECT_EQ(entry.currentBranch, "topic");
    EXPECT_EQ(entry.gitDirPath, repo / ".git/worktrees/wt");
    EXPECT_EQ(entry.commonDirPath, repo / ".git");
    EXPECT_EQ(entry.state, RepositoryState::merging);
    EXPECT_EQ(open(repo.path()).state, RepositoryState::clean);
    // The stop's prepared message is in the worktree's own git directory, not the main one's.
    EXPECT_EQ(test::await(service.preparedCommitMessage(entry)), "Merge branch 'main' into topic");
    EXPECT_EQ(test::await(service.preparedCommitMessage(open(repo.path()))), std::nullopt);
    // The state alone is read from the same git directory.
    EXPECT_EQ(test::await(service.repositoryState(entry)), RepositoryState::merging);
    EXPECT_EQ(test::await(service.repositoryState(open(repo.path()))), RepositoryState::clean);
}

TEST_F(OpenRealRepository, NotARepositoryFailsWithGitsWords) {
    TempDir plain;
    const GitServiceError error = test::serviceError([&] { open(plain.path()); });
    EXPECT_EQ(error.command(), "rev-parse");
    EXPECT_NE(error.stderrText().find("not a git repository"), std::string::npos);
}

TEST_F(OpenRealRepository, CloneFromALocalBareRepositoryAndInit) {
    TempRepo origin;
    origin.write("readme", "hello\n");
    const std::string head = origin.commitAll("first");
    TempRepo bare(TempRepo::Kind::uninitialised);
    test::git(bare.path(), {"clone", "-q", "--bare", origin.path(), "origin.git"});

    TempDir place;
    const RepoEntry clone = test::await(service.cloneRepository(bare / "origin.git", place / "clone"));
    EXPECT_EQ(clone.path, place / "clone");
    EXPECT_EQ(clone.headHash, head);
    EXPECT_EQ(clone.currentBranch, "main");
    EXPECT_EQ(test::await(service.defaultBranch(clone)), "main");
    EXPECT_EQ(test::await(service.currentBranch(clone)), "main");

    const RepoEntry created = test::await(service.initRepository(place / "a/b/new", std::string("trunk")));
    EXPECT_EQ(created.currentBranch, "trunk");
    EXPECT_FALSE(created.headHash);
    EXPECT_EQ(test::await(service.defaultBranch(created)), std::nullopt);
}
