// Cherry-pick, revert and reset against real repositories, and settling a conflict by taking one
// side: success, conflicts reported with their files, an empty pick as git's error, and each
// reset mode's effect on HEAD, index and work tree.
#include "RealGitService.h"

#include "core/service/GitServiceError.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

using namespace orvel;
using namespace std::string_literals;
using orvel::test::TempRepo;

namespace {

const std::string awkward = "-a b.txt";

class HistoryEditInRepository : public test::RepositoryTest {
  protected:
    std::string porcelain() const { return repo.git({"status", "--porcelain=v1", "-uall"}); }
    std::string subject() const { return repo.git({"log", "-1", "--format=%s"}); }
    std::string unmerged() const { return repo.git({"diff", "--name-only", "--diff-filter=U"}); }

    // main and "side" both change `awkward` from "base"; answers side's commit.
    std::string divergedBranches() {
        repo.write(awkward, "base\n");
        repo.commitAll("base");
        repo.git({"checkout", "-q", "-b", "side"});
        repo.write(awkward, "theirs\n");
        const std::string theirs = repo.commitAll("theirs");
        repo.git({"checkout", "-q", "main"});
        repo.write(awkward, "ours\n");
        repo.commitAll("ours");
        return theirs;
    }
};

std::vector<std::string> conflictPaths(const OperationResult& result) {
    std::vector<std::string> paths;
    if (const auto* conflicted = std::get_if<Conflicted>(&result))
        for (const auto& file : conflicted->files)
            paths.push_back(file.path);
    return paths;
}

} // namespace

TEST_F(HistoryEditInRepository, CherryPickCopiesTheCommitOnceAndThenFindsItEmpty) {
    repo.write("a.txt", "a\n");
    repo.commitAll("base");
    repo.git({"checkout", "-q", "-b", "side"});
    repo.write("f $(x).txt", "picked\n");
    const std::string picked = repo.commitAll("add f");
    repo.git({"checkout", "-q", "main"});
    repo.write("a.txt", "a2\n");
    repo.commitAll("main moves on");

    const OperationResult result = test::await(real.service.cherryPick(entry(), picked));
    ASSERT_TRUE(std::holds_alternative<operation::Success>(result));
    EXPECT_FALSE(std::get<operation::Success>(result).commitHash.has_value());
    EXPECT_EQ(repo.read("f $(x).txt"), "picked\n");
    EXPECT_EQ(subject(), "add f\n");
    EXPECT_NE(repo.head(), picked);
    EXPECT_EQ(repo.read("a.txt"), "a2\n");

    // Picking it again changes nothing: git's own error, not a conflict.
    const GitServiceError error =
        test::serviceError([&] { test::await(real.service.cherryPick(entry(), picked)); });
    EXPECT_EQ(error.kind(), GitServiceError::Kind::commandFailed);
    EXPECT_NE(error.stderrText().find("empty"), std::string::npos) << error.stderrText();
    EXPECT_THROW(test::await(real.service.cherryPick(entry(), std::string(40, '0'))), GitServiceError);
}

TEST_F(HistoryEditInRepository, CherryPickConflictThenTheirs) {
    const std::string theirs = divergedBranches();
    const OperationResult result = test::await(real.service.cherryPick(entry(), theirs));
    EXPECT_EQ(conflictPaths(result), std::vector<std::string>{awkward});

    // A path that is not in conflict fails and stages nothing.
    EXPECT_THROW(test::await(real.service.resolveConflictUsingOurs(entry(), "-missing file")),
                 GitServiceError);
    EXPECT_EQ(unmerged(), awkward + "\n");

    test::await(real.service.resolveConflictUsingTheirs(entry(), awkward));
    EXPECT_EQ(repo.read(awkward), "theirs\n");
    EXPECT_EQ(unmerged(), "");
    EXPECT_EQ(porcelain(), "M  \"" + awkward + "\"\n");
}

TEST_F(HistoryEditInRepository, RevertUndoesACommitOrStopsOnAConflictThenOurs) {
    repo.write(awkward, "one\n");
    repo.commitAll("one");
    repo.write(awkward, "two\n");
    const std::string two = repo.commitAll("two");
    EXPECT_TRUE(std::holds_alternative<operation::Success>(test::await(real.service.revert(entry(), two))));
    EXPECT_EQ(repo.read(awkward), "one\n");
    EXPECT_EQ(subject(), "Revert \"two\"\n");
    EXPECT_EQ(porcelain(), "");

    repo.write(awkward, "three\n");
    repo.commitAll("three");
    EXPECT_EQ(conflictPaths(test::await(real.service.revert(entry(), two))),
              std::vector<std::string>{awkward});
    test::await(real.service.resolveConflictUsingOurs(entry(), awkward));
    EXPECT_EQ(repo.read(awkward), "three\n");
    EXPECT_EQ(unmerged(), "");
}

TEST_F(HistoryEditInRepository, ResetInEachMode) {
    repo.write("a.txt", "one\n");
    repo.write("c.txt", "c\n");
    const std::string one = repo.commitAll("one");
    repo.write("a.txt", "two\n");
    const std::string two = repo.commitAll("two");

    test::await(real.service.reset(entry(), one, ResetMode::soft));
    EXPECT_EQ(repo.head(), one);
    EXPECT_EQ(porcelain(), "M  a.txt\n");

    repo.git({"reset", "-q", "--hard", two});
    test::await(real.service.reset(entry(), one, ResetMode::mixed));
    EXPECT_EQ(repo.head(), one);
    EXPECT_EQ(porcelain(), " M a.txt\n");

    repo.git({"reset", "-q", "--hard", two});
    repo.write("a.txt", "dirty\n");
    test::await(real.service.reset(entry(), one, ResetMode::hard));
    EXPECT_EQ(repo.head(), one);
    EXPECT_EQ(porcelain(), "");
    EXPECT_EQ(repo.read("a.txt"), "one\n");

    // keep and merge carry a local change to a file that both commits have alike
    repo.git({"reset", "-q", "--hard", two});
    repo.write("c.txt", "local c\n");
    test::await(real.service.reset(entry(), one, ResetMode::keep));
    EXPECT_EQ(repo.head(), one);
    EXPECT_EQ(repo.read("a.txt"), "one\n");
    EXPECT_EQ(repo.read("c.txt"), "local c\n");

    repo.write("a.txt", "local a\n");
    EXPECT_THROW(test::await(real.service.reset(entry(), two, ResetMode::keep)), GitServiceError);
    EXPECT_EQ(repo.head(), one); // keep refuses to lose the local change to a.txt
    repo.git({"checkout", "--", "a.txt"});

    test::await(real.service.reset(entry(), two, ResetMode::merge));
    EXPECT_EQ(repo.head(), two);
    EXPECT_EQ(repo.read("a.txt"), "two\n");
    EXPECT_EQ(repo.read("c.txt"), "local c\n");
}
