// A click on a branch in the sidebar selects its commit in the history, loading the pages down to
// it when it lies below the first one.
#include "core/support/Text.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "sidebar/SidebarViewModel.h"
#include "support/GeneratedHistory.h"

#include "RemoteFixture.h"

using namespace orvel;

TEST(SidebarNavigation, ABranchBelowTheFirstPageIsLoadedAndSelected) {
    test::TempRepo repo;
    test::importHistory(repo, {.commits = 5000});
    // "old" stays on the root, thousands of rows below the first page.
    const std::string root = trimmed(repo.git({"rev-list", "--max-parents=0", "main"}));
    repo.git({"branch", "old", root});
    InMemoryUserDefaults defaults;
    auto runner = std::make_shared<GitOpRunner>(2);
    AppViewModel model{std::make_shared<NativeGitService>(std::make_shared<SubprocessExecutor>(std::nullopt, defaults),
                                                          runner),
                       defaults};
    test::await(model.openRepository(repo.path()));
    WorkspaceTabState& tab = *model.activeTab();
    ASSERT_TRUE(test::eventually([&] { return !tab.branches().empty() && !tab.graph().isLoading(); }));
    const auto old = std::find_if(tab.branches().begin(), tab.branches().end(),
                                  [](const BranchEntry& branch) { return branch.name == "old"; });
    ASSERT_NE(old, tab.branches().end());
    ASSERT_EQ(old->hash, root);
    ASSERT_LT(tab.graph().rowOf(root), 0);

    tab.sidebar().selectBranch(*old);
    ASSERT_TRUE(test::eventually([&] { return tab.graph().rowOf(root) >= 0 && !tab.graph().isPaging(); }));
    EXPECT_EQ(tab.graph().selectedHash(), root);
    tab.cancelAllTasks();
    test::drainQueue(*runner);
}
