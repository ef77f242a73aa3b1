// The in-memory service hands out copies of its canned records: QCoro's co_return moves from a
// named member, which would leave the second caller with an emptied record.
#include "core/service/MockGitService.h"
#include "core/service/GitServiceError.h"
#include "support/Await.h"

#include <gtest/gtest.h>

using namespace orvel;

TEST(MockGitService, CannedRecordsSurviveRepeatedCalls) {
    MockGitService mock;
    const RepoEntry repo = test::await(mock.open("/canned"));
    EXPECT_EQ(repo.path, "/canned");
    const auto status = test::await(mock.status(repo));
    EXPECT_FALSE(status.files.empty());
    EXPECT_EQ(test::await(mock.status(repo)), status);
    const auto stashes = test::await(mock.stashList(repo));
    EXPECT_FALSE(stashes.empty());
    EXPECT_EQ(test::await(mock.stashList(repo)), stashes);
    const auto blame = test::await(mock.blame(repo, "README.md"));
    EXPECT_FALSE(blame.empty());
    EXPECT_EQ(test::await(mock.blame(repo, "README.md")), blame);
    for (int call = 0; call < 2; ++call) {
        EXPECT_EQ(test::await(mock.currentBranch(repo)), "main");
        EXPECT_EQ(test::await(mock.defaultBranch(repo)), "main");
    }
    EXPECT_THROW(test::await(mock.cloneRepository("-x", "/c")), GitServiceError);
}
