// The history table on its first show, on a real repository: a table too narrow for its columns
// still shows its graph.
#include "graph/ui/GraphPane.h"
#include "graph/ui/GraphRowStyle.h"
#include "graph/ui/GraphTableModel.h"
#include "graph/ui/GraphTableView.h"
#include "graph/ui/LanePainting.h"
#include "graph/RepoGraphPaneViewModel.h"

#include "GraphPaneOnRealGit.h"
#include "support/Await.h"
#include "support/Screenshot.h"

#include <QScrollBar>
#include <QStackedWidget>
#include <QTest>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

using GraphFirstShow = test::GraphPaneOnRealGit;

// A table narrower than the smallest columns scrolls sideways; bringing the selected row into view
// on the first show used to scroll to its message cell and so push a small graph out of sight.
TEST_F(GraphFirstShow, TheGraphIsDrawnOnTheFirstShowOfANarrowTable) {
    repo.write("a.txt", "a\n");
    repo.commitAll("First commit with a subject long enough to need room");
    repo.git({"checkout", "-q", "-b", "topic"});
    repo.write("b.txt", "b\n");
    repo.commitAll("Work on a topic");
    repo.git({"checkout", "-q", "main"});
    repo.write("c.txt", "c\n");
    repo.commitAll("Work on main");
    RepoGraphPaneViewModel model(entry(), service, toasts);
    GraphPane pane(model);
    pane.resize(420, 240);
    test::await(model.load());
    ASSERT_EQ(model.commits().size(), 3u);
    ASSERT_TRUE(model.selectedHash());

    pane.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&pane));
    GraphTableView& table = pane.table();
    ASSERT_TRUE(table.horizontalScrollBar()->maximum() > 0); // the columns need more than the width
    EXPECT_EQ(table.horizontalScrollBar()->value(), 0);
    const QImage shown = table.viewport()->grab().toImage();
    test::saveScreenshot(pane, QStringLiteral("graph-narrow-first-show"), pane.size());
    const GraphRowStyle style = GraphRowStyle::current(table.palette());
    for (int row = 0; row < 3; ++row) {
        const CommitRow& commit = model.commits()[static_cast<std::size_t>(row)];
        const auto lane = std::find_if(commit.lanes.begin(), commit.lanes.end(),
                                       [&](const GraphLane& l) { return l.index == commit.activeLane; });
        ASSERT_NE(lane, commit.lanes.end());
        const QRect cell = table.visualRect(table.model()->index(row, GraphTableModel::graphColumn));
        const QPoint node(cell.left() + static_cast<int>(laneCentre(commit.activeLane)), cell.center().y());
        const QPoint pixel = node * shown.devicePixelRatio();
        EXPECT_EQ(shown.pixelColor(pixel).rgb(), style.lane(lane->colorIndex).rgb()) << "row " << row;
    }
}

// A page behind the one in view may have no height yet. Rows that arrive above the selected one
// while it is hidden (the working tree's, a stash's) used to be scrolled out of sight by bringing
// the selection into that empty view.
TEST_F(GraphFirstShow, RowsAboveTheSelectionLoadedWhileHiddenShowOnTheFirstShow) {
    // More rows than the page shows, so that it keeps a scroll range.
    for (int commit = 0; commit < 20; ++commit) {
        repo.write("a.txt", std::to_string(commit) + "\n");
        repo.commitAll("Commit " + std::to_string(commit));
    }
    repo.write("a.txt", "stashed\n");
    repo.git({"stash", "push", "-q", "-m", "Kept aside"});
    repo.write("a.txt", "dirty\n");
    RepoGraphPaneViewModel model(entry(), service, toasts);
    // As in a repository's tab, the history is a page behind the one in view.
    QStackedWidget pages;
    pages.addWidget(new QWidget);
    auto& pane = *new GraphPane(model, &pages);
    pages.addWidget(&pane);
    pages.resize(900, 300);
    pages.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&pages));
    pane.resize(900, 0);
    test::await(model.load());
    model.setWorkingTreeCounts(0, 1);
    const int head = model.rowOf(repo.head());
    ASSERT_GT(head, 1); // below the working tree's row and the stash's commits
    ASSERT_EQ(model.selectedHash(), repo.head());

    pages.setCurrentWidget(&pane);
    ASSERT_TRUE(QTest::qWaitFor([&] { return pane.isVisible(); }));
    QTest::qWait(20);
    test::saveScreenshot(pages, QStringLiteral("graph-first-show-after-hidden-load"), pages.size());
    const GraphTableView& table = pane.table();
    EXPECT_EQ(table.verticalScrollBar()->value(), 0);
    EXPECT_EQ(table.currentIndex().row(), head);
}

} // namespace
