// The window end to end on real repositories: two tabs side by side that keep their views when
// switched, the welcome page after the last tab closes, and a change made from a terminal that
// reaches the open tab through the file-system watcher.
#include "workspace/ui/MainWindow.h"

#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/Screenshot.h"
#include "workspace/AppViewModel.h"
#include "workspace/FileSystemWatcher.h"
#include "workspace/ui/RepositoryTabView.h"

#include <QLabel>
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
        beta.write("notes.txt", "beta\n");
        beta.commitAll("first");
        beta.git({"checkout", "-q", "-b", "topic"});
    }

    QTabBar& tabBar() { return *window.findChild<QTabBar*>("main-window.tabs"); }
    QWidget& currentView() {
        return *window.findChild<QStackedWidget*>("main-window.tab-views")->currentWidget();
    }
    void open(const test::TempRepo& repo) { test::await(model.openRepository(repo.path())); }

    test::TempRepo alpha, beta;
    InMemoryUserDefaults defaults;
    std::shared_ptr<NativeGitService> service = std::make_shared<NativeGitService>(
        std::make_shared<SubprocessExecutor>(std::nullopt, defaults), std::make_shared<GitOpRunner>(2));
    AppViewModel model{service, defaults};
    MainWindow window{model, defaults};
};

} // namespace

TEST_F(Window, TwoTabsKeepTheirViewsWhenSwitchedAndClosingTheLastShowsWelcome) {
    window.show();
    EXPECT_TRUE(window.findChild<QWidget*>("main-window.welcome")->isVisible());
    open(alpha);
    open(beta);
    ASSERT_EQ(tabBar().count(), 2);
    EXPECT_EQ(tabBar().tabText(0), "main");
    EXPECT_EQ(tabBar().tabText(1), "topic");
    QWidget* betaView = &currentView();

    QTest::keyClick(&window, Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(tabBar().currentIndex(), 0);
    EXPECT_EQ(model.activeRepository()->path, alpha.path());
    QTest::keyClick(&window, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(&currentView(), betaView);
    test::saveScreenshot(window, "main-window-two-tabs");

    QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(tabBar().count(), 1);
    EXPECT_EQ(model.activeRepository()->path, alpha.path());
    QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(model.mode(), AppMode::welcome);
    EXPECT_TRUE(window.findChild<QWidget*>("main-window.welcome")->isVisible());
}

TEST_F(Window, ChangesFromATerminalReachTheOpenTab) {
    window.show();
    open(alpha);
    ASSERT_TRUE(model.activeTab()->isWatching());
    model.activeTab()->fileWatcher()->waitUntilWatching();
    auto* placeholder = window.findChild<QLabel*>("repository-tab.history-placeholder");

    alpha.write("new.txt", "from the terminal\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return placeholder->text().contains("Unstaged: 1"); }, 5000))
        << placeholder->text().toStdString();
    alpha.commitAll("second");
    alpha.git({"checkout", "-q", "-b", "feature"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return tabBar().tabText(0) == "feature"; }, 5000));
    EXPECT_TRUE(placeholder->text().contains("Unstaged: 0"));
}
