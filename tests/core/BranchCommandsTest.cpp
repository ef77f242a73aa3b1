// Branch commands refuse names that git would read as options before git runs.
#include "core/commands/BranchCommands.h"
#include "core/service/GitServiceError.h"
#include "support/RecordingExecutor.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

#include <functional>

using namespace orvel;
using test::RecordingExecutor;

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
