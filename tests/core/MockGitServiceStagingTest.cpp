// The in-memory service keeps its canned working tree and graph consistent: staged changes move
// into a new HEAD commit, an amend replaces HEAD, and the history follows HEAD's first parents.
#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"
#include "support/Await.h"

#include <gtest/gtest.h>

using namespace orvel;

TEST(MockGitServiceStaging, StagedChangesBecomeTheNewHeadCommit) {
    MockGitService mock;
    const RepoEntry repo = test::await(mock.open("/mock"));
    EXPECT_THROW(test::await(mock.stage(repo, "no-such-file")), GitServiceError);
    test::await(mock.stage(repo, "notes.txt"));
    test::await(mock.unstage(repo, "README.md"));
    // Read the field itself: `status` co_returns it as an lvalue, which QCoro 0.8 moves from.
    const StatusResult& tree = mock.workingTree;
    ASSERT_EQ(tree.files.size(), 3u);
    EXPECT_EQ(tree.files[0].status,
              FileStatusKind::tracked(TrackedStatus::unmodified, TrackedStatus::modified));
    EXPECT_EQ(tree.files[2].status, FileStatusKind::tracked(TrackedStatus::added, TrackedStatus::unmodified));

    const auto before = test::await(mock.commitHistory(repo, 10));
    const CommitEntry made = test::await(mock.commit(repo, "Add notes\n\nWhy they matter."));
    EXPECT_EQ(made.subject, "Add notes");
    EXPECT_EQ(made.body, "Why they matter.");
    EXPECT_EQ(made.parentHashes, std::vector<std::string>{before.front().hash});
    EXPECT_EQ(made.refs, std::vector<std::string>{"HEAD -> main"});
    const auto after = test::await(mock.commitHistory(repo, 10));
    ASSERT_EQ(after.size(), before.size() + 1);
    EXPECT_EQ(after[1].refs, std::vector<std::string>{"origin/main"});
    EXPECT_EQ(mock.workingTree.files.size(), 2u);
    EXPECT_THROW(test::await(mock.commit(repo, "nothing staged")), GitServiceError);

    const CommitEntry amended = test::await(mock.amendCommit(repo, "Add the notes"));
    EXPECT_NE(amended.hash, made.hash);
    EXPECT_EQ(amended.parentHashes, made.parentHashes);
    const auto graph = test::await(mock.commitGraph(repo, 100));
    EXPECT_EQ(graph.size(), before.size() + 2); // the feature branch's commit is in the graph only
    EXPECT_EQ(graph.front().subject, "Add the notes");
    EXPECT_TRUE(graph.front().isHead);
    EXPECT_EQ(test::await(mock.commitGraph(repo, 2)).size(), 2u);
}

TEST(MockGitServiceStaging, DiscardingAnUntrackedFileFails) {
    MockGitService mock;
    const RepoEntry repo = test::await(mock.open("/mock"));
    EXPECT_THROW(test::await(mock.discardChanges(repo, "notes.txt", false)), GitServiceError);
    test::await(mock.discardChanges(repo, "src/main.cpp", false));
    EXPECT_EQ(mock.workingTree.files.size(), 2u);
}
