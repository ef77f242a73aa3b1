// The graph table's columns in the width they get: the arithmetic that shares the width out, and
// on a real repository the graph drawn on the first show of a table too narrow for every column.
#include "graph/ui/GraphColumnWidths.h"
#include "graph/ui/GraphPane.h"
#include "graph/ui/GraphRowStyle.h"
#include "graph/ui/GraphTableView.h"
#include "graph/ui/LanePainting.h"
#include "graph/RepoGraphPaneViewModel.h"

#include "core/RealGitService.h"
#include "notices/ToastManager.h"
#include "support/Await.h"
#include "support/Screenshot.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

struct FitCase {
    const char* name;
    GraphColumnWidths chosen;
    int available;
    GraphColumnWidths expected;
};

// Graph, Branch / Tag, Commit Message, Author, Hash, Date.
constexpr GraphColumnWidths defaults{180, 140, 0, 100, 75, 90};

TEST(GraphColumnWidths, TheMessageTakesTheRestAndTheGraphAndRefsGiveWayFirst) {
    const FitCase cases[] = {
        {"wide: the message takes the spare width", defaults, 1000, {180, 140, 415, 100, 75, 90}},
        {"exactly enough for the message's minimum", defaults, 735, {180, 140, 150, 100, 75, 90}},
        // 100 short: the graph has 140 above its minimum, the refs 80; they give 63 and 37.
        {"short: graph and refs give way in proportion", defaults, 635, {117, 103, 150, 100, 75, 90}},
        {"graph and refs at their minimums", defaults, 515, {40, 60, 150, 100, 75, 90}},
        {"narrower still: the table scrolls", defaults, 300, {40, 60, 150, 100, 75, 90}},
        {"a graph already at its minimum leaves it to the refs", {40, 140, 0, 100, 75, 90}, 535,
         {40, 80, 150, 100, 75, 90}},
        {"chosen widths out of bounds are bounded", {900, 10, 0, 20, 75, 90}, 2000,
         {600, 60, 1115, 60, 75, 90}},
        {"no width at all", defaults, 0, {40, 60, 150, 100, 75, 90}},
    };
    for (const FitCase& c : cases)
        EXPECT_EQ(fitGraphColumns(c.chosen, c.available), c.expected) << c.name;
}

class GraphColumnsOnRealGit : public test::RepositoryTest {
  protected:
    std::shared_ptr<GitServiceProtocol> service{&real.service, [](GitServiceProtocol*) {}};
    ToastManager toasts;
};

// A table narrower than the smallest columns scrolls sideways; bringing the selected row into view
// on the first show used to scroll to its message cell and so push a small graph out of sight.
TEST_F(GraphColumnsOnRealGit, TheGraphIsDrawnOnTheFirstShowOfANarrowTable) {
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
