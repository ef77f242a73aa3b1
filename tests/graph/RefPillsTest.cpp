// Ref pills in a cell too narrow for them all: as many as fit show whole, then a "+N" pill, and
// the cell's tooltip names the rest; checked on the arithmetic and on a real commit with many refs.
#include "graph/ui/GraphPane.h"
#include "graph/ui/GraphTableModel.h"
#include "graph/ui/GraphTableView.h"
#include "graph/ui/RefPillPainting.h"
#include "graph/RepoGraphPaneViewModel.h"

#include "GraphPaneOnRealGit.h"
#include "support/Await.h"
#include "support/Screenshot.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

TEST(RefPillFit, WholePillsLeaveRoomForTheCountOfTheRest) {
    // A "+n" pill is 20 wide; pills are 4 apart.
    const auto countWidth = [](std::size_t) { return 20.0; };
    const struct {
        const char* name;
        std::vector<double> widths;
        double room;
        PillFit expected;
    } cases[] = {
        {"no pills", {}, 100, {0, false}},
        {"all fit exactly", {30, 30, 32}, 100, {3, false}},
        {"one too many: two whole and the count", {30, 30, 40}, 100, {2, false}},
        {"the count needs the room of a second pill", {30, 50, 10}, 60, {1, false}},
        {"a single pill too wide is cut", {150}, 100, {1, true}},
        {"a first pill too wide beside the count is cut", {90, 10}, 100, {1, true}},
        {"a narrow first and a wide second", {20, 200, 10}, 100, {1, false}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(fitPills(c.widths, 4, c.room, countWidth), c.expected) << c.name;
}

using RefPillsOnRealGit = test::GraphPaneOnRealGit;

TEST_F(RefPillsOnRealGit, ACrowdedCellEndsInACountAndItsTooltipNamesTheRest) {
    repo.write("a.txt", "a\n");
    repo.commitAll("Base");
    repo.write("a.txt", "b\n");
    repo.commitAll("Release candidate");
    for (const char* branch : {"release/2026-spring", "feature/a-rather-long-branch-name", "hotfix"})
        repo.git({"branch", branch});
    for (const char* tag : {"v1.0.0", "v1.0.0-rc.1"})
        repo.git({"tag", tag});
    RepoGraphPaneViewModel model(entry(), service, toasts);
    GraphPane pane(model);
    test::await(model.load());
    test::saveScreenshot(pane, QStringLiteral("graph-crowded-pills"), QSize(900, 200));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&pane));

    QStringList names;
    for (const RowRef& placed : model.refsByRow()[0])
        names << QString::fromStdString(placed.ref->name);
    ASSERT_EQ(names.size(), 6);
    GraphTableView& table = pane.table();
    const QRect cell = table.visualRect(table.model()->index(0, GraphTableModel::refsColumn));
    QHelpEvent help(QEvent::ToolTip, cell.center(), table.viewport()->mapToGlobal(cell.center()));
    QApplication::sendEvent(table.viewport(), &help);
    const QStringList rest = QToolTip::text().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    // Some refs show whole, and the tooltip names the others in the order of the row.
    ASSERT_FALSE(rest.isEmpty());
    ASSERT_LT(rest.size(), names.size());
    EXPECT_EQ(rest, names.mid(names.size() - rest.size()));

    // Without the long branches and widened, the cell shows every pill and names none.
    repo.git({"branch", "-D", "release/2026-spring", "feature/a-rather-long-branch-name"});
    test::await(model.load());
    table.horizontalHeader()->resizeSection(GraphTableModel::refsColumn, 300);
    QToolTip::hideText();
    const QRect wide = table.visualRect(table.model()->index(0, GraphTableModel::refsColumn));
    QHelpEvent none(QEvent::ToolTip, wide.center(), table.viewport()->mapToGlobal(wide.center()));
    QApplication::sendEvent(table.viewport(), &none);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
    test::saveScreenshot(pane, QStringLiteral("graph-crowded-pills-wide"), QSize(900, 200));
}

} // namespace
