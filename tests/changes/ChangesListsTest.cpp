// The two lists of the changes page as a person uses them, on a real repository: one selection
// spans both lists, a double-click or Enter moves a row to the other list in git's index, and a
// file git doesn't track offers neither blame nor history.
#include "changes/ChangesOnRealGit.h"
#include "changes/ChangesPaneViewModel.h"
#include "changes/ui/ChangesFileMenu.h"
#include "changes/ui/ChangesPage.h"
#include "support/Await.h"
#include "support/Screenshot.h"

#include <QAction>
#include <QApplication>
#include <QItemSelectionModel>
#include <QMenu>
#include <QTest>
#include <QTreeView>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

class ChangesLists : public test::ChangesOnRealGit {
  protected:
    ChangesLists() {
        repo.write("both.txt", "one\n");
        repo.write("work.txt", "one\n");
        repo.commitAll("base");
    }

    QTreeView& list(bool staged) {
        return *page.findChild<QTreeView*>(staged ? QStringLiteral("changes-pane.staged-list")
                                                  : QStringLiteral("changes-pane.unstaged-list"));
    }
    // Where the list shows the row of `path`, in its viewport.
    QPoint rowCentre(bool staged, const std::string& path) {
        QTreeView& view = list(staged);
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            const QModelIndex index = view.model()->index(row, 0);
            if (index.data().toString() == QString::fromStdString(path))
                return view.visualRect(index).center();
        }
        ADD_FAILURE() << "no row " << path << (staged ? " in the staged list" : " in the unstaged list");
        return {};
    }
    int selectedRows(bool staged) { return int(list(staged).selectionModel()->selectedRows().size()); }
    std::string staged() { return repo.git({"diff", "--cached", "--name-only"}); }

    ChangesPaneViewModel model{entry(), service, toasts};
    ChangesPage page{model};
};

} // namespace

TEST_F(ChangesLists, OneSelectionSpansBothLists) {
    // A file changed in the index and again in the working tree has a row in each list.
    repo.write("both.txt", "two\n");
    repo.git({"add", "both.txt"});
    repo.write("both.txt", "three\n");
    repo.write("work.txt", "two\n");
    test::await(model.refreshStatus());
    page.resize(900, 600);
    page.show();
    std::vector<std::pair<std::string, bool>> asked; // the diffs the page asked for
    QObject::connect(&page, &ChangesPage::fileSelected, &page, [&asked](const FileChange& file, bool staged) {
        asked.emplace_back(file.path, staged);
    });

    const struct {
        bool staged;
        const char* path;
    } clicks[] = {{false, "both.txt"}, {true, "both.txt"}, {false, "work.txt"}, {true, "both.txt"}};
    for (const auto& click : clicks) {
        SCOPED_TRACE(std::string(click.path) + (click.staged ? " staged" : " unstaged"));
        QTest::mouseClick(list(click.staged).viewport(), Qt::LeftButton, {},
                          rowCentre(click.staged, click.path));
        EXPECT_EQ(selectedRows(click.staged), 1);
        EXPECT_EQ(selectedRows(!click.staged), 0);
        EXPECT_EQ(model.selectedFiles(click.staged).size(), 1u);
        EXPECT_TRUE(model.selectedFiles(!click.staged).empty());
        ASSERT_FALSE(asked.empty());
        EXPECT_EQ(asked.back(), std::make_pair(std::string(click.path), click.staged));
    }
    // The section's button took a longer text: its layout settles at the next turn of the loop.
    QApplication::processEvents();
    test::saveScreenshot(page, "changes-one-selection", {900, 600});
}

TEST_F(ChangesLists, DoubleClickAndEnterMoveARowToTheOtherList) {
    repo.write("work.txt", "two\n");
    test::await(model.refreshStatus());
    page.resize(900, 600);
    page.show();
    const struct {
        const char* gesture;
        bool fromStaged;
        const char* stagedAfter;
    } cases[] = {
        {"double-click", false, "work.txt\n"},
        {"double-click", true, ""},
        {"Enter", false, "work.txt\n"},
        {"Enter", true, ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::string(each.gesture) +
                     (each.fromStaged ? " on the staged row" : " on the unstaged row"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return list(each.fromStaged).model()->rowCount() == 1; }, 20000));
        QTreeView& view = list(each.fromStaged);
        if (std::string_view(each.gesture) == "Enter") {
            view.setFocus();
            view.setCurrentIndex(view.model()->index(0, 0));
            QTest::keyClick(&view, Qt::Key_Return);
        } else {
            // A double-click is a click and then the second press, which the window system
            // reports as a double-click.
            const QPoint row = rowCentre(each.fromStaged, "work.txt");
            QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, row);
            QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, row);
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return staged() == each.stagedAfter; }, 20000)) << staged();
        EXPECT_TRUE(QTest::qWaitFor([&] { return list(!each.fromStaged).model()->rowCount() == 1; }, 20000));
    }
    EXPECT_EQ(toastText(), "");
}

TEST_F(ChangesLists, AnUntrackedFileOffersNeitherBlameNorHistory) {
    repo.write("work.txt", "two\n");
    repo.write("new.txt", "not yet known to git\n");
    test::await(model.refreshStatus());
    int blames = 0, histories = 0;
    QObject::connect(&model, &ChangesPaneViewModel::blameRequested, &page, [&blames] { ++blames; });
    QObject::connect(&model, &ChangesPaneViewModel::fileHistoryRequested, &page,
                     [&histories] { ++histories; });
    page.show();

    const struct {
        const char* path;
        bool offered;
    } cases[] = {{"work.txt", true}, {"new.txt", false}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.path);
        const auto& rows = model.unstagedFiles();
        const auto row = std::find_if(rows.begin(), rows.end(),
                                      [&](const FileChange& file) { return file.path == each.path; });
        ASSERT_NE(row, rows.end());
        const FileChange file = *row;

        showChangesFileMenu(model, file, false, &page, page.mapToGlobal(QPoint(20, 20)));
        auto* menu = page.findChild<QMenu*>();
        ASSERT_NE(menu, nullptr);
        QStringList entries;
        for (const QAction* action : menu->actions())
            if (!action->isSeparator())
                entries << action->text();
        EXPECT_EQ(entries.contains(QStringLiteral("Blame This File")), each.offered)
            << entries.join(u", ").toStdString();
        EXPECT_EQ(entries.contains(QStringLiteral("File History")), each.offered);
        delete menu;

        // No other way in opens a sheet for it either.
        blames = histories = 0;
        model.requestBlame(file);
        model.requestFileHistory(file);
        EXPECT_EQ(blames, each.offered ? 1 : 0);
        EXPECT_EQ(histories, each.offered ? 1 : 0);
    }
}
