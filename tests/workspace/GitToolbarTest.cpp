// The toolbar in the window on a real repository two commits ahead of and one behind its origin:
// the badges and the status, a force push through its warning, and a stash named through the
// prompt, with the screenshots of the toolbar and the prompt.
#include "workspace/ui/GitToolbar.h"

#include "RemoteFixture.h"
#include "support/Screenshot.h"
#include "workspace/ui/GitToolbarButton.h"
#include "workspace/ui/MainWindow.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

using namespace orvel;

namespace {

class Toolbar : public test::RemoteFixture {
  protected:
    template <typename T>
    T& find(const char* name) {
        T* found = window.findChild<T*>(QString::fromLatin1(name));
        EXPECT_TRUE(found) << name;
        return *found;
    }

    // The alert or sheet that is open over the window.
    template <typename T>
    T* openDialog() {
        T* open = nullptr;
        test::eventually([&] {
            for (T* dialog : window.findChildren<T*>())
                if (dialog->isVisible())
                    open = dialog;
            return open != nullptr;
        });
        return open;
    }

    MainWindow window{model, defaults};
};

} // namespace

TEST_F(Toolbar, BadgesForceThroughTheWarningAndANamedStash) {
    for (const char* name : {"a", "b"}) {
        local.write(std::string(name) + ".txt", name);
        local.commitAll(name);
    }
    commitElsewhere("theirs.txt", "theirs\n");
    local.git({"fetch", "-q", "origin"});
    window.show();
    openLocal();

    auto& push = find<GitToolbarButton>("toolbar.push");
    auto& pull = find<GitToolbarButton>("toolbar.pull");
    ASSERT_TRUE(test::eventually([&] { return push.badge() == 2; }));
    EXPECT_EQ(pull.badge(), 1);
    EXPECT_EQ(find<QLabel>("toolbar.status.text").text(), "↑ 2   ↓ 1");
    test::saveScreenshot(find<GitToolbar>("git-toolbar"), "toolbar", QSize(1100, 44));

    push.menu()->actions().front()->trigger();
    QMessageBox* warning = openDialog<QMessageBox>();
    ASSERT_TRUE(warning);
    EXPECT_EQ(warning->text(), "Force Push");
    EXPECT_TRUE(warning->informativeText().contains("1 commit(s)"))
        << warning->informativeText().toStdString();
    EXPECT_EQ(warning->escapeButton(), warning->defaultButton());
    for (QAbstractButton* button : warning->buttons())
        if (button->text() == "Force Push")
            button->click();
    ASSERT_TRUE(test::eventually([&] { return origin.rev("main") == local.head(); }));
    ASSERT_TRUE(test::eventually(
        [&] { return !model.activityMessage() && shown.contains("Force pushed to origin"); }));
    test::drainQueue(*runner);

    local.write("a.txt", "changed");
    find<QAction>("toolbar.stash.changes").trigger();
    QDialog* prompt = openDialog<QDialog>();
    ASSERT_TRUE(prompt);
    auto& name = *prompt->findChild<QLineEdit*>("menu-stash.text-field");
    EXPECT_TRUE(name.placeholderText().startsWith("WIP_main_")) << name.placeholderText().toStdString();
    test::saveScreenshot(*prompt, "stash-prompt", QSize(480, 170));
    QTest::keyClicks(&name, "before lunch");
    prompt->findChild<QPushButton*>("menu-stash.confirm")->click();
    ASSERT_TRUE(test::eventually([&] { return shown.contains("Changes stashed"); }));
    test::drainQueue(*runner);
    EXPECT_NE(local.git({"stash", "list"}).find("On main: before lunch"), std::string::npos);
    EXPECT_EQ(local.read("a.txt"), "a");
}

TEST_F(Toolbar, BranchSheetCarriesLocalChangesOverToTheNewBranch) {
    window.show();
    openLocal();
    local.write("file.txt", "work in progress\n");
    find<QToolButton>("toolbar.branch").click();
    QDialog* sheet = openDialog<QDialog>();
    ASSERT_TRUE(sheet);
    QTest::keyClicks(sheet->findChild<QLineEdit*>("create-branch.name-field"), "feature x");
    sheet->findChild<QToolButton*>("create-branch.advanced-toggle")->click();
    sheet->findChild<QAbstractButton*>("local-changes.stashAndReapply")->click();
    test::saveScreenshot(*sheet, "create-branch-local-changes", QSize(460, 300));
    sheet->findChild<QPushButton*>("create-branch.create-button")->click();
    ASSERT_TRUE(test::eventually([&] { return shown.contains("Created and checked out 'feature-x'"); }));
    test::drainQueue(*runner);
    EXPECT_EQ(local.git({"branch", "--show-current"}), "feature-x\n");
    EXPECT_EQ(local.read("file.txt"), "work in progress\n");
    EXPECT_EQ(local.git({"stash", "list"}), "");
}
