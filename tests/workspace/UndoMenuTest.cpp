// Edit > Undo and Undo History… over a real repository: the menu names the newest entry, Ctrl+Z's
// command asks before bringing a deleted branch back, and the history brings back an older discard.
// In the main window, the Discard All confirmation names Edit > Undo while the journal is on, and
// Ctrl+Z right after a Discard All confirmed from the keyboard asks to undo it.
#include "workspace/ui/UndoMenu.h"

#include "RemoteFixture.h"
#include "settings/UndoSentence.h"
#include "workspace/ui/MainWindow.h"

#include <QApplication>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

using namespace orvel;

namespace {

QMessageBox* openAlert() {
    QMessageBox* box = nullptr;
    (void)QTest::qWaitFor([&] {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* candidate = qobject_cast<QMessageBox*>(widget); candidate && candidate->isVisible())
                box = candidate;
        return box != nullptr;
    });
    return box;
}

void confirmUndo() {
    QMessageBox* box = openAlert();
    ASSERT_NE(box, nullptr);
    for (QAbstractButton* button : box->buttons())
        if (button->text() == "Undo")
            return QTest::mouseClick(button, Qt::LeftButton);
    ADD_FAILURE() << "no Undo button";
}

class UndoMenuTest : public test::RemoteFixture {};

TEST_F(UndoMenuTest, UndoNamesTheNewestEntryAndTheHistoryBringsBackAnOlderOne) {
    QWidget window;
    QMenu edit(&window);
    edit.addAction(QStringLiteral("Copy"));
    new UndoMenu(model, edit, &window);
    auto* undo = edit.findChild<QAction*>(QStringLiteral("menu.undo"));
    auto* history = edit.findChild<QAction*>(QStringLiteral("menu.undo-history"));
    ASSERT_TRUE(undo && history);
    EXPECT_EQ(edit.actions().front(), undo);
    EXPECT_EQ(undo->shortcut(), QKeySequence(QKeySequence::Undo));

    openLocal();
    local.write("file.txt", "work that was discarded\n");
    const auto failed = test::await(service->discardPaths(model.activeTab()->repo(), {"file.txt"}, {}));
    ASSERT_TRUE(failed.empty());
    local.git({"branch", "topic"});
    const std::string topic = local.rev("topic");
    run(service->deleteBranch(model.activeTab()->repo(), "topic", false));

    emit edit.aboutToShow();
    const QString expected =
        QStringLiteral("Undo: Bring back branch \"topic\" at %1").arg(QString::fromStdString(topic.substr(0, 7)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return undo->text() == expected; })) << undo->text().toStdString();

    undo->trigger();
    confirmUndo();
    EXPECT_TRUE(QTest::qWaitFor([&] { return local.gitAllowingFailure({"rev-parse", "topic"}).exitCode == 0; }));
    EXPECT_EQ(local.rev("topic"), topic);

    history->trigger();
    auto* list = window.findChild<QListWidget*>(QStringLiteral("undo-history.list"));
    ASSERT_NE(list, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return list->count() == 1; }));
    EXPECT_TRUE(list->item(0)->text().endsWith("Restore discarded file \"file.txt\"")) << list->item(0)->text().toStdString();
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("undo-history.undo")), Qt::LeftButton);
    confirmUndo();
    EXPECT_TRUE(QTest::qWaitFor([&] { return local.read("file.txt") == "work that was discarded\n"; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return list->count() == 0; }));
    test::drainQueue(*runner);
}

// The Discard All button, focused from the keyboard, turns off while it works: its focus must not
// pass to a text field, and the window must be active again once the confirmation has closed.
TEST_F(UndoMenuTest, CtrlZRightAfterAKeyboardConfirmedDiscardAllAsksToUndoIt) {
    MainWindow window(model, defaults);
    window.resize(1280, 800);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    openLocal();
    local.write("file.txt", "changed\n");
    model.activeTab()->refresh();
    auto* discardAll = window.findChild<QToolButton*>(QStringLiteral("changes-pane.discard-all"));
    ASSERT_NE(discardAll, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return discardAll->isEnabled(); }));

    // With the journal off, the confirmation warns that the discard is for good.
    setUndoJournalOn(false);
    discardAll->click();
    QMessageBox* box = openAlert();
    setUndoJournalOn(true);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->informativeText(), "Are you sure you want to discard all changes? This cannot be undone.");
    QPointer<QMessageBox> closing(box);
    QTest::keyClick(box->windowHandle(), Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !closing; }));

    discardAll->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window.windowHandle(), Qt::Key_Space);
    box = openAlert();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->informativeText(),
              "Are you sure you want to discard all changes? You can bring it back with Edit > Undo.");
    // Cancel is the default; Tab reaches Discard.
    QTest::keyClick(box->windowHandle(), Qt::Key_Tab);
    QTest::keyClick(box->windowHandle(), Qt::Key_Space);
    ASSERT_TRUE(QTest::qWaitFor([&] { return local.read("file.txt") == "one\n"; }));
    test::drainQueue(*runner);

    QTest::keyClick(window.windowHandle(), Qt::Key_Z, Qt::ControlModifier);
    box = openAlert();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->informativeText().startsWith("Restore discarded file \"file.txt\"?"))
        << box->informativeText().toStdString();
    confirmUndo();
    EXPECT_TRUE(QTest::qWaitFor([&] { return local.read("file.txt") == "changed\n"; }));
    test::drainQueue(*runner);
}

} // namespace
