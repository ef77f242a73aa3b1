// The graph pane end to end on a real repository with merges and tags: the rows show, Ctrl+F
// searches and highlights, and a hard reset from the context menu asks first, changes nothing when
// cancelled and moves HEAD when accepted. Writes the screenshots of the history in both
// appearances.
#include "graph/ui/GraphPane.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "graph/ui/GraphTableModel.h"
#include "graph/ui/GraphTableView.h"

#include "GraphPaneOnRealGit.h"
#include "support/Await.h"
#include "support/Screenshot.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <algorithm>

using namespace orvel;

namespace {

// Two feature branches merged into main, one left open, a remote branch, and tags.
void buildHistory(const test::TempRepo& repo) {
    repo.write("README.md", "# Demo\n");
    repo.commitAll("Initial commit");
    repo.git({"tag", "v0.1"});
    for (const std::string topic : {"search", "lanes"}) {
        repo.git({"checkout", "-q", "-b", "feature/" + topic});
        repo.write(topic + ".txt", topic + "\n");
        repo.commitAll("Add " + topic);
        repo.write(topic + ".txt", topic + " done\n");
        repo.commitAll("Finish " + topic);
        repo.git({"checkout", "-q", "main"});
        repo.write("main-" + topic + ".txt", "main\n");
        repo.commitAll("Prepare main for " + topic);
        repo.git(
            {"merge", "--no-ff", "-q", "-m", "Merge branch 'feature/" + topic + "'", "feature/" + topic});
    }
    repo.git({"tag", "-a", "v1.0", "-m", "Release 1.0"});
    repo.git({"update-ref", "refs/remotes/origin/main", "HEAD~1"});
    repo.git({"checkout", "-q", "-b", "feature/open"});
    repo.write("open.txt", "open\n");
    repo.commitAll("Start the open feature");
    repo.git({"checkout", "-q", "main"});
    repo.write("notes.txt", "notes\n");
    repo.git({"add", "notes.txt"});
    repo.git({"commit", "-q", "-m", "Write the release notes", "-m", "Covers the lanes work."});
}

QPalette darkPalette() {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(0x1f, 0x1f, 0x23));
    dark.setColor(QPalette::WindowText, QColor(0xe6, 0xe6, 0xe6));
    dark.setColor(QPalette::Base, QColor(0x18, 0x18, 0x1b));
    dark.setColor(QPalette::AlternateBase, QColor(0x24, 0x24, 0x28));
    dark.setColor(QPalette::Text, QColor(0xe6, 0xe6, 0xe6));
    dark.setColor(QPalette::Button, QColor(0x2a, 0x2a, 0x2e));
    dark.setColor(QPalette::ButtonText, QColor(0xe6, 0xe6, 0xe6));
    dark.setColor(QPalette::Highlight, QColor(0x2f, 0x5f, 0xa8));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::PlaceholderText, QColor(0x8a, 0x8a, 0x90));
    return dark;
}

template <typename Widget>
Widget* waitForChild(QObject& parent, const char* name) {
    Widget* found = nullptr;
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return (found = parent.findChild<Widget*>(QLatin1String(name))) != nullptr; }));
    return found;
}

using GraphPaneTest = test::GraphPaneOnRealGit;

TEST_F(GraphPaneTest, ShowsSearchesAndHardResetsARealHistory) {
    buildHistory(repo);
    RepoGraphPaneViewModel model(entry(), service, toasts);
    GraphPane pane(model);
    model.setWorkingTreeCounts(1, 2);
    test::await(model.load());
    const int commitCount = std::stoi(repo.git({"rev-list", "--all", "--count"}));
    ASSERT_EQ(pane.table().model()->rowCount(), commitCount + 1); // and the working tree's row
    EXPECT_EQ(model.selectedHash(), repo.head());
    test::saveScreenshot(pane, QStringLiteral("graph-history"));

    pane.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&pane));
    pane.table().setFocus();
    QTest::keyClick(&pane.table(), Qt::Key_F, Qt::ControlModifier);
    auto* field = pane.findChild<QLineEdit*>(QStringLiteral("graph.search-field"));
    ASSERT_TRUE(field);
    EXPECT_TRUE(field->isVisible());
    EXPECT_TRUE(field->hasFocus());
    QTest::keyClicks(field, "lanes");
    // At once the subjects that name it; after the pause also the commit whose body does.
    EXPECT_EQ(model.matchingHashesOrdered().size(), 4u);
    EXPECT_EQ(model.selectedHash(), model.matchingHashesOrdered().front());
    ASSERT_TRUE(QTest::qWaitFor([&] { return model.matchingHashesOrdered().size() == 5u; }));
    EXPECT_EQ(model.matchingHashesOrdered().front(), repo.head());
    EXPECT_EQ(model.currentMatchIndex(), 1); // still on the first subject that named it
    test::saveScreenshot(pane, QStringLiteral("graph-search"));
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_FALSE(field->isVisible());

    // A hard reset to the first commit from the context menu: cancelled, then accepted.
    const std::string before = repo.head();
    const std::string target = repo.rev("main~3");
    // The hash column shows the short hash and tells the whole one in its tooltip.
    const QModelIndex hashCell = pane.table().model()->index(model.rowOf(target), GraphTableModel::hashColumn);
    EXPECT_EQ(hashCell.data().toString().toStdString(), target.substr(0, 7));
    EXPECT_EQ(hashCell.data(Qt::ToolTipRole).toString().toStdString(), target);
    for (const char* answer : {"graph.confirmation.cancel", "graph.confirmation.accept"}) {
        const int row = model.rowOf(target);
        const QRect cell = pane.table().visualRect(pane.table().model()->index(row, 2));
        emit pane.table().customContextMenuRequested(cell.center());
        auto* menu = waitForChild<QMenu>(pane, "graph.context-menu");
        ASSERT_TRUE(menu);
        menu->findChild<QAction*>(QStringLiteral("graph.menu.reset-hard"))->trigger();
        menu->close();
        auto* box = waitForChild<QMessageBox>(pane, "graph.confirmation");
        ASSERT_TRUE(box);
        EXPECT_EQ(box->text(), "Hard Reset");
        EXPECT_EQ(static_cast<QAbstractButton*>(box->defaultButton()), box->escapeButton());
        box->findChild<QAbstractButton*>(QLatin1String(answer))->click();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !pane.findChild<QMessageBox*>(); }));
    }
    ASSERT_TRUE(QTest::qWaitFor([&] { return repo.head() == target; }));
    EXPECT_NE(before, target);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !toasts.toasts().empty(); }));
    EXPECT_EQ(toasts.toasts().back().message,
              QString("Reset hard to %1").arg(QString::fromStdString(target.substr(0, 7))));

    const QPalette light = QApplication::palette();
    QApplication::setPalette(darkPalette());
    test::await(model.load());
    model.toggleSearch();
    model.setSearchQuery("feature");
    QTest::qWait(500);
    test::saveScreenshot(pane, QStringLiteral("graph-history-dark"));
    QApplication::setPalette(light);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !model.isLoadingFileChanges() && !model.isSearching(); }));
}

// The search bar in a window with another focused field, as the sidebar's filter is: Ctrl+F opens
// the bar from anywhere and, once open, puts the keyboard back in its query; "n of m" follows the
// selected row, whoever selected it; a query that matches nothing says so and gives the selection
// back to the commit the user had chosen.
TEST_F(GraphPaneTest, SearchTellsWhereTheSelectionStandsAndWhenNothingMatches) {
    buildHistory(repo);
    QWidget window;
    auto* elsewhere = new QLineEdit(&window);
    RepoGraphPaneViewModel model(entry(), service, toasts);
    auto* pane = new GraphPane(model, &window);
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(elsewhere);
    layout->addWidget(pane);
    window.resize(1000, 500);
    window.show();
    test::await(model.load());
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto clickRow = [&](const std::string& hash) {
        const QModelIndex cell = pane->table().model()->index(model.rowOf(hash), GraphTableModel::messageColumn);
        QTest::mouseClick(pane->table().viewport(), Qt::LeftButton, {}, pane->table().visualRect(cell).center());
    };
    const std::string chosen = repo.rev("v0.1");
    clickRow(chosen);
    ASSERT_EQ(model.selectedHash(), chosen);

    elsewhere->setFocus();
    QTest::keyClick(elsewhere, Qt::Key_F, Qt::ControlModifier);
    auto* field = pane->findChild<QLineEdit*>(QStringLiteral("graph.search-field"));
    auto* position = pane->findChild<QLabel*>(QStringLiteral("graph.search-position"));
    ASSERT_TRUE(field->isVisible());
    ASSERT_TRUE(field->hasFocus());
    QTest::keyClicks(field, "lanes");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !model.isSearching(); }));
    const auto matches = model.matchingHashesOrdered();
    ASSERT_EQ(matches.size(), 5u);
    const auto standing = [&] {
        const auto at = std::find(matches.begin(), matches.end(), model.selectedHash().value_or(""));
        return at == matches.end() ? QStringLiteral("5 match(es)")
                                   : QStringLiteral("%1 of 5").arg(at - matches.begin() + 1);
    };
    EXPECT_EQ(position->text(), standing());
    EXPECT_NE(model.selectedHash(), chosen);

    QTest::keyClick(field, Qt::Key_X);
    EXPECT_EQ(model.selectedHash(), chosen);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !model.isSearching(); }));
    EXPECT_TRUE(model.matchingHashesOrdered().empty());
    EXPECT_EQ(position->text(), QStringLiteral("No commits match"));
    EXPECT_EQ(model.selectedHash(), chosen);
    test::saveScreenshot(window, QStringLiteral("graph-search-no-match"));

    QTest::keyClick(field, Qt::Key_Backspace);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !model.isSearching(); }));
    ASSERT_EQ(model.matchingHashesOrdered(), matches);
    // Rows the user picks, matching or not, and the walk on from a picked one.
    for (const std::string& hash : {chosen, matches[3], matches[0]}) {
        clickRow(hash);
        ASSERT_EQ(model.selectedHash(), hash);
        EXPECT_EQ(position->text(), standing()) << hash;
    }
    clickRow(matches[3]);
    pane->findChild<QToolButton*>(QStringLiteral("graph.search-next"))->click();
    EXPECT_EQ(model.selectedHash(), matches[4]);
    EXPECT_EQ(position->text(), QStringLiteral("5 of 5"));
    test::saveScreenshot(window, QStringLiteral("graph-search-position"));

    // Open already: Ctrl+F from the table takes the keyboard back to the query, all of it selected.
    pane->table().setFocus();
    QTest::keyClick(&pane->table(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(field->hasFocus());
    EXPECT_EQ(field->selectedText(), QStringLiteral("lanes"));
}

} // namespace
