// The interactive rebase sheet end to end on real git: autosquash, a keyboard move, a reword whose
// message holds quotes and "$()", an exec row, and Start; the new history is read back from git.
// Also the row moves of drag and drop, and the toast instead of a sheet when nothing is to rebase.
#include "merge/ui/RebasePlanSheet.h"
#include "merge/InteractiveRebaseViewModel.h"
#include "merge/ui/RebasePlanItemModel.h"

#include "core/RealGitService.h"
#include "notices/ToastManager.h"
#include "support/Eventually.h"
#include "support/Screenshot.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include <gtest/gtest.h>

#include <filesystem>

using namespace orvel;

namespace {

class RebasePlanSheetTest : public test::RepositoryTest {
  protected:
    // Commits each of `subjects` on top of "base", each writing its subject into the file named
    // after its last word, so that "fixup! one" changes the file of "one"; answers base's hash.
    std::string commitsOnBase(std::initializer_list<const char*> subjects) {
        repo.write("base.txt", "base\n");
        const std::string base = repo.commitAll("base");
        for (const std::string subject : subjects) {
            repo.write(subject.substr(subject.rfind(' ') + 1) + ".txt", subject + "\n");
            repo.commitAll(subject);
        }
        return base;
    }

    // The sheet for the commits after `onto`, once shown.
    void open(const std::string& onto) {
        sheet = new RebasePlanSheet(entry(), onto, service, toasts);
        sheet->model().load();
        ASSERT_TRUE(test::eventually([&] { return sheet->isVisible(); }));
        list = sheet->findChild<QTreeView*>(QStringLiteral("rebase-sheet.commit-list"));
        rows = static_cast<RebasePlanItemModel*>(list->model());
    }

    void click(const char* button) { sheet->findChild<QPushButton*>(QString::fromLatin1(button))->click(); }

    std::shared_ptr<GitServiceProtocol> service{&real.service, [](GitServiceProtocol*) {}};
    ToastManager toasts;
    QPointer<RebasePlanSheet> sheet;
    QTreeView* list = nullptr;
    RebasePlanItemModel* rows = nullptr;
};

std::vector<std::string> subjects(const RebasePlanModel& plan) {
    std::vector<std::string> result;
    for (const RebaseTodoEntry& entry : plan.entries())
        result.push_back(entry.action == RebaseAction::exec ? "exec " + entry.execCommand.value_or("")
                                                            : entry.subject);
    return result;
}

TEST_F(RebasePlanSheetTest, RewordMoveExecAndAutosquashRunThroughGit) {
    const std::string base = commitsOnBase({"one", "two", "fixup! one", "three"});
    open(base);
    RebasePlanModel& plan = rows->plan();
    ASSERT_EQ(subjects(plan), (std::vector<std::string>{"one", "two", "fixup! one", "three"}));

    click("rebase-sheet.autosquash");
    list->setCurrentIndex(rows->index(3, 0));
    QTest::keyClick(list, Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(subjects(plan), (std::vector<std::string>{"one", "fixup! one", "three", "two"}));
    EXPECT_EQ(plan.entries()[1].action, RebaseAction::fixup);

    // "r" on the last row opens its message; the text reaches git byte for byte.
    const std::string message = "two: it's \"quoted\" $(touch pwned) `touch pwned`\n\nbody 'line'";
    list->setCurrentIndex(rows->index(3, 0));
    QTest::keyClick(list, Qt::Key_R);
    auto* text = sheet->findChild<QPlainTextEdit*>(QStringLiteral("rebase-sheet.reword-text"));
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->toPlainText(), QStringLiteral("two"));
    text->setPlainText(QString::fromStdString(message));
    click("rebase-sheet.reword-save");
    EXPECT_EQ(plan.entries()[3].action, RebaseAction::reword);
    ASSERT_TRUE(test::eventually([&] {
        return sheet->findChild<QPlainTextEdit*>(QStringLiteral("rebase-sheet.reword-text")) == nullptr;
    }));

    click("rebase-sheet.add-exec");
    auto* command = sheet->findChild<QLineEdit*>(QStringLiteral("rebase-sheet.exec-command"));
    ASSERT_NE(command, nullptr);
    QTest::keyClicks(command, QStringLiteral("echo ran > exec-ran.txt"));
    QTest::keyClick(command, Qt::Key_Return);
    ASSERT_TRUE(test::eventually([&] { return subjects(plan).back() == "exec echo ran > exec-ran.txt"; }));
    test::saveScreenshot(*sheet, QStringLiteral("rebase-sheet"), sheet->size());

    click("rebase-sheet.start");
    ASSERT_TRUE(test::eventually([&] { return sheet.isNull(); }));
    ASSERT_EQ(toasts.toasts().size(), 1u);
    EXPECT_EQ(toasts.toasts()[0].message, QStringLiteral("Interactive rebase completed"));
    // git ends every stored message with one newline; the rest is the text as typed.
    const std::string commit = repo.git({"cat-file", "commit", "HEAD"});
    EXPECT_EQ(commit.substr(commit.find("\n\n") + 2), message + "\n");
    EXPECT_EQ(repo.git({"log", "--format=%s", base + "..HEAD"}),
              "two: it's \"quoted\" $(touch pwned) `touch pwned`\nthree\none\n");
    EXPECT_EQ(repo.git({"show", "HEAD~2:one.txt"}), "fixup! one\n");
    EXPECT_TRUE(std::filesystem::exists(repo / "exec-ran.txt"));
    EXPECT_FALSE(std::filesystem::exists(repo / "pwned"));
}

// Rows that will stop on a conflict carry a mark beside their hash and their files in the tooltip,
// recomputed on git as rows move; Start stays usable while that runs.
TEST_F(RebasePlanSheetTest, MarksTheRowsThatWillConflictAsTheyMove) {
    repo.write("f", "x\n");
    const std::string base = repo.commitAll("base");
    repo.write("f", "y\n");
    repo.commitAll("A");
    repo.write("f", "z\n");
    repo.commitAll("B");

    open(base);
    ASSERT_TRUE(test::eventually([&] { return !sheet->model().isPredicting(); }));
    const auto tooltip = [&](int row) { return rows->index(row, 0).data(Qt::ToolTipRole).toString(); };
    const auto marked = [&](int row) {
        return !rows->index(row, RebasePlanItemModel::CommitColumn).data(Qt::DecorationRole).isNull();
    };
    const auto summary = [&] {
        return sheet->findChild<QLabel*>(QStringLiteral("rebase-sheet.conflict-preview"))->text();
    };
    EXPECT_TRUE(tooltip(0).isEmpty());
    EXPECT_FALSE(marked(0) || marked(1));
    EXPECT_EQ(summary(), QStringLiteral("No step will stop on a conflict."));

    list->setCurrentIndex(rows->index(1, 0));
    QTest::keyClick(list, Qt::Key_Up, Qt::ControlModifier);
    EXPECT_TRUE(sheet->findChild<QPushButton*>(QStringLiteral("rebase-sheet.start"))->isEnabled());
    ASSERT_TRUE(test::eventually([&] { return marked(0); }));
    EXPECT_EQ(tooltip(0), QStringLiteral("Will stop on a conflict in 1 file(s): f"));
    ASSERT_TRUE(test::eventually([&] { return !sheet->model().isPredicting(); }));
    EXPECT_EQ(summary(), QStringLiteral("2 step(s) will stop on a conflict."));
    // The commit cell of a step, as painted; the hash takes the same place with and without the mark.
    const auto commitCell = [&](int row) {
        const QModelIndex cell = list->model()->index(row, RebasePlanItemModel::CommitColumn);
        return list->viewport()->grab(list->visualRect(cell)).toImage();
    };
    const QImage markedB = commitCell(0); // B, moved first
    test::saveScreenshot(*sheet, QStringLiteral("rebase-sheet-conflicts"), sheet->size());

    QTest::keyClick(list, Qt::Key_Down, Qt::ControlModifier);
    ASSERT_TRUE(test::eventually([&] { return !sheet->model().isPredicting(); }));
    EXPECT_FALSE(marked(0) || marked(1));
    const QImage plainB = commitCell(1);
    const int hashEnd = plainB.width() - 4; // short of the focus frame's edge
    EXPECT_TRUE(markedB.copy(0, 0, hashEnd, markedB.height()) == plainB.copy(0, 0, hashEnd, plainB.height()))
        << "the mark covers the hash";
    int markPixels = 0; // beyond the hash, unlike the background at its end
    for (int y = 0; y < markedB.height(); ++y)
        for (int x = hashEnd; x < markedB.width() - 4; ++x)
            markPixels += markedB.pixel(x, y) != markedB.pixel(hashEnd, y);
    EXPECT_GT(markPixels, 0) << "no mark beside the hash";
    sheet->close();
}

// Chooses `action` in the menu the row's action cell opens, as a double click does.
void chooseAction(QTreeView& list, int row, const QString& action) {
    const QModelIndex cell = list.model()->index(row, RebasePlanItemModel::ActionColumn);
    ASSERT_TRUE(cell.flags() & Qt::ItemIsEditable) << "row " << row << " offers no actions";
    list.setCurrentIndex(cell);
    list.edit(cell);
    auto* menu = list.viewport()->findChild<QComboBox*>();
    ASSERT_NE(menu, nullptr);
    menu->setCurrentText(action);
    QTest::keyClick(menu, Qt::Key_Return);
    ASSERT_TRUE(test::eventually([&] { return list.viewport()->findChild<QComboBox*>() == nullptr; }));
}

// A commit row given the exec action runs the command in place of the commit, and one given exec
// and then pick is picked again under its own subject.
TEST_F(RebasePlanSheetTest, ACommitRowMadeExecTakesItsActionBack) {
    const std::string base = commitsOnBase({"one", "two", "three"});
    open(base);
    auto* removeExec = sheet->findChild<QPushButton*>(QStringLiteral("rebase-sheet.remove-exec"));
    const auto subjectOf = [&](int row) {
        return rows->index(row, RebasePlanItemModel::SubjectColumn).data().toString();
    };

    chooseAction(*list, 1, QStringLiteral("exec"));
    EXPECT_EQ(subjectOf(1), QString());
    EXPECT_FALSE(removeExec->isEnabled());
    test::saveScreenshot(*sheet, QStringLiteral("rebase-sheet-commit-made-exec"), sheet->size());
    chooseAction(*list, 1, QStringLiteral("pick"));
    EXPECT_EQ(subjectOf(1), QStringLiteral("two"));

    chooseAction(*list, 0, QStringLiteral("exec"));
    const QModelIndex command = rows->index(0, RebasePlanItemModel::SubjectColumn);
    ASSERT_TRUE(command.flags() & Qt::ItemIsEditable);
    rows->setData(command, QStringLiteral("echo ran > exec-ran.txt"), Qt::EditRole);
    EXPECT_EQ(subjectOf(0), QStringLiteral("echo ran > exec-ran.txt"));
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_EQ(rows->rowCount(), 3);

    click("rebase-sheet.start");
    ASSERT_TRUE(test::eventually([&] { return sheet.isNull(); }));
    EXPECT_EQ(repo.git({"log", "--format=%s", base + "..HEAD"}), "three\ntwo\n");
    EXPECT_TRUE(std::filesystem::exists(repo / "exec-ran.txt"));
}

TEST_F(RebasePlanSheetTest, NothingToRebaseIsAToastAndNoSheet) {
    repo.write("a.txt", "a\n");
    repo.commitAll("only");
    sheet = new RebasePlanSheet(entry(), "HEAD", service, toasts);
    sheet->model().load();
    ASSERT_TRUE(test::eventually([&] { return sheet.isNull(); }));
    ASSERT_EQ(toasts.toasts().size(), 1u);
    EXPECT_EQ(toasts.toasts()[0].message, QStringLiteral("No commits to rebase"));
}

TEST(RebasePlanItemModelTest, ADroppedRowLandsWhereTheIndicatorWas) {
    struct Case {
        int from;
        int dropRow; // the gap before this row; -1 is below the last row
        std::string order;
    };
    for (const Case& c : std::vector<Case>{{0, 2, "BACD"},
                                           {3, 0, "DABC"},
                                           {1, -1, "ACDB"},
                                           {0, 4, "BCDA"},
                                           {2, 2, "ABCD"},
                                           {2, 3, "ABCD"}}) {
        std::vector<RebaseTodoEntry> entries;
        for (const char* subject : {"A", "B", "C", "D"})
            entries.push_back({QUuid::createUuid(), RebaseAction::pick, subject, subject, {}, {}});
        RebasePlanModel plan("main", entries);
        RebasePlanItemModel rows(plan);
        QMimeData* data = rows.mimeData({rows.index(c.from, 0)});
        rows.dropMimeData(data, Qt::MoveAction, c.dropRow, 0, {});
        delete data;
        std::string order;
        for (const RebaseTodoEntry& entry : plan.entries())
            order += entry.subject;
        EXPECT_EQ(order, c.order) << c.from << " to " << c.dropRow;
    }
}

} // namespace
