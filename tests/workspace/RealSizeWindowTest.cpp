// The main window on a repository of real size, as a user lives in it: ten thousand commits with
// long subjects, a thousand tags in several naming schemes, fifty branches, a stash, three hundred
// changed files and a merge stopped on a conflict. Pictures of the history page, the changes page
// and the merge editor at two window sizes, in the light and the dark palette, for a person to
// look at; and what can be checked without eyes: every page shows its rows, and the history's
// message column keeps at least its minimum width.
#include "workspace/ui/MainWindow.h"

#include "changes/ChangesPaneViewModel.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "graph/ui/GraphTableModel.h"
#include "sidebar/SidebarViewModel.h"
#include "settings/ThemeEngine.h"
#include "support/Await.h"
#include "support/DrainQueue.h"
#include "support/Eventually.h"
#include "support/GeneratedHistory.h"
#include "support/Screenshot.h"
#include "widgets/TokenPalette.h"
#include "workspace/AppViewModel.h"
#include "workspace/WorkspaceTabState.h"
#include "workspace/WorkspaceViewModel.h"

#include <QApplication>
#include <QDialog>
#include <QHeaderView>
#include <QAbstractButton>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

// The repository: the generated history, then a conflict on "file" between main and "topic", a
// stash, and three hundred new files beside the merge.
void makeRealSizeRepository(const test::TempRepo& repo) {
    test::importHistory(repo, {.commits = 10000, .roots = 2, .longSubjects = true, .extraTags = 1000,
                               .extraBranches = 50});
    repo.divergeOnOneFile();
    repo.write("stashed.txt", "stashed\n");
    repo.git({"add", "stashed.txt"});
    repo.git({"stash", "-q"});
    for (int i = 0; i < 300; ++i)
        repo.write("dirty/file-" + std::to_string(i) + ".txt", "new\n");
    ASSERT_NE(repo.gitAllowingFailure({"merge", "topic"}).exitCode, 0);
}

void usePalette(ColorScheme scheme) {
    QApplication::setPalette(tokenPalette(ThemeEngine::shared().tokens(scheme)));
    QCoreApplication::processEvents();
}

} // namespace

TEST(RealSizeWindow, HistoryChangesAndMergeEditorAtTwoSizesInBothPalettes) {
    test::TempRepo repo;
    makeRealSizeRepository(repo);
    InMemoryUserDefaults defaults;
    auto runner = std::make_shared<GitOpRunner>(2);
    AppViewModel model{std::make_shared<NativeGitService>(std::make_shared<SubprocessExecutor>(std::nullopt, defaults),
                                                          runner),
                       defaults};
    MainWindow window{model, defaults};
    window.resize(1200, 780);
    window.show();
    test::await(model.openRepository(repo.path()));
    WorkspaceTabState& tab = *model.activeTab();
    ASSERT_TRUE(test::eventually([&] {
        return !tab.graph().isLoading() && !tab.graph().isPaging() && tab.graph().commits().size() > 2000 &&
               tab.changes().unstagedFiles().size() >= 300 && !tab.branches().empty() &&
               !tab.sidebar().localTags().empty() && !tab.sidebar().stashEntries().empty();
    }));
    auto* table = window.findChild<QTableView*>(QStringLiteral("graph.table"));
    ASSERT_NE(table, nullptr);

    const QPalette light = QApplication::palette();
    for (const QSize size : {QSize(1200, 780), QSize(1920, 1080)}) {
        for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
            const QString name = QStringLiteral("%1x%2-%3")
                                     .arg(size.width())
                                     .arg(size.height())
                                     .arg(scheme == ColorScheme::dark ? QStringLiteral("dark") : QStringLiteral("light"));
            SCOPED_TRACE(name.toStdString());
            usePalette(scheme);
            tab.workspace().setActiveTab(WorkspaceTab::repoHistory);
            test::saveScreenshot(window, QStringLiteral("window-history-") + name, size);
            EXPECT_GE(table->columnWidth(GraphTableModel::messageColumn), 150);
            EXPECT_GT(table->rowAt(table->viewport()->height() - 1), 10);
            tab.workspace().setActiveTab(WorkspaceTab::changes);
            test::saveScreenshot(window, QStringLiteral("window-changes-") + name, size);
        }
    }

    // The merge editor opens from the conflict banner over the window.
    usePalette(ColorScheme::light);
    auto* open = window.findChild<QAbstractButton*>(QStringLiteral("conflict-banner.open-merge-editor"));
    ASSERT_NE(open, nullptr);
    ASSERT_TRUE(test::eventually([&] { return open->isVisible() && open->isEnabled(); }));
    open->click();
    QDialog* editor = nullptr;
    ASSERT_TRUE(test::eventually([&] {
        for (QDialog* dialog : window.findChildren<QDialog*>())
            if (dialog->isVisible())
                editor = dialog;
        return editor != nullptr;
    }));
    QTest::qWait(500); // the sides are read from git
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        usePalette(scheme);
        test::saveScreenshot(*editor, scheme == ColorScheme::dark ? QStringLiteral("window-merge-editor-dark")
                                                                  : QStringLiteral("window-merge-editor-light"),
                             QSize(1100, 700));
    }
    editor->close();
    QApplication::setPalette(light);
    tab.cancelAllTasks();
    test::drainQueue(*runner);
}
