// The window end to end on real repositories: two folders dropped at once open as two tabs that
// keep their views when switched, the welcome page after the last tab closes, tabs and the window
// title named by folder and branch, the Window menu's shortcuts as the keys read, and a change made
// from a terminal that reaches the open tab through the file-system watcher.
#include "workspace/ui/MainWindow.h"

#include "content/ui/WelcomeView.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "support/DrainQueue.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "core/support/Version.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/Screenshot.h"
#include "workspace/AppViewModel.h"
#include "workspace/FileSystemWatcher.h"
#include "workspace/ShortcutText.h"
#include "workspace/ui/RepositoryTabView.h"

#include <QFileInfo>
#include <QAction>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOptionMenuItem>
#include <QStackedWidget>
#include <QTabBar>
#include <QTest>
#include <QUrl>

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
    void open(const std::string& path) { test::await(model.openRepository(path)); }
    void open(const test::TempRepo& repo) { open(repo.path()); }
    // "folder — branch", as the tab of the repository at `path` reads.
    static QString tabTitle(const std::string& path, const char* branch) {
        return QFileInfo(QString::fromStdString(path)).fileName() + QStringLiteral(" — ") +
               QString::fromLatin1(branch);
    }

    test::TempRepo alpha, beta;
    InMemoryUserDefaults defaults;
    std::shared_ptr<GitOpRunner> runner = std::make_shared<GitOpRunner>(2);
    std::shared_ptr<NativeGitService> service =
        std::make_shared<NativeGitService>(std::make_shared<SubprocessExecutor>(std::nullopt, defaults), runner);
    AppViewModel model{service, defaults};
    MainWindow window{model, defaults};
};

// Remembers the text of every menu item it is asked to draw.
class MenuTextRecorder final : public QProxyStyle {
  public:
    QStringList drawn;

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        if (element == CE_MenuItem)
            if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option))
                const_cast<MenuTextRecorder*>(this)->drawn.append(item->text);
        QProxyStyle::drawControl(element, option, painter, widget);
    }
};

} // namespace

TEST(ShortcutText, NamesTheKeysAsTheyArePressed) {
    const std::pair<QKeySequence, QString> cases[] = {
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab), "Ctrl+Shift+Tab"},
        {QKeySequence(Qt::CTRL | Qt::Key_Backtab), "Ctrl+Shift+Tab"},
        {QKeySequence(Qt::Key_Backtab), "Shift+Tab"},
        {QKeySequence(Qt::CTRL | Qt::Key_Tab), "Ctrl+Tab"},
        {QKeySequence(Qt::CTRL | Qt::Key_PageUp), "Ctrl+PgUp"},
        {QKeySequence(Qt::CTRL | Qt::Key_K, Qt::SHIFT | Qt::Key_Backtab), "Ctrl+K, Shift+Tab"},
        {QKeySequence(), ""},
    };
    for (const auto& [sequence, text] : cases)
        EXPECT_EQ(shortcutText(sequence), text) << sequence.toString().toStdString();
}

// The Window menu reads "Ctrl+Shift+Tab", and the keys that name still step back through the tabs.
TEST_F(Window, WindowMenuNamesTheTabKeysAsTheyArePressed) {
    window.show();
    open(alpha);
    open(beta);
    QAction& previous = *window.findChild<QAction*>("menu.previous-tab");
    QMenu* menu = nullptr;
    for (QObject* associated : previous.associatedObjects())
        if ((menu = qobject_cast<QMenu*>(associated)))
            break;
    ASSERT_NE(menu, nullptr);
    MenuTextRecorder recorder;
    menu->setStyle(&recorder);
    menu->popup(window.mapToGlobal(QPoint(0, 0)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(menu));
    test::saveScreenshot(*menu, QStringLiteral("main-window-window-menu"), menu->size());
    menu->hide();
    menu->setStyle(nullptr);
    EXPECT_TRUE(recorder.drawn.contains(QStringLiteral("Next Tab\tCtrl+Tab"))) << recorder.drawn.join(" | ").toStdString();
    EXPECT_TRUE(recorder.drawn.contains(QStringLiteral("Previous Tab\tCtrl+Shift+Tab")))
        << recorder.drawn.join(" | ").toStdString();

    ASSERT_EQ(tabBar().currentIndex(), 1);
    QTest::keyClick(&window, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(tabBar().currentIndex(), 0);
}

TEST_F(Window, TwoFoldersDroppedOpenAsTabsThatKeepTheirViewsWhenSwitchedAndClosingTheLastShowsWelcome) {
    window.show();
    auto* welcome = window.findChild<WelcomeView*>();
    EXPECT_TRUE(welcome->isVisible());
    QMimeData folders;
    folders.setUrls({QUrl::fromLocalFile(QString::fromStdString(alpha.path())),
                     QUrl::fromLocalFile(QString::fromStdString(beta.path()))});
    // Qt delivers a drop to the widget that accepted the drag's entry.
    const QPoint centre = welcome->mapTo(&window, welcome->rect().center());
    QDragEnterEvent enter(centre, Qt::CopyAction, &folders, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    QDropEvent drop(QPointF(centre), Qt::CopyAction, &folders, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    ASSERT_TRUE(QTest::qWaitFor([&] { return tabBar().count() == 2; }, 5000));
    EXPECT_EQ(tabBar().tabText(0), tabTitle(alpha.path(), "main"));
    EXPECT_EQ(tabBar().tabText(1), tabTitle(beta.path(), "topic"));
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
    EXPECT_TRUE(QTest::qWaitFor([&] { return tabBar().tabText(0) == tabTitle(alpha.path(), "feature"); }, 5000));
}

// Two clones on "main" differ by their folders: the tab names the folder and the branch, its
// tooltip the whole path, and the window title the active one. One open repository keeps its tab.
TEST_F(Window, TabsAndTitleNameTheFolderAndTheBranch) {
    test::TempDir clones;
    const std::string first = clones / "orvel";
    const std::string second = clones / "orvel-fix";
    test::git(clones.path(), {"clone", "-q", alpha.path(), first});
    test::git(clones.path(), {"clone", "-q", alpha.path(), second});
    window.resize(900, 600);
    window.show();

    open(first);
    ASSERT_TRUE(QTest::qWaitFor([&] { return tabBar().tabText(0) == QStringLiteral("orvel — main"); }, 5000))
        << tabBar().tabText(0).toStdString();
    EXPECT_TRUE(tabBar().isVisible());
    EXPECT_EQ(tabBar().tabToolTip(0), QString::fromStdString(first));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("orvel — main — Orvel"));

    open(second);
    ASSERT_TRUE(QTest::qWaitFor([&] { return tabBar().tabText(1) == QStringLiteral("orvel-fix — main"); }, 5000))
        << tabBar().tabText(1).toStdString();
    EXPECT_EQ(tabBar().tabText(0), QStringLiteral("orvel — main"));
    EXPECT_EQ(tabBar().tabToolTip(1), QString::fromStdString(second));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("orvel-fix — main — Orvel"));
    test::git(second, {"checkout", "-q", "--detach", "HEAD~1"});
    model.activeTab()->refresh();
    const QString detached = QStringLiteral("orvel-fix — ") + QString::fromStdString(alpha.rev("HEAD~1").substr(0, 7));
    EXPECT_TRUE(QTest::qWaitFor([&] { return tabBar().tabText(1) == detached; }, 5000))
        << tabBar().tabText(1).toStdString();
    EXPECT_EQ(window.windowTitle(), detached + QStringLiteral(" — Orvel"));
    test::saveScreenshot(window, "main-window-tabs-named-by-folder");

    QTest::keyClick(&window, Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("orvel — main — Orvel"));
}

TEST_F(Window, AboutNamesTheVersionTheProjectSets) {
    window.findChild<QAction*>(QStringLiteral("menu.about"))->trigger();
    auto* about = window.findChild<QMessageBox*>(QStringLiteral("about-box"));
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(about->text(), QStringLiteral("Orvel ") + QLatin1String(orvelVersion));
    about->close();
}
