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

} // namespace
