// Opening, creating and cloning repositories: the exact commands, and what real repositories of
// every shape and in-progress state open as.
#include "core/commands/RepositoryCommands.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/GitServiceError.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/RecordingExecutor.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace orvel;
using test::RecordingExecutor;
using test::TempDir;
using test::TempRepo;
using Args = std::vector<std::string>;

TEST(OpenCommands, ArgumentListsAndRelativeGitDir) {
    RecordingExecutor git;
    git.reply(".git\nfalse\n");
    git.reply("abc123\n");
    git.reply("main\n");
    const RepoEntry entry = RepositoryCommands::open(git, "/r");
    EXPECT_EQ(git.argumentLists(), (std::vector<Args>{{"rev-parse", "--git-dir", "--is-bare-repository"},
                                                      {"rev-parse", "HEAD"},
                                                      {"symbolic-ref", "--short", "HEAD"}}));
    EXPECT_EQ(git.calls()[0].repoPath, "/r");
    EXPECT_EQ(entry.gitDirPath, "/r/.git");
    EXPECT_FALSE(entry.isBare);
    EXPECT_EQ(entry.headHash, "abc123");
    EXPECT_EQ(entry.currentBranch, "main");
}

TEST(OpenCommands, FailedLookUpsOnlyLeaveFieldsAbsent) {
    RecordingExecutor git;
    git.reply("/abs/gitdir\ntrue\n");
    git.fail(std::make_exception_ptr(GitServiceError::commandFailed("rev-parse", "unknown revision")));
    git.reply("\n");
    const RepoEntry entry = RepositoryCommands::open(git, "/r");
    EXPECT_EQ(entry.gitDirPath, "/abs/gitdir");
    EXPECT_TRUE(entry.isBare);
    EXPECT_FALSE(entry.headHash);
    EXPECT_FALSE(entry.currentBranch);
}

TEST(OpenCommands, NoRepositoryIsAnError) {
    RecordingExecutor git;
    git.fail(std::make_exception_ptr(GitServiceError::commandFailed("rev-parse", "fatal: not a git repository")));
    EXPECT_THROW(RepositoryCommands::open(git, "/nowhere"), GitServiceError);
}

TEST(DefaultBranch, RemoteHeadWinsAndIsCutToItsLastComponent) {
    RecordingExecutor git;
    git.reply("refs/remotes/origin/feature/main\n");
    EXPECT_EQ(RepositoryCommands::defaultBranch(git, "/r"), "main");
    EXPECT_EQ(git.argumentLists(), (std::vector<Args>{{"symbolic-ref", "refs/remotes/origin/HEAD"}}));
}

TEST(DefaultBranch, LocalBranchesPreferMainThenMasterThenTheFirst) {
    auto answer = [](std::string listing) {
        RecordingExecutor git;
        git.fail(std::make_exception_ptr(GitServiceError::commandFailed("symbolic-ref", "not a symbolic ref")));
        git.reply(std::move(listing));
        auto branch = RepositoryCommands::defaultBranch(git, "/r");
        EXPECT_EQ(git.argumentLists().back(), (Args{"branch", "--list", "--format=%(refname:short)"}));
        return branch;
    };
    EXPECT_EQ(answer("develop\nmaster\nmain\n"), "main");
    EXPECT_EQ(answer("develop\n  master \n"), "master");
    EXPECT_EQ(answer("develop\nzeta\n"), "develop");
    EXPECT_EQ(answer("\n"), std::nullopt);
}

TEST(CloneAndInit, ArgumentLists) {
    RecordingExecutor git;
    RepositoryCommands::clone(git, "https://example.invalid/r.git", "/abs/target");
    TempDir dir;
    RepositoryCommands::init(git, dir / "new/nested", std::string("trunk"));
    RepositoryCommands::init(git, dir / "plain", std::nullopt);
    const auto calls = git.calls();
    EXPECT_EQ(calls[0].arguments, (Args{"clone", "https://example.invalid/r.git", "/abs/target"}));
    EXPECT_EQ(calls[0].repoPath, "/");
    EXPECT_EQ(calls[1].arguments, (Args{"init", "-b", "trunk", "--", dir / "new/nested"}));
    EXPECT_EQ(calls[1].repoPath, dir / "new/nested");
    EXPECT_TRUE(std::filesystem::is_directory(dir / "new/nested"));
    EXPECT_EQ(calls[2].arguments, (Args{"init", "--", dir / "plain"}));
}

TEST(CloneAndInit, UrlsThatGitWouldReadAsOptionsAreRefused) {
    try {
        RepositoryCommands::validateCloneUrl("  --upload-pack=touch /tmp/pwned ");
        FAIL();
    } catch (const GitServiceError& error) {
        EXPECT_STREQ(error.what(), "Invalid input: URL must not begin with '-': --upload-pack=touch /tmp/pwned");
    }
    try {
        RepositoryCommands::validateCloneUrl(" \t ");
        FAIL();
    } catch (const GitServiceError& error) {
        EXPECT_STREQ(error.what(), "Invalid input: URL must not be empty");
    }
}

TEST(StateDetection, MarkerFilesInTheirFixedOrder) {
    TempDir gitDir;
    auto touch = [&](const std::string& relative) { test::writeFile(gitDir / relative, ""); };
    EXPECT_EQ(RepositoryCommands::detectState(gitDir.path()), RepositoryState::clean);
    touch("BISECT_LOG");
    EXPECT_EQ(RepositoryCommands::detectState(gitDir.path()), RepositoryState::bisecting);
    touch("REVERT_HEAD");
    EXPECT_EQ(RepositoryCommands::detectState(gitDir.path()), RepositoryState::reverting);
    touch("CHERRY_PICK_HEAD");
    EXPECT_EQ(RepositoryCommands::detectState(gitDir.path()), RepositoryState::cherryPicking);
    touch("rebase-apply/patch");
    EXPECT_EQ(RepositoryCommands::detectState(gitDir.path()), RepositoryState::rebasing);
    touch("rebase-apply/applying");
    EXPECT_EQ(RepositoryCommands::detectState(gitDir.path()), RepositoryState::applyingMailbox);
    touch("MERGE_HEAD");
    EXPECT_EQ(RepositoryCommands::detectState(gitDir.path()), RepositoryState::merging);
}

namespace {

class OpenRealRepository : public ::testing::Test {
protected:
    InMemoryUserDefaults defaults;
    NativeGitService service{std::make_shared<SubprocessExecutor>(std::nullopt, defaults),
                             std::make_shared<GitOpRunner>(4)};

    RepoEntry open(const std::string& path) { return test::await(service.open(path)); }
};

} // namespace

TEST_F(OpenRealRepository, UnbornBranchHasANameButNoHead) {
    TempRepo repo;
    const RepoEntry entry = open(repo.path());
    EXPECT_EQ(entry.path, repo.path());
    EXPECT_EQ(entry.gitDirPath, repo / ".git");
    EXPECT_FALSE(entry.isBare);
    EXPECT_EQ(entry.currentBranch, "main");
    EXPECT_FALSE(entry.headHash);
    EXPECT_EQ(entry.state, RepositoryState::clean);
}

TEST_F(OpenRealRepository, BareRepositoryJoinsDotToItsPath) {
    TempRepo repo(TempRepo::Kind::bare);
    const RepoEntry entry = open(repo.path());
    EXPECT_TRUE(entry.isBare);
    EXPECT_EQ(std::filesystem::weakly_canonical(*entry.gitDirPath), repo.path());
}

TEST_F(OpenRealRepository, DetachedHeadHasNoBranch) {
    TempRepo repo;
    const std::string first = repo.commitAll("first");
    repo.commitAll("second");
    repo.git({"checkout", "-q", first});
    const RepoEntry entry = open(repo.path());
    EXPECT_EQ(entry.headHash, first);
    EXPECT_FALSE(entry.currentBranch);
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
    EXPECT_EQ(entry.state, RepositoryState::merging);
    EXPECT_EQ(open(repo.path()).state, RepositoryState::clean);
}

TEST_F(OpenRealRepository, EveryInProgressStateFromRealCommands) {
    {
        TempRepo repo;
        repo.divergeOnOneFile();
        repo.gitAllowingFailure({"merge", "topic"});
        EXPECT_EQ(open(repo.path()).state, RepositoryState::merging);
    }
    {
        TempRepo repo;
        repo.divergeOnOneFile();
        repo.gitAllowingFailure({"rebase", "topic"});
        EXPECT_EQ(open(repo.path()).state, RepositoryState::rebasing);
    }
    {
        TempRepo repo;
        repo.divergeOnOneFile();
        repo.gitAllowingFailure({"cherry-pick", "topic"});
        EXPECT_EQ(open(repo.path()).state, RepositoryState::cherryPicking);
    }
    {
        TempRepo repo;
        repo.divergeOnOneFile();
        repo.write("file", "later\n");
        repo.commitAll("later");
        repo.gitAllowingFailure({"revert", "--no-edit", "HEAD~1"});
        EXPECT_EQ(open(repo.path()).state, RepositoryState::reverting);
    }
    {
        TempRepo repo;
        repo.divergeOnOneFile();
        repo.git({"bisect", "start"});
        EXPECT_EQ(open(repo.path()).state, RepositoryState::bisecting);
    }
    {
        TempRepo repo;
        repo.divergeOnOneFile();
        const std::string patch = repo.git({"format-patch", "-1", "--stdout", "topic"});
        repo.write("topic.patch", patch);
        repo.gitAllowingFailure({"am", repo / "topic.patch"});
        EXPECT_EQ(open(repo.path()).state, RepositoryState::applyingMailbox);
    }
}

TEST_F(OpenRealRepository, NotARepositoryFailsWithGitsWords) {
    TempDir plain;
    try {
        open(plain.path());
        FAIL() << "expected an error";
    } catch (const GitServiceError& error) {
        EXPECT_EQ(error.command(), "rev-parse");
        EXPECT_NE(error.stderrText().find("not a git repository"), std::string::npos);
    }
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

TEST_F(OpenRealRepository, CloneWithAnOptionLikeUrlRunsNothing) {
    TempDir place;
    EXPECT_THROW(test::await(service.cloneRepository("--upload-pack=touch " + (place / "pwned"), place / "c")),
                 GitServiceError);
    EXPECT_TRUE(std::filesystem::is_empty(place.path()));
}
