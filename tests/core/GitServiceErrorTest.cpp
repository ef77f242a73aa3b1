// The texts of the git layer's errors, as toasts and alerts show them.
#include "core/service/GitServiceError.h"

#include <gtest/gtest.h>

using orvel::GitServiceError;

TEST(GitServiceError, DescriptionsAreTheUserVisibleTexts) {
    EXPECT_STREQ(GitServiceError::commandFailed("merge", "x").what(), "git merge failed: x");
    EXPECT_STREQ(GitServiceError::parseFailed("commit", "no commit returned from log -1").what(),
                 "Failed to parse git commit: no commit returned from log -1");
    EXPECT_STREQ(GitServiceError::invalidGitPath("/nope/git").what(), "Invalid git path: /nope/git");
    EXPECT_STREQ(GitServiceError::invalidInput("URL must not be empty").what(),
                 "Invalid input: URL must not be empty");
    EXPECT_STREQ(GitServiceError::unknownRemote("upstream").what(),
                 "Cannot push: remote \"upstream\" does not exist.");
    EXPECT_STREQ(GitServiceError::gitNotFound().what(),
                 "Git not found. Install git with your package manager or configure path in Preferences.");
    EXPECT_STREQ(GitServiceError::detachedHead().what(),
                 "Cannot push: HEAD is detached. Check out a branch first.");
}
