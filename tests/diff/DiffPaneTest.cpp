// The diff pane on real repositories: a hunk staged from its button reaches the index, a hunk
// discarded after its confirmation leaves the other changes' bytes on disk, hunk buttons show on
// the hunk under the pointer or with the focus only, the header names the change's side, a hunk
// action chosen before a reload refuses the other hunk the reload put in its place, a conflicted
// file shows its conflict and offers the merge editor, lines chosen with the keys or the mouse (on
// one side of the side-by-side view) are staged, unstaged and discarded alone, the modes and the whole-file
// context, a sparse 2 GB file stops at the gate having read only its first bytes, an image change says it is
// loading and then shows both images, a commit that doesn't exist fails with Retry, and the blame
// sheet lists the file's lines. Screenshots of each.
#include "diff/ui/DiffPane.h"
#include "diff/DiffDetailViewModel.h"
#include "diff/ui/BlameSheet.h"
#include "diff/ui/DiffTextView.h"

#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "support/Await.h"
#include "support/DrainQueue.h"
#include "support/Eventually.h"
#include "support/GitFixture.h"
#include "support/Screenshot.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

using Content = DiffDetailViewModel::Content;

std::string numberedLines(int count, int changedA = 0, int changedB = 0) {
    std::string text;
    for (int i = 1; i <= count; ++i)
        text += (i == changedA || i == changedB ? "    int changed = " : "    int value = ") +
                std::to_string(i) + "; // line\n";
    return "int main() {\n" + text + "    return 0;\n}\n";
}

// Bytes read by this process so far, pipes included.
long long bytesRead() {
    std::ifstream io("/proc/self/io");
    std::string key;
    long long value = 0;
    while (io >> key >> value)
        if (key == "rchar:")
            return value;
    return 0;
}

RepoEntry entryAt(const std::string& path) {
    RepoEntry entry;
    entry.path = path;
    return entry;
}

QPalette darkPalette() {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(0x1f, 0x1f, 0x23));
    dark.setColor(QPalette::WindowText, QColor(0xe6, 0xe6, 0xe6));
    dark.setColor(QPalette::Base, QColor(0x18, 0x18, 0x1b));
    dark.setColor(QPalette::Text, QColor(0xe6, 0xe6, 0xe6));
    dark.setColor(QPalette::Button, QColor(0x2a, 0x2a, 0x2e));
    dark.setColor(QPalette::ButtonText, QColor(0xe6, 0xe6, 0xe6));
    return dark;
}

class DiffPaneTest : public ::testing::Test {
  protected:
    DiffPaneTest() {
        repo.write("app.cpp", numberedLines(40));
        repo.commitAll("base");
    }
    ~DiffPaneTest() override { test::drainQueue(*runner); }

    void showAndWait(const std::string& path, FileStatusKind status, bool staged = false,
                     std::optional<std::string> commit = std::nullopt) {
        FileChange file;
        file.path = path;
        file.status = status;
        model.showDiff(file, commit, false, staged);
        ASSERT_TRUE(QTest::qWaitFor([&] { return model.content() != Content::loading; }, 20000));
    }

    // The pane in an active window of `size`, so that its text can take the focus, showing the
    // working tree's change of `path`.
    void showActiveAndWait(QSize size, const std::string& path) {
        showPane(size);
        pane.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&pane));
        showAndWait(path, modified());
    }

    void showPane(QSize size) {
        pane.resize(size);
        pane.show();
    }

    std::string staged() const { return repo.git({"diff", "--cached"}); }
    bool stagedHas(std::string_view text) const { return staged().find(text) != std::string::npos; }
    void click(const char* button) { pane.findChild<QToolButton*>(QString::fromLatin1(button))->click(); }
    QMessageBox* discardQuestion() {
        return pane.findChild<QMessageBox*>(QStringLiteral("diff-pane.discard-confirmation"));
    }
    void confirmDiscard() {
        pane.findChild<QPushButton*>(QStringLiteral("diff-pane.discard-confirm"))->click();
    }

    void clickHunkButton(int hunk, int action) {
        DiffTextView& view = pane.textView();
        const QRect button = view.hunkButtonRect(hunk, action);
        ASSERT_FALSE(button.isEmpty());
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, button.center());
    }

    // The pane as `name`-light and `name`-dark.
    void saveLightAndDark(const QString& name, QSize size = {1100, 500}) {
        test::saveScreenshot(pane, name + QStringLiteral("-light"), size);
        const QPalette light = QApplication::palette();
        QApplication::setPalette(darkPalette());
        QApplication::processEvents();
        test::saveScreenshot(pane, name + QStringLiteral("-dark"), size);
        QApplication::setPalette(light);
        QApplication::processEvents();
    }

    static FileStatusKind modified() {
        return FileStatusKind::tracked(TrackedStatus::unmodified, TrackedStatus::modified);
    }

    test::TempRepo repo;
    InMemoryUserDefaults defaults;
    std::shared_ptr<GitOpRunner> runner = std::make_shared<GitOpRunner>(2);
    std::shared_ptr<NativeGitService> service = std::make_shared<NativeGitService>(
        std::make_shared<SubprocessExecutor>(std::nullopt, defaults), runner);
    DiffDetailViewModel model{entryAt(repo.path()), service};
    DiffPane pane{model};
};

// The header says which list a working-tree change belongs to; a commit's change has no side.
TEST_F(DiffPaneTest, StagesOneHunkAndDiscardsAnotherAfterConfirming) {
    repo.write("app.cpp", numberedLines(40, 3, 35));
    showPane({1100, 700});
    showAndWait("app.cpp", modified());
    ASSERT_EQ(model.content(), Content::diff);
    ASSERT_EQ(model.fileDiff()->hunks.size(), 2u);
    auto* side = pane.findChild<QLabel*>(QStringLiteral("diff-pane.side"));
    const auto sideText = [side] { return side->isVisible() ? side->text() : QString(); };
    EXPECT_EQ(sideText(), QStringLiteral("Unstaged"));
    test::saveScreenshot(pane, "diff-header-unstaged", {900, 500});
    saveLightAndDark("diff-unified", {1100, 700});

    // The first hunk's Stage button puts exactly that change into the index.
    clickHunkButton(0, 0);
    ASSERT_TRUE(test::eventually([&] { return stagedHas("changed = 3"); }));
    EXPECT_FALSE(stagedHas("changed = 35"));
    ASSERT_TRUE(test::eventually(
        [&] { return model.content() == Content::diff && model.fileDiff()->hunks.size() == 1; }));

    // Discard asks first; Cancel keeps the change, Discard removes it from the working tree only.
    clickHunkButton(0, 2);
    auto* confirmation = discardQuestion();
    ASSERT_NE(confirmation, nullptr);
    EXPECT_EQ(confirmation->defaultButton()->text(), QStringLiteral("Cancel"));
    confirmDiscard();
    ASSERT_TRUE(test::eventually([&] { return (repo.read("app.cpp")) == (numberedLines(40, 3)); }));
    ASSERT_TRUE(test::eventually([&] { return model.content() == Content::noChanges; }));

    // The staged side offers Unstage only, and takes the hunk back out of the index.
    showAndWait("app.cpp", modified(), true);
    EXPECT_EQ(sideText(), QStringLiteral("Staged"));
    test::saveScreenshot(pane, "diff-header-staged", {900, 500});
    EXPECT_TRUE(model.hunkActions().unstage);
    EXPECT_FALSE(model.hunkActions().stage || model.hunkActions().discard);
    clickHunkButton(0, 1);
    ASSERT_TRUE(test::eventually([&] { return staged().empty(); }));
    showAndWait("app.cpp", modified(), false, repo.head());
    EXPECT_EQ(sideText(), QString());
}

// Whether the header of `hunk` shows its buttons: the place of its Stage button is then more than
// the header's one fill.
bool showsButtons(DiffTextView& view, int hunk) {
    const QRect place = view.hunkButtonRect(hunk, 0);
    EXPECT_FALSE(place.isEmpty()) << "hunk " << hunk << " is out of sight";
    const QImage image = view.viewport()->grab().toImage();
    for (int y = place.top(); y <= place.bottom(); ++y)
        for (int x = place.left(); x <= place.right(); ++x)
            if (image.pixel(x, y) != image.pixel(place.topLeft()))
                return true;
    return false;
}

// The buttons of a hunk show while the pointer is over any of its lines, and on the hunk the keys
// act on while the text has the focus; never on every hunk at once. The menu key acts on that
// hunk too.
TEST_F(DiffPaneTest, HunkButtonsShowOnTheHunkUnderThePointerOrWithTheFocus) {
    repo.write("app.cpp", numberedLines(40, 3, 35));
    showActiveAndWait({1100, 700}, "app.cpp");
    ASSERT_EQ(model.fileDiff()->hunks.size(), 2u);
    DiffTextView& view = pane.textView();
    auto* modeButton = pane.findChild<QToolButton*>(QStringLiteral("diff-pane.mode.diff"));
    const QPoint outside = modeButton->mapTo(&pane, modeButton->rect().center());
    // A line in the body of the second hunk, well left of the buttons.
    const QRect secondButton = view.hunkButtonRect(1, 0);
    const QPoint inSecondHunk(100, secondButton.center().y() + 3 * secondButton.height());

    const struct {
        const char* state;
        bool focusOnText, pointerOnSecond;
        bool first, second;
    } cases[] = {
        {"pointer elsewhere, focus elsewhere", false, false, false, false},
        {"pointer over the second hunk", false, true, false, true},
        {"focus on the text, the first hunk in sight", true, false, true, false},
        {"focus and pointer", true, true, true, true},
        {"focus leaves", false, false, false, false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.state);
        if (each.focusOnText)
            view.setFocus();
        else
            modeButton->setFocus();
        if (each.pointerOnSecond)
            QTest::mouseMove(view.viewport(), inSecondHunk);
        else
            QTest::mouseMove(&pane, outside);
        QApplication::processEvents();
        EXPECT_EQ(showsButtons(view, 0), each.first);
        EXPECT_EQ(showsButtons(view, 1), each.second);
    }
    QTest::mouseMove(view.viewport(), inSecondHunk);
    test::saveScreenshot(pane, "diff-hunk-buttons-on-hover", {1100, 700});

    // From the keyboard the menu key offers the actions of the hunk whose buttons the focus shows,
    // wherever the window system puts the menu's event.
    view.setFocus();
    QTimer::singleShot(0, &pane, [] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        menu->actions().at(0)->trigger();
        menu->close();
    });
    const QPoint atSecondHunk = view.viewport()->mapTo(&view, inSecondHunk);
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, atSecondHunk, view.mapToGlobal(atSecondHunk));
    QApplication::sendEvent(&view, &menuKey);
    ASSERT_TRUE(test::eventually([&] { return !staged().empty(); }));
    EXPECT_TRUE(stagedHas("changed = 3"));
    EXPECT_FALSE(stagedHas("changed = 35"));
}

// A hunk longer than the view keeps its header pinned at the top once the header scrolls away, so
// its buttons stay in reach of the pointer and of the keys.
TEST_F(DiffPaneTest, ALongHunkKeepsItsHeaderAndButtonsInReach) {
    std::string rewritten = numberedLines(40);
    for (std::size_t at = 0; (at = rewritten.find("int value", at)) != std::string::npos;)
        rewritten.replace(at, 9, "int other");
    repo.write("app.cpp", rewritten);
    showActiveAndWait({1100, 400}, "app.cpp");
    ASSERT_EQ(model.fileDiff()->hunks.size(), 1u);
    DiffTextView& view = pane.textView();
    view.setFocus();
    const QRect inPlace = view.hunkButtonRect(0, 0);
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() / 2);
    QApplication::processEvents();
    const QRect pinned = view.hunkButtonRect(0, 0);
    ASSERT_FALSE(pinned.isEmpty());
    EXPECT_EQ(pinned, inPlace);
    EXPECT_TRUE(showsButtons(view, 0));
    test::saveScreenshot(pane, "diff-pinned-hunk-header", {1100, 400});

    clickHunkButton(0, 0);
    ASSERT_TRUE(test::eventually([&] { return stagedHas("int other = 20"); }));
}

// A hunk action that waits for the person (the context menu, the discard confirmation) while the
// diff is read again must not act on whatever hunk the reload put in its place: it does nothing,
// says so, and the diff is read anew.
TEST_F(DiffPaneTest, AHunkActionChosenBeforeAReloadRefusesAnotherHunkInItsPlace) {
    struct Case {
        const char* name;
        std::string before;  // the working tree when the hunk is chosen
        std::string changed; // written while the action waits
        bool fromMenu;       // Stage from the context menu, else Discard through its confirmation
    };
    std::string edited = numberedLines(40, 3);
    edited.replace(edited.find("int changed = 3"), 15, "int edited = 3");
    const Case cases[] = {
        // The first hunk goes away, so the second one becomes hunk 0.
        {"menu", numberedLines(40, 3, 35), numberedLines(40, 35), true},
        // The hunk keeps its four numbers but not its lines.
        {"confirmation", numberedLines(40, 3), edited, false},
    };
    showPane({1100, 700});
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        repo.write("app.cpp", each.before);
        showAndWait("app.cpp", modified());
        ASSERT_EQ(model.content(), Content::diff);
        auto changeAndReload = [&] {
            repo.write("app.cpp", each.changed);
            model.reload();
            ASSERT_TRUE(QTest::qWaitFor([&] { return model.content() == Content::diff; }, 20000));
        };
        DiffTextView& view = pane.textView();
        if (each.fromMenu) {
            QTimer::singleShot(0, &pane, [&] {
                changeAndReload();
                auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                ASSERT_NE(menu, nullptr);
                menu->actions().at(0)->trigger();
                menu->close();
            });
            const QPoint onHeader = view.hunkButtonRect(0, 0).center() - QPoint(300, 0);
            QContextMenuEvent event(QContextMenuEvent::Mouse, onHeader,
                                    view.viewport()->mapToGlobal(onHeader));
            QApplication::sendEvent(view.viewport(), &event);
        } else {
            clickHunkButton(0, 2);
            auto* confirmation = discardQuestion();
            ASSERT_NE(confirmation, nullptr);
            changeAndReload();
            confirmDiscard();
        }
        ASSERT_TRUE(QTest::qWaitFor([&] { return model.hunkActionError().has_value(); }, 20000));
        auto* alert = pane.findChild<QMessageBox*>(QStringLiteral("diff-pane.hunk-error"));
        ASSERT_NE(alert, nullptr);
        EXPECT_TRUE(alert->informativeText().contains(QStringLiteral("choose the hunk once more")));
        alert->close();
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return !pane.findChild<QMessageBox*>(QStringLiteral("diff-pane.hunk-error")); }, 20000));
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return !model.hunkActionError() && model.content() == Content::diff; }, 20000));
        EXPECT_EQ(staged(), "");
        EXPECT_EQ(repo.read("app.cpp"), each.changed);
    }
}

// Lines chosen with the keyboard are staged with S, and only they; lines chosen with the mouse in
// the side-by-side view are unstaged from their hunk's button and discarded after the
// confirmation; lines chosen before the file changed on disk are refused, the pane reads the file
// again and says why.
TEST_F(DiffPaneTest, ChosenLinesAreStagedUnstagedAndDiscardedAlone) {
    // One hunk: lines 3 and 5 changed around an unchanged line 4.
    repo.write("app.cpp", numberedLines(40, 3, 5));
    showActiveAndWait({1100, 500}, "app.cpp");
    ASSERT_EQ(model.fileDiff()->hunks.size(), 1u);
    DiffTextView& view = pane.textView();
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    ASSERT_EQ(view.chosenLines().size(), 1u);
    EXPECT_EQ(view.chosenLines()[0].lines.size(), 2u);
    EXPECT_FALSE(view.hunkButtonRect(0, 3).isEmpty());
    saveLightAndDark("diff-lines-chosen");

    QTest::keyClick(&view, Qt::Key_S);
    ASSERT_TRUE(test::eventually([&] { return stagedHas("changed = 3"); }));
    EXPECT_FALSE(stagedHas("changed = 5"));
    ASSERT_TRUE(
        test::eventually([&] { return model.content() == Content::diff && view.chosenLines().empty(); }));

    // Side by side on the staged side, lines are chosen on one side: the removed line on the
    // left, the added one on the right, whatever a Shift+click, a drag or Shift+Down reaches on
    // the other side or among context; the hunk's header offers Unstage Lines only while a
    // change is chosen.
    showAndWait("app.cpp", modified(), true);
    click("diff-pane.mode.split");
    const QRect header = view.hunkButtonRect(0, 1);
    ASSERT_FALSE(header.isEmpty());
    // The middle of `row` at `x`: a button stands two pixels inside its header row.
    const int lineHeight = header.height() + 4;
    const auto at = [lineHeight](int x, int row) { return QPoint(x, row * lineHeight + lineHeight / 2); };
    const auto chosenText = [&] {
        std::string text;
        for (const ChosenLines& hunk : view.chosenLines())
            for (const int line : hunk.lines) {
                const DiffLine& chosen =
                    model.fileDiff()->hunks[std::size_t(hunk.hunk)].lines[std::size_t(line)];
                text += (chosen.type == DiffLineType::addition ? "+" : "-") + chosen.content.str() + "\n";
            }
        return text;
    };
    const auto drag = [&](QPoint from, QPoint to) {
        QTest::mousePress(view.viewport(), Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, view.viewport()->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &move);
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, to);
    };
    // Three lines of context under the header, then the changed pair.
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at(100, 4));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ShiftModifier, at(700, 5));
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(chosenText(), "-    int value = 3; // line\n");
    drag(at(700, 1), at(700, 4));
    EXPECT_EQ(chosenText(), "+    int changed = 3; // line\n");
    drag(at(100, 1), at(100, 3));
    EXPECT_EQ(chosenText(), "");
    EXPECT_TRUE(view.hunkButtonRect(0, 4).isEmpty());
    QTest::keyClick(&view, Qt::Key_Escape);
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(chosenText(), "-    int value = 3; // line\n");
    saveLightAndDark("diff-lines-chosen-split");
    clickHunkButton(0, 4);
    ASSERT_TRUE(test::eventually([&] { return !stagedHas("-    int value"); }));
    // Only the added line is left staged, alone on its row's right side.
    ASSERT_TRUE(test::eventually([&] {
        return model.content() == Content::diff &&
               std::none_of(model.rows().begin(), model.rows().end(),
                            [](const DiffDisplayRow& row) { return row.leftTone == RowTone::deletion; });
    }));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at(700, 4));
    EXPECT_EQ(chosenText(), "+    int changed = 3; // line\n");
    clickHunkButton(0, 4);
    ASSERT_TRUE(test::eventually([&] { return staged().empty(); }));

    // A drag over the second change, then D and the confirmation: only line 5 comes back.
    showAndWait("app.cpp", modified());
    click("diff-pane.mode.diff");
    const auto& rows = model.rows();
    const auto rowOfText = [&](std::string_view text) {
        const auto found = std::find_if(rows.begin(), rows.end(), [&](const DiffDisplayRow& row) {
            return row.left.view().find(text) != std::string_view::npos;
        });
        return int(found - rows.begin());
    };
    const int from = rowOfText("value = 5;");
    const int to = rowOfText("changed = 5;");
    ASSERT_LT(from, to);
    // Unified, every line stands on one side, wherever the pointer is.
    drag(at(700, from), at(700, to));
    EXPECT_EQ(chosenText(), "-    int value = 5; // line\n+    int changed = 5; // line\n");
    QTest::keyClick(&view, Qt::Key_D);
    auto* confirmation = discardQuestion();
    ASSERT_NE(confirmation, nullptr);
    EXPECT_TRUE(confirmation->informativeText().contains(QStringLiteral("chosen lines")));
    confirmDiscard();
    ASSERT_TRUE(test::eventually([&] { return repo.read("app.cpp") == numberedLines(40, 3); }));

    // Chosen, then the file changes in the working tree (and for U in the index) before the key:
    // nothing changes, the pane says so and shows the file as it is now.
    for (const Qt::Key key : {Qt::Key_S, Qt::Key_U, Qt::Key_D}) {
        SCOPED_TRACE(key);
        const bool staged = key == Qt::Key_U;
        repo.write("app.cpp", numberedLines(40, 3));
        repo.git({staged ? "add" : "reset", "--", "app.cpp"});
        showAndWait("app.cpp", modified(), staged);
        ASSERT_TRUE(
            test::eventually([&] { return model.content() == Content::diff && view.rowCount() > 0; }));
        view.setFocus();
        QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
        ASSERT_FALSE(view.chosenLines().empty());
        repo.write("app.cpp", numberedLines(40, 2));
        if (staged)
            repo.git({"add", "app.cpp"});
        const std::string index = repo.git({"show", ":app.cpp"});
        QTest::keyClick(&view, key);
        if (key == Qt::Key_D)
            confirmDiscard();
        ASSERT_TRUE(test::eventually([&] { return model.hunkActionError().has_value(); }));
        EXPECT_TRUE(model.hunkActionError()->contains(QStringLiteral("changed after the lines were chosen")));
        pane.findChild<QMessageBox*>(QStringLiteral("diff-pane.hunk-error"))->close();
        ASSERT_TRUE(test::eventually([&] {
            return model.content() == Content::diff &&
                   std::any_of(model.rows().begin(), model.rows().end(), [](const DiffDisplayRow& row) {
                       return row.left.view().find("changed = 2") != std::string_view::npos;
                   });
        }));
        EXPECT_EQ(repo.git({"show", ":app.cpp"}), index);
        EXPECT_EQ(repo.read("app.cpp"), numberedLines(40, 2));
    }
}

// A file that a merge left conflicted shows its conflict as git wrote it, our side against
// theirs, in every mode with no hunk buttons, and offers the merge editor.
TEST_F(DiffPaneTest, AConflictedFileShowsItsConflictAndOffersTheMergeEditor) {
    repo.git({"checkout", "-q", "-b", "topic"});
    repo.write("app.cpp", numberedLines(40, 3));
    repo.commitAll("topic");
    repo.git({"checkout", "-q", "main"});
    std::string ours = numberedLines(40, 3);
    ours.replace(ours.find("int changed = 3"), 15, "int edited = 3");
    repo.write("app.cpp", ours);
    repo.commitAll("main");
    ASSERT_NE(repo.gitAllowingFailure({"-c", "merge.conflictStyle=diff3", "merge", "topic"}).exitCode, 0);
    showPane({1100, 700});
    showAndWait("app.cpp", FileStatusKind::unmerged(ConflictType::bothModified));
    ASSERT_EQ(model.content(), Content::conflict);
    EXPECT_FALSE(model.hunkActions().stage || model.hunkActions().unstage || model.hunkActions().discard);

    // From the first marker on: the line numbers of the file, and each side in its tone.
    const auto& rows = model.rows();
    auto first =
        std::find_if(rows.begin(), rows.end(), [](const DiffDisplayRow& row) { return row.isHunkHeader; });
    ASSERT_NE(first, rows.end());
    struct Expected {
        std::string text;
        RowTone tone;
        int number;
    };
    const Expected expected[] = {
        {"<<<<<<< HEAD", RowTone::context, 4},     {"    int edited = 3; // line", RowTone::deletion, 5},
        {"||||||| ", RowTone::noNewline, 6},       {"    int value = 3; // line", RowTone::context, 7},
        {"=======", RowTone::noNewline, 8},        {"    int changed = 3; // line", RowTone::addition, 9},
        {">>>>>>> topic", RowTone::noNewline, 10}, {"    int value = 4; // line", RowTone::context, 11},
    };
    ASSERT_GE(rows.end() - first, std::ptrdiff_t(std::size(expected)));
    for (const Expected& row : expected) {
        SCOPED_TRACE(row.text);
        EXPECT_TRUE(first->left.view().starts_with(row.text));
        EXPECT_EQ(first->leftTone, row.tone);
        EXPECT_EQ(first->rightNumber, row.number);
        EXPECT_EQ(first->hunk, 0);
        ++first;
    }
    EXPECT_EQ(pane.textView().rowCount(), int(rows.size()));
    test::saveScreenshot(pane, "diff-conflict", {1100, 700});

    auto* open = pane.findChild<QPushButton*>(QStringLiteral("diff-pane.open-merge-editor"));
    ASSERT_NE(open, nullptr);
    EXPECT_TRUE(open->isVisible());
    std::vector<std::string> requested;
    QObject::connect(&pane, &DiffPane::openMergeEditorRequested, &pane,
                     [&requested](const std::string& path) { requested.push_back(path); });
    open->click();
    EXPECT_EQ(requested, std::vector<std::string>{"app.cpp"});

    // Side by side keeps the one column; the file mode shows the file as it lies.
    click("diff-pane.mode.split");
    EXPECT_EQ(model.rows().size(), rows.size());
    click("diff-pane.mode.file");
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return model.content() == Content::conflict && model.rows().front().hunk == -1; }, 20000));
    EXPECT_EQ(model.rows().size(), 49u);
    click("diff-pane.mode.diff");

    // Once resolved and staged the file is an ordinary change again, and the button goes.
    repo.write("app.cpp", numberedLines(40, 3));
    repo.git({"add", "app.cpp"});
    showAndWait("app.cpp", FileStatusKind::tracked(TrackedStatus::modified, TrackedStatus::unmodified), true);
    EXPECT_EQ(model.content(), Content::diff);
    EXPECT_FALSE(open->isVisible());
}

TEST_F(DiffPaneTest, ModesAndWholeFileContextWithColoursInBothAppearances) {
    repo.write("app.cpp", numberedLines(40, 3, 35));
    showPane({1100, 700});
    showAndWait("app.cpp", modified());
    click("diff-pane.mode.split");
    EXPECT_EQ(model.mode(), CodeDiffMode::split);
    EXPECT_EQ(pane.textView().rowCount(), int(model.rows().size()));
    saveLightAndDark("diff-split", {1100, 700});

    // "Show full file" asks git for the whole file as context: one hunk over every line, and no
    // hunk buttons, since git would not cut that hunk.
    click("diff-pane.full-context");
    ASSERT_TRUE(test::eventually(
        [&] { return model.content() == Content::diff && model.fileDiff()->hunks.size() == 1; }));
    EXPECT_EQ(model.fileDiff()->hunks[0].oldCount, 43);
    EXPECT_FALSE(model.hunkActions().stage);

    click("diff-pane.mode.file");
    ASSERT_TRUE(test::eventually([&] { return model.content() == Content::diff && model.fileText(); }));
    EXPECT_EQ(model.rows().size(), 43u);
    test::saveScreenshot(pane, "diff-file-light", {1100, 700});

    click("diff-pane.full-context");
    click("diff-pane.mode.diff");
    ASSERT_TRUE(test::eventually(
        [&] { return model.content() == Content::diff && model.fileDiff()->hunks.size() == 2; }));
}

TEST_F(DiffPaneTest, GatesASparseHugeFileAfterReadingOnlyItsStart) {
    // Text at its start, then a hole of zeros that the binary test never reaches.
    std::string start;
    for (int i = 0; i < 2000; ++i)
        start += "a log line\n";
    repo.write("huge.log", start);
    std::filesystem::resize_file(repo / "huge.log", 2'000'000'000ull);
    pane.show();
    const long long before = bytesRead();
    showAndWait("huge.log", FileStatusKind::untracked());
    const long long read = bytesRead() - before;
    EXPECT_EQ(model.content(), Content::largeFile);
    EXPECT_LT(read, 1'000'000);
    auto* action = pane.findChild<QPushButton*>(QStringLiteral("diff-pane.message-action"));
    EXPECT_EQ(action->text(), QStringLiteral("Show Anyway"));
    EXPECT_EQ(action->accessibleName(), QStringLiteral("Load and display this large file"));
    test::saveScreenshot(pane, "diff-large-file-gate", {900, 500});

    // A folder git doesn't track, and an untracked text file shown whole as additions.
    std::filesystem::create_directories(repo / "new/inner");
    repo.write("new/a.txt", "a\n");
    showAndWait("new", FileStatusKind::untracked());
    EXPECT_EQ(model.content(), Content::untrackedFolder);
    repo.write("notes.md", "# Notes\n\nSome *text*.\n");
    showAndWait("notes.md", FileStatusKind::untracked());
    ASSERT_EQ(model.content(), Content::diff);
    EXPECT_EQ(model.fileDiff()->additions, 3);
    EXPECT_FALSE(model.hunkActions().stage || model.hunkActions().discard);
}

TEST_F(DiffPaneTest, ImageChangeShowsBothImages) {
    QImage red(60, 40, QImage::Format_RGB32);
    red.fill(Qt::red);
    red.save(QString::fromStdString(repo / "logo.png"));
    repo.commitAll("logo");
    QImage blue(40, 60, QImage::Format_RGB32);
    blue.fill(Qt::blue);
    blue.save(QString::fromStdString(repo / "logo.png"));
    pane.show();
    // While the sides are read the pane says so, in place of the file shown before.
    showAndWait("app.cpp", modified());
    bool saidLoading = false;
    QObject::connect(&model, &DiffDetailViewModel::contentChanged, &pane, [&] {
        for (const QLabel* label : pane.findChildren<QLabel*>())
            if (label->isVisible() && label->text() == QStringLiteral("Loading image…") && !saidLoading) {
                saidLoading = true;
                test::saveScreenshot(pane, "diff-image-loading", {900, 500});
            }
    });
    showAndWait("logo.png", modified());
    ASSERT_EQ(model.content(), Content::image);
    EXPECT_TRUE(saidLoading);
    EXPECT_EQ(model.oldImage().size(), QSize(60, 40));
    EXPECT_EQ(model.newImage().size(), QSize(40, 60));
    test::saveScreenshot(pane, "diff-image", {900, 500});

    // Reading the image in sight again keeps it there: no flash of the message.
    saidLoading = false;
    test::await(model.reload());
    EXPECT_EQ(model.content(), Content::image);
    EXPECT_FALSE(saidLoading);
}

TEST_F(DiffPaneTest, UnknownCommitFailsWithRetryAndBlameListsLines) {
    pane.show();
    showAndWait("app.cpp", modified(), false, std::string(40, 'f'));
    EXPECT_EQ(model.content(), Content::failed);
    EXPECT_FALSE(model.diffLoadError().isEmpty());
    auto* retry = pane.findChild<QPushButton*>(QStringLiteral("diff-pane.message-action"));
    EXPECT_EQ(retry->text(), QStringLiteral("Retry"));
    retry->click();
    EXPECT_EQ(model.diffRetryToken(), 1);
    ASSERT_TRUE(test::eventually([&] { return model.content() == Content::failed; }));

    BlameSheet sheet(entryAt(repo.path()), "app.cpp", service);
    sheet.open();
    ASSERT_TRUE(test::eventually([&] { return !sheet.model().isLoading(); }));
    EXPECT_TRUE(sheet.model().error().isEmpty());
    auto* view = sheet.findChild<QTreeView*>();
    EXPECT_EQ(view->model()->rowCount(), 43);
    test::saveScreenshot(sheet, "blame-sheet", {820, 560});
}

} // namespace
