// Branch commands: what they do to real repositories, the reading of merged branches, and the
// refusal of names that git would read as options before git runs.
#include "RealGitService.h"

#include "core/commands/BranchCommands.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/GitServiceError.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/RecordingExecutor.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

using namespace orvel;
using test::RecordingExecutor;
using test::TempRepo;
using Args = std::vector<std::string>;

namespace {

std::string stderrOf(const std::function<void()>& call) {
    const GitServiceError error = test::serviceError(call);
    EXPECT_EQ(error.kind(), GitServiceError::Kind::commandFailed);
    return error.stderrText();
}

} // namespace

TEST(BranchCommandLines, OptionLikeNamesAreRefusedBeforeGitRuns) {
    RecordingExecutor git;
    const std::vector<std::function<void()>> calls = {
        [&] { BranchCommands::createBranch(git, "/r", "-D", std::nullopt); },
        [&] { BranchCommands::createBranch(git, "/r", "ok", "--orphan"); },
        [&] { BranchCommands::checkoutBranch(git, "/r", "-f"); },
        [&] { BranchCommands::checkoutNewBranch(git, "/r", "-b", "main"); },
        [&] { BranchCommands::checkoutNewBranch(git, "/r", "ok", "--detach"); },
        [&] { BranchCommands::deleteBranch(git, "/r", "--all", true); },
        [&] { BranchCommands::renameBranch(git, "/r", "-M", "x"); },
        [&] { BranchCommands::renameBranch(git, "/r", "x", "--copy"); },
        [&] { BranchCommands::deleteRemoteBranch(git, "/r", "--mirror", "x"); },
        [&] { BranchCommands::deleteRemoteBranch(git, "/r", "origin", "--all"); },
        [&] { BranchCommands::mergedBranches(git, "/r", "--no-merged"); },
    };
    for (const auto& call : calls)
        EXPECT_EQ(test::serviceError(call).kind(), GitServiceError::Kind::invalidInput);
    EXPECT_TRUE(git.calls().empty());
}

namespace {

class BranchesInRealRepository : public ::testing::Test {
  protected:
    InMemoryUserDefaults defaults;
    SubprocessExecutor git{std::nullopt, defaults};
    TempRepo repo;

    void SetUp() override {
        repo.write("file", "base\n");
        repo.commitAll("base");
    }

    std::vector<std::string> localNames() {
        std::vector<std::string> names;
        for (const BranchEntry& branch : BranchCommands::branches(git, repo.path()))
            if (!branch.isRemote)
                names.push_back(branch.name);
        return names;
    }

    std::string current() { return repo.git({"symbolic-ref", "--short", "HEAD"}); }
};

} // namespace

TEST_F(BranchesInRealRepository, CreateCheckoutRenameAndDeleteANestedName) {
    const std::string base = repo.head();
    BranchCommands::createBranch(git, repo.path(), "a/b/c", std::nullopt);
    EXPECT_EQ(localNames(), (Args{"a/b/c", "main"}));

    BranchCommands::checkoutBranch(git, repo.path(), "a/b/c");
    EXPECT_EQ(current(), "a/b/c\n");
    const auto listed = BranchCommands::branches(git, repo.path());
    const auto nested = std::ranges::find(listed, std::string("a/b/c"), &BranchEntry::name);
    ASSERT_NE(nested, listed.end());
    EXPECT_TRUE(nested->isCurrent);
    EXPECT_EQ(nested->fullRefName, "refs/heads/a/b/c");
    EXPECT_EQ(nested->hash, base);
    EXPECT_EQ(nested->lastCommitSubject, "base");

    BranchCommands::renameBranch(git, repo.path(), "a/b/c", "a/b/d");
    EXPECT_EQ(current(), "a/b/d\n");
    BranchCommands::checkoutBranch(git, repo.path(), "main");
    BranchCommands::deleteBranch(git, repo.path(), "a/b/d", false);
    EXPECT_EQ(localNames(), (Args{"main"}));
}

TEST_F(BranchesInRealRepository, CreateAndCheckoutFromAStartPoint) {
    const std::string base = repo.head();
    repo.write("file", "second\n");
    repo.commitAll("second");
    BranchCommands::createBranch(git, repo.path(), "old", base);
    EXPECT_EQ(repo.rev("old"), base);
    EXPECT_EQ(current(), "main\n");

    BranchCommands::checkoutNewBranch(git, repo.path(), "fix", "old");
    EXPECT_EQ(current(), "fix\n");
    EXPECT_EQ(repo.head(), base);
    EXPECT_EQ(repo.read("file"), "base\n");
}

TEST_F(BranchesInRealRepository, GitErrorsReachTheCallerAndChangeNothing) {
    repo.git({"checkout", "-q", "-b", "topic"});
    repo.write("file", "topic\n");
    repo.commitAll("topic");
    repo.git({"checkout", "-q", "main"});

    EXPECT_NE(stderrOf([&] {
                  BranchCommands::deleteBranch(git, repo.path(), "topic", false);
              }).find("not fully merged"),
              std::string::npos);
    EXPECT_NE(stderrOf([&] {
                  BranchCommands::createBranch(git, repo.path(), "topic", std::nullopt);
              }).find("already exists"),
              std::string::npos);
    EXPECT_FALSE(stderrOf([&] { BranchCommands::checkoutBranch(git, repo.path(), "nowhere"); }).empty());
    EXPECT_FALSE(stderrOf([&] { BranchCommands::deleteBranch(git, repo.path(), "main", true); }).empty());
    EXPECT_EQ(localNames(), (Args{"main", "topic"}));
    BranchCommands::deleteBranch(git, repo.path(), "topic", true);
    EXPECT_EQ(localNames(), (Args{"main"}));
}

TEST_F(BranchesInRealRepository, MergedBranchesListsReachableTipsButNotTheTarget) {
    repo.git({"branch", "merged-one"});
    repo.git({"branch", "deep/merged-two"});
    repo.git({"checkout", "-q", "-b", "ahead"});
    repo.commitAll("ahead");
    repo.git({"checkout", "-q", "main"});
    EXPECT_EQ(BranchCommands::mergedBranches(git, repo.path(), "main"),
              (Args{"deep/merged-two", "merged-one"}));
    EXPECT_EQ(BranchCommands::mergedBranches(git, repo.path(), "ahead"),
              (Args{"deep/merged-two", "main", "merged-one"}));
}

TEST(BranchService, NativeServiceRunsTheCommandsInTheRepositoryQueue) {
    test::RealGitService real;
    NativeGitService& service = real.service;
    TempRepo repo;
    repo.commitAll("base");
    const RepoEntry entry = test::await(service.open(repo.path()));
    test::await(service.checkoutNewBranch(entry, "topic", "main"));
    test::await(service.createBranch(entry, "later", std::nullopt));
    test::await(service.renameBranch(entry, "later", "renamed"));
    EXPECT_EQ(test::await(service.mergedBranches(entry, "topic")), (Args{"main", "renamed"}));
    test::await(service.deleteBranch(entry, "renamed", false));
    const auto branches = test::await(service.branches(entry));
    ASSERT_EQ(branches.size(), 2u);
    EXPECT_EQ(branches[1].name, "topic");
    EXPECT_TRUE(branches[1].isCurrent);
    EXPECT_THROW(test::await(service.checkoutBranch(entry, "-q")), GitServiceError);
}
