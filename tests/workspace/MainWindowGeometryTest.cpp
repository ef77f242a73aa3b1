// Where the window opens: on the first start four fifths of the screen's room, in its middle; on
// later starts where and as large as the user left it.
#include "workspace/ui/MainWindow.h"

#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "support/DrainQueue.h"
#include "workspace/AppViewModel.h"

#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

TEST(MainWindowGeometry, FirstStartTakesFourFifthsOfTheScreenAndLaterStartsRestoreTheSaved) {
    InMemoryUserDefaults defaults;
    auto runner = std::make_shared<GitOpRunner>(2);
    auto service =
        std::make_shared<NativeGitService>(std::make_shared<SubprocessExecutor>(std::nullopt, defaults), runner);
    AppViewModel model{service, defaults};
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    const QRect moved(available.topLeft() + QPoint(10, 20), QSize(500, 400));
    {
        MainWindow first{model, defaults};
        EXPECT_EQ(first.size(), available.size() * 4 / 5);
        EXPECT_EQ(first.geometry().center(), available.center());
        first.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&first));
        first.setGeometry(moved);
        first.close(); // saves where the window is
    }
    MainWindow later{model, defaults};
    EXPECT_EQ(later.size(), moved.size());
    test::drainQueue(*runner);
}

} // namespace
