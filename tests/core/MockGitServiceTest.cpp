// The in-memory service refuses what the native one refuses before running anything.
#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"
#include "support/Await.h"

#include <gtest/gtest.h>

using namespace orvel;

TEST(MockGitService, OptionLikeCloneUrlIsRefused) {
    MockGitService mock;
    EXPECT_THROW(test::await(mock.cloneRepository("-x", "/c")), GitServiceError);
}
