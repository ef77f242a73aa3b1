#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"
#include "support/Await.h"

#include <gtest/gtest.h>

using namespace orvel;

TEST(MockGitService, CannedRecordsSurviveRepeatedCalls) {
    MockGitService mock;
    const RepoEntry repo = test::await(mock.open("/canned"));
    EXPECT_EQ(repo.path, "/canned");
    const auto first = test::await(mock.status(repo));
    EXPECT_FALSE(first.files.empty());
    EXPECT_EQ(test::await(mock.status(repo)), first);
    EXPECT_EQ(test::await(mock.currentBranch(repo)), "main");
    EXPECT_EQ(test::await(mock.currentBranch(repo)), "main");
    EXPECT_EQ(test::await(mock.defaultBranch(repo)), "main");
    EXPECT_EQ(test::await(mock.defaultBranch(repo)), "main");
    EXPECT_THROW(test::await(mock.cloneRepository("-x", "/c")), GitServiceError);
}
