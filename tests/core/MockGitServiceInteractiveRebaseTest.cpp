// The in-memory interactive rebase: the todo list follows the canned graph, and a plan is kept and
// answered with the canned outcome, refusing what git refuses.
#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"
#include "support/Await.h"

#include <gtest/gtest.h>

#include <functional>

using namespace orvel;
using test::await;

namespace {

std::string failureText(const std::function<void()>& call) {
    try {
        call();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "no error";
}

} // namespace

TEST(MockGitServiceInteractiveRebase, TodoListFollowsTheGraphAndPlansAreKept) {
    MockGitService mock;
    const auto rows = await(mock.rebaseTodoList(mock.repository, "v1.0"));
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].subject, "Fix the lane colours");
    EXPECT_EQ(rows[1].subject, "Merge branch 'feature/search'");
    EXPECT_EQ(failureText([&] { await(mock.rebaseTodoList(mock.repository, "nowhere")); }).substr(0, 35),
              "git log failed: fatal: ambiguous ar");

    mock.interactiveRebaseOutcome = RebaseStop{"2c3d4e5", 1, 2, {}};
    for (int run = 0; run < 2; ++run) { // the canned outcome answers every call alike
        const auto result = await(mock.interactiveRebase(mock.repository, {"v1.0", rows}));
        EXPECT_EQ(std::get<RebaseStop>(result).stoppedAtHash, "2c3d4e5");
    }
    EXPECT_EQ(mock.lastRebasePlan, (RebasePlan{"v1.0", rows}));
    EXPECT_EQ(mock.repository.state, RepositoryState::rebasing);
    EXPECT_EQ(failureText([&] {
                  await(mock.interactiveRebase(mock.repository, {"v1.0", {}}));
              }),
              "git rebase failed: Rebase failed unexpectedly");
    EXPECT_EQ(failureText([&] {
                  await(mock.interactiveRebase(mock.repository, {"-v", rows}));
              }),
              "Invalid input: Rebase target must not begin with '-': -v");
}
