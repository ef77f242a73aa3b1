// The window end to end on real repositories: two tabs side by side that keep their views when
// switched, the welcome page after the last tab closes, and a change made from a terminal that
// reaches the open tab through the file-system watcher.
#include "workspace/ui/MainWindow.h"

#include "content/ui/WelcomeView.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "support/DrainQueue.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/Screenshot.h"
#include "workspace/AppViewModel.h"
#include "workspace/FileSystemWatcher.h"
#include "workspace/ui/RepositoryTabView.h"

#include <QStackedWidget>
#include <QTabBar>
#include <QTest>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

class Window : public ::testing::Test {
  protected:
    Window() {
        alpha.write("README.md", "alpha\n");
        alpha.commitAll("first");
        alpha.write("README.md", "alpha, again\n");
        alpha.commitAll("second");
        beta.write("notes.txt", "beta\n");
        beta.commitAll("first");
        beta.git({"checkout", "-q", "-b", "topic"});
    }
    ~Window() override { test::drainQueue(*runner); }

    QTabBar& tabBar() { return *window.findChild<QTabBar*>("main-window.tabs"); }
    QWidget& currentView() {
        return *window.findChild<QStackedWidget*>("main-window.tab-views")->currentWidget();
    }
    void open(const test::TempRepo& repo) { test::await(model.openRepository(repo.path())); }

    test::TempRepo alpha, beta;
    InMemoryUserDefaults defaults;
    std::shared_ptr<GitOpRunner> runner = std::make_shared<GitOpRunner>(2);
    std::shared_ptr<NativeGitService> service =
        std::make_shared<NativeGitService>(std::make_shared<SubprocessExecutor>(std::nullopt, defaults), runner);
    AppViewModel model{service, defaults};
    MainWindow window{model, defaults};
};

} // namespace

TEST_F(Window, TwoTabsKeepTheirViewsWhenSwitchedAndClosingTheLastShowsWelcome) {
    window.show();
    EXPECT_TRUE(window.findChild<WelcomeView*>()->isVisible());
    open(alpha);
    open(beta);
    ASSERT_EQ(tabBar().count(), 2);
    EXPECT_EQ(tabBar().tabText(0), "main");
    EXPECT_EQ(tabBar().tabText(1), "topic");
    QWidget* betaView = &currentView();
    WorkspaceTabState& alphaTab = *model.openTabs()[0];
    ASSERT_TRUE(QTest::qWaitFor([&] { return !alphaTab.graph().commits().empty(); }, 5000));
    const std::string older = alpha.rev("HEAD~1");
    alphaTab.graph().selectCommit(older);

    QTest::keyClick(&window, Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(tabBar().currentIndex(), 0);
    EXPECT_EQ(model.activeRepository()->path, alpha.path());
    QTest::keyClick(&window, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(&currentView(), betaView);
    EXPECT_EQ(alphaTab.graph().selectedHash(), older);
    WorkspaceTabState& betaTab = *model.openTabs()[1];
    ASSERT_TRUE(QTest::qWaitFor([&] { return !betaTab.graph().commits().empty(); }, 5000));
    test::saveScreenshot(window, "main-window-two-tabs");

    QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(tabBar().count(), 1);
    EXPECT_EQ(model.activeRepository()->path, alpha.path());
    QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(model.mode(), AppMode::welcome);
    EXPECT_TRUE(window.findChild<WelcomeView*>()->isVisible());
}

TEST_F(Window, ChangesFromATerminalReachTheOpenTab) {
    window.show();
    open(alpha);
    WorkspaceTabState& tab = *model.activeTab();
    ASSERT_TRUE(tab.isWatching());
    tab.fileWatcher()->waitUntilWatching();
    ASSERT_TRUE(QTest::qWaitFor([&] { return tab.graph().rowOf(alpha.head()) >= 0; }, 5000));

    alpha.write("new.txt", "from the terminal\n");
    const std::string third = alpha.commitAll("third");
    alpha.git({"checkout", "-q", "-b", "feature"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return tab.graph().rowOf(third) == 0; }, 5000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tabBar().tabText(0) == "feature"; }, 5000));
}
