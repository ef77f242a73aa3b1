// The history page on a real repository: a merge commit shows its message, both parents in git's
// abbreviation and the files it brought against its first parent, following a parent moves the graph's selection and lists that commit's files flat and as a
// tree, a file asks for its diff, and the working tree's changes lead to the changes page.
#include "graph/ui/RepoHistoryPane.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "graph/ui/GraphPane.h"
#include "graph/ui/GraphTableModel.h"
#include "graph/ui/GraphTableView.h"
#include "support/Await.h"
#include "support/Eventually.h"
#include "support/GitFixture.h"
#include "support/Screenshot.h"
#include "notices/ToastManager.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

class RepoHistoryPaneTest : public ::testing::Test {
  protected:
    RepoHistoryPaneTest() {
        // Git's abbreviation of this repository's hashes is longer than its shortest.
        repo.git({"config", "core.abbrev", "12"});
        repo.write("base.txt", "base\n");
        repo.commitAll("base");
        repo.git({"checkout", "-q", "-b", "topic"});
        repo.write("src/app.cpp", "int main() {}\n");
        repo.write("src/lib/util.h", "#pragma once\n");
        topic = repo.commitAll("Add the app\n\nWith a helper header.");
        repo.git({"checkout", "-q", "main"});
        repo.write("README", "read me\n");
        readme = repo.commitAll("Add a readme");
        repo.git({"merge", "-q", "--no-ff", "topic", "-m", "Merge topic"});
        merge = repo.head();
    }

    static RepoEntry entryAt(const std::string& path) {
        RepoEntry entry;
        entry.path = path;
        return entry;
    }

    std::vector<QPushButton*> parentLinks() const {
        std::vector<QPushButton*> shown;
        for (auto* link : pane.findChildren<QPushButton*>(QStringLiteral("history.parent-link")))
            if (link->isVisible())
                shown.push_back(link);
        return shown;
    }

    test::TempRepo repo;
    std::string topic, readme, merge;
    RepoEntry entry = entryAt(repo.path());
    InMemoryUserDefaults defaults;
    ToastManager toasts;
    RepoGraphPaneViewModel graph{
        entry,
        std::make_shared<NativeGitService>(std::make_shared<SubprocessExecutor>(std::nullopt, defaults),
                                           std::make_shared<GitOpRunner>(2)),
        toasts};
    RepoHistoryPane pane{graph};
};

} // namespace

TEST_F(RepoHistoryPaneTest, MergeCommitShowsBothParentsAndAParentLeadsToItsFiles) {
    pane.resize(1280, 800);
    pane.show();
    EXPECT_FALSE(pane.findChild<QWidget*>(QStringLiteral("history.file-list"))->isVisible());

    test::await(graph.load());
    graph.selectCommit(merge);
    ASSERT_TRUE(test::eventually([&] { return !graph.isLoadingFileChanges() && graph.selectedCommit() && !graph.selectedCommit()->abbreviatedHash.empty(); }));
    EXPECT_EQ(pane.findChild<QLabel*>(QStringLiteral("history.subject"))->text(),
              QStringLiteral("Merge topic"));
    // A widget added to a shown layout appears at the next turn of the event loop.
    ASSERT_TRUE(test::eventually([&] { return parentLinks().size() == 2u; }));
    auto links = parentLinks();
    EXPECT_EQ(links[0]->text().toStdString(), readme.substr(0, 12));
    EXPECT_EQ(links[1]->text().toStdString(), topic.substr(0, 12));
    // The merge brought the topic's two files; its own first parent's readme is not among them.
    auto* files = pane.findChild<QTreeView*>(QStringLiteral("history.file-list"));
    EXPECT_EQ(files->model()->rowCount(), 2);
    EXPECT_EQ(files->model()->index(0, 0).data().toString(), QStringLiteral("app.cpp"));
    auto* mergeNote = pane.findChild<QLabel*>(QStringLiteral("history.file-merge-note"));
    ASSERT_TRUE(mergeNote);
    EXPECT_TRUE(mergeNote->isVisible());
    EXPECT_EQ(mergeNote->text(), QStringLiteral("Changes against the first parent"));
    test::saveScreenshot(pane, QStringLiteral("history-detail-merge"));

    links[1]->click();
    ASSERT_TRUE(test::eventually([&] { return graph.selectedHash() == topic && !graph.isLoadingFileChanges(); }));
    EXPECT_FALSE(mergeNote->isVisible());
    ASSERT_TRUE(test::eventually([&] { return (files->model()->rowCount()) == (2); }));
    EXPECT_EQ(files->model()->index(0, 0).data().toString(), QStringLiteral("app.cpp"));
    // A file with staged and unstaged changes is one file of the working tree.
    FileChange both, added;
    both.path = "src/app.cpp";
    added.path = "README.md";
    pane.setWorkingTreeFiles({both, added});
    const QString notice = pane.findChild<QLabel*>(QStringLiteral("history.changes-notice"))->text();
    EXPECT_TRUE(notice.startsWith(QStringLiteral("2 "))) << notice.toStdString();
    test::saveScreenshot(pane, QStringLiteral("history-detail-list"));

    pane.findChild<QToolButton*>(QStringLiteral("history.file-mode-tree"))->click();
    ASSERT_EQ(files->model()->rowCount(), 1);
    EXPECT_EQ(files->model()->index(0, 0).data().toString(), QStringLiteral("src"));
    test::saveScreenshot(pane, QStringLiteral("history-detail-tree"));

    std::optional<std::tuple<std::string, std::string, bool>> requested;
    QObject::connect(&pane, &RepoHistoryPane::showDiffRequested, &pane,
                     [&](const FileChange& file, const std::string& hash, bool isMerge) {
                         requested.emplace(file.path, hash, isMerge);
                     });
    // Directories come first: "lib" above "app.cpp".
    const QModelIndex app = files->model()->index(1, 0, files->model()->index(0, 0));
    QTest::mouseClick(files->viewport(), Qt::LeftButton, {}, files->visualRect(app).center());
    EXPECT_EQ(requested, std::make_tuple(std::string("src/app.cpp"), topic, false));

    bool wentToChanges = false;
    QObject::connect(&pane, &RepoHistoryPane::goToChangesRequested, &pane, [&] { wentToChanges = true; });
    pane.findChild<QPushButton*>(QStringLiteral("workspace.go-to-changes"))->click();
    EXPECT_TRUE(wentToChanges);
    pane.setWorkingTreeFiles({});
    EXPECT_FALSE(pane.findChild<QPushButton*>(QStringLiteral("workspace.go-to-changes"))->isVisible());
}

// The page beside the sidebar in a window of 1200 pixels: the table keeps most of it, and its six
// columns fit with the message at least at its minimum, so that nothing scrolls sideways.
TEST_F(RepoHistoryPaneTest, TheTableTakesMostOfThePageAndItsColumnsFitWithoutScrolling) {
    pane.resize(960, 700);
    test::await(graph.load());
    graph.selectCommit(merge);
    pane.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&pane));
    ASSERT_TRUE(test::eventually([&] { return !graph.isLoadingFileChanges(); }));
    test::saveScreenshot(pane, QStringLiteral("history-page-beside-sidebar"), pane.size());
    const GraphTableView& table = pane.graphPane().table();
    EXPECT_GE(table.width(), pane.width() * 13 / 20) << table.width();
    EXPECT_EQ(table.horizontalScrollBar()->maximum(), 0);
    EXPECT_GE(table.horizontalHeader()->sectionSize(GraphTableModel::messageColumn), 150);
    EXPECT_LE(table.horizontalHeader()->length(), table.viewport()->width());
}
