// The stash against real repositories: untracked files, a pop that stops on conflicts and keeps
// the stash, stashing one file, and entries chosen by index.
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

class StashInRepository : public test::RepositoryTest {
  protected:
    std::string porcelain() const { return repo.git({"status", "--porcelain=v1", "-uall"}); }
    std::vector<StashEntry> list() { return test::await(real.service.stashList(entry())); }
};

} // namespace

TEST_F(StashInRepository, UntrackedFilesGoIntoTheStashOnlyWhenAsked) {
    repo.write("a.txt", "base\n");
    repo.commitAll("base");
    repo.write("a.txt", "changed\n");
    repo.write("new file.txt", "new\n");

    test::await(real.service.stashSave(entry(), std::nullopt, false));
    EXPECT_EQ(porcelain(), "?? \"new file.txt\"\n");
    auto stashes = list();
    ASSERT_EQ(stashes.size(), 1u);
    EXPECT_FALSE(stashes[0].includesUntracked);
    EXPECT_EQ(stashes[0].message.rfind("WIP on main:", 0), 0u) << stashes[0].message;
    test::await(real.service.stashPop(entry()));

    test::await(real.service.stashSave(entry(), "keep $(this) \"safe\""s, true));
    EXPECT_EQ(porcelain(), "");
    stashes = list();
    ASSERT_EQ(stashes.size(), 1u);
    EXPECT_EQ(stashes[0].index, 0);
    EXPECT_EQ(stashes[0].message, "On main: keep $(this) \"safe\"");
    EXPECT_TRUE(stashes[0].includesUntracked);
    EXPECT_EQ(stashes[0].baseHash, repo.head());

    const OperationResult result = test::await(real.service.stashPop(entry()));
    EXPECT_TRUE(std::holds_alternative<operation::Success>(result));
    EXPECT_EQ(repo.read("a.txt"), "changed\n");
    EXPECT_EQ(repo.read("new file.txt"), "new\n");
    EXPECT_TRUE(list().empty());
}

TEST_F(StashInRepository, PopThatConflictsReportsTheFilesAndKeepsTheStash) {
    repo.write("a b.txt", "base\n");
    repo.commitAll("base");
    repo.write("a b.txt", "stashed\n");
    test::await(real.service.stashSave(entry(), "mine"s, false));
    repo.write("a b.txt", "committed\n");
    repo.commitAll("other");

    const OperationResult result = test::await(real.service.stashPop(entry()));
    ASSERT_TRUE(std::holds_alternative<Conflicted>(result));
    const auto& files = std::get<Conflicted>(result).files;
    ASSERT_EQ(files.size(), 1u);
    EXPECT_EQ(files[0].path, "a b.txt");
    EXPECT_EQ(files[0].conflictType, ConflictType::bothModified);
    ASSERT_EQ(list().size(), 1u); // git keeps a stash it could not apply cleanly
}

TEST_F(StashInRepository, ApplyOverLocalChangesIsAnErrorNotAConflict) {
    repo.write("a.txt", "base\n");
    repo.commitAll("base");
    repo.write("a.txt", "stashed\n");
    test::await(real.service.stashSave(entry(), std::nullopt, false));
    repo.write("a.txt", "dirty\n");
    const GitServiceError error =
        test::serviceError([&] { test::await(real.service.stashApply(entry(), 0)); });
    EXPECT_EQ(error.kind(), GitServiceError::Kind::commandFailed);
    EXPECT_NE(error.stderrText().find("overwritten"), std::string::npos) << error.stderrText();
    EXPECT_EQ(repo.read("a.txt"), "dirty\n");
    EXPECT_EQ(list().size(), 1u);
}

TEST_F(StashInRepository, StashFileTakesOnlyThatFile) {
    repo.write("tracked one.txt", "base\n");
    repo.write("-other.txt", "base\n");
    repo.commitAll("base");
    repo.write("tracked one.txt", "changed\n");
    repo.write("-other.txt", "changed too\n");
    repo.write("-untracked file.txt", "new\n");

    test::await(real.service.stashFile(entry(), "-untracked file.txt"));
    EXPECT_FALSE(std::filesystem::exists(repo / "-untracked file.txt"));
    EXPECT_EQ(porcelain(), " M -other.txt\n M \"tracked one.txt\"\n");

    test::await(real.service.stashFile(entry(), "tracked one.txt"));
    EXPECT_EQ(porcelain(), " M -other.txt\n");
    auto stashes = list();
    ASSERT_EQ(stashes.size(), 2u);
    EXPECT_FALSE(stashes[0].includesUntracked);
    EXPECT_TRUE(stashes[1].includesUntracked);

    test::await(real.service.stashApply(entry(), 1));
    EXPECT_EQ(repo.read("-untracked file.txt"), "new\n");
}

TEST_F(StashInRepository, ApplyAndDropByIndex) {
    repo.write("a.txt", "base\n");
    repo.commitAll("base");
    for (const char* content : {"first\n", "second\n", "third\n"}) {
        repo.write("a.txt", content);
        test::await(real.service.stashSave(entry(), std::string(content, 5), false));
    }
    auto stashes = list();
    ASSERT_EQ(stashes.size(), 3u);
    EXPECT_EQ(stashes[0].message, "On main: third");
    EXPECT_EQ(stashes[2].message, "On main: first");
    EXPECT_EQ(stashes[1].index, 1);

    const OperationResult applied = test::await(real.service.stashApply(entry(), 1));
    EXPECT_TRUE(std::holds_alternative<operation::Success>(applied));
    EXPECT_EQ(repo.read("a.txt"), "second\n");
    EXPECT_EQ(list().size(), 3u); // apply keeps the entry
    repo.git({"checkout", "--", "a.txt"});

    test::await(real.service.stashDrop(entry(), 1));
    stashes = list();
    ASSERT_EQ(stashes.size(), 2u);
    EXPECT_EQ(stashes[0].message, "On main: third");
    EXPECT_EQ(stashes[1].message, "On main: first");
    EXPECT_EQ(stashes[1].index, 1);

    EXPECT_THROW(test::await(real.service.stashDrop(entry(), 7)), GitServiceError);
    EXPECT_EQ(list().size(), 2u);
}
