// The toolbar in the window on a real repository two commits ahead of and one behind its origin:
// the badges and the status, a force push through its warning, a stash named through the prompt,
// and New Tag with its activity and toasts, with the screenshots of the toolbar and the prompt.
#include "workspace/ui/GitToolbar.h"

#include "RemoteFixture.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "sidebar/SidebarViewModel.h"
#include "support/Screenshot.h"
#include "workspace/GitToolbarViewModel.h"
#include "workspace/ui/GitToolbarButton.h"
#include "workspace/ui/MainWindow.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
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

    // The window over the local repository, one commit past its first, as the graph's rows show it.
    WorkspaceTabState& openWithASecondCommit() {
        window.show();
        local.write("second.txt", "second\n");
        local.commitAll("second");
        return openLocal();
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

// A pull that will merge asks first and tells, from the upstream as last fetched, which files the
// merge will conflict in; nothing moves until the user agrees. The Workspace menu's Pull asks alike. A
// pull that fast-forwards does not ask.
TEST_F(Toolbar, APullThatWillMergeAsksFirstAndTellsItsConflicts) {
    commitElsewhere("file.txt", "theirs\n");
    local.write("file.txt", "mine\n");
    local.commitAll("mine");
    local.git({"fetch", "-q", "origin"});
    window.show();
    WorkspaceTabState& tab = openLocal();
    auto& pull = find<GitToolbarButton>("toolbar.pull");
    ASSERT_TRUE(test::eventually([&] { return pull.badge() == 1; }));
    const std::string head = local.head();

    // The Workspace menu's Pull asks the same question; declined, nothing moves.
    window.findChild<QAction*>("menu.pull")->trigger();
    QMessageBox* asked = openDialog<QMessageBox>();
    ASSERT_TRUE(asked);
    EXPECT_EQ(asked->objectName(), "toolbar.pull.confirmation");
    asked->reject();
    ASSERT_TRUE(test::eventually([&] { return !window.findChild<QMessageBox*>("toolbar.pull.confirmation"); }));
    EXPECT_EQ(local.head(), head);

    pull.click();
    QMessageBox* box = openDialog<QMessageBox>();
    ASSERT_TRUE(box);
    EXPECT_EQ(box->objectName(), "toolbar.pull.confirmation");
    EXPECT_EQ(box->text(), "Pull 'origin/main' by Merge?");
    ASSERT_TRUE(test::eventually([&] {
        return box->informativeText().contains(
            "Merging 'origin/main' into 'main' will conflict in 1 file(s): file.txt");
    })) << box->informativeText().toStdString();
    EXPECT_TRUE(box->informativeText().contains("The preview uses 'origin/main' as last fetched."));
    EXPECT_EQ(local.head(), head);
    for (QAbstractButton* button : box->buttons())
        if (button->text() == "Pull")
            button->click();
    ASSERT_TRUE(test::eventually([&] { return shown.contains("Pull conflict in 1 file(s)"); }));
    test::drainQueue(*runner);
    local.git({"merge", "--abort"});

    local.git({"reset", "-q", "--hard", "origin/main"});
    commitElsewhere("more.txt", "more\n");
    local.git({"fetch", "-q", "origin"});
    tab.refresh();
    auto& push = find<GitToolbarButton>("toolbar.push");
    ASSERT_TRUE(test::eventually([&] { return pull.badge() == 1 && push.badge() == 0; }));
    pull.click();
    ASSERT_TRUE(test::eventually([&] { return shown.contains("Pulled (fast-forward)"); }));
    EXPECT_FALSE(window.findChild<QMessageBox*>("toolbar.pull.confirmation"));
    EXPECT_EQ(local.head(), origin.rev("main"));
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

namespace {

std::vector<std::string> stashMessages(const SidebarViewModel& sidebar) {
    std::vector<std::string> messages;
    for (const StashEntry& stash : sidebar.stashEntries())
        messages.push_back(stash.message);
    return messages;
}

} // namespace

TEST_F(Toolbar, StashesFollowEveryRefreshAndTheSidebarTouchesOnlyTheStashItsRowShows) {
    window.show();
    SidebarViewModel& sidebar = openLocal().sidebar();
    GitToolbarViewModel toolbar{model};
    auto& popFromToolbar = find<QAction>("toolbar.stash.pop");
    auto& popFromMenu = find<QAction>("menu.pop-stash");
    EXPECT_FALSE(popFromToolbar.isEnabled());
    EXPECT_FALSE(popFromMenu.isEnabled());

    // A stash moves no branch; the sidebar lists it all the same.
    for (const char* name : {"older", "newer"}) {
        local.write("file.txt", std::string(name) + "\n");
        run(toolbar.commands().stash(QString::fromLatin1(name)));
    }
    ASSERT_TRUE(test::eventually([&] { return sidebar.stashEntries().size() == 2; }));
    EXPECT_EQ(stashMessages(sidebar), (std::vector<std::string>{"On main: newer", "On main: older"}));
    EXPECT_TRUE(popFromToolbar.isEnabled());
    EXPECT_TRUE(popFromMenu.isEnabled());

    sidebar.requestDropStash(sidebar.stashEntries()[1]);
    run(sidebar.dropStash());
    EXPECT_EQ(local.git({"stash", "list", "--format=%gs"}), "On main: newer\n");
    EXPECT_EQ(lastToast(), "Dropped stash: On main: older");

    // The row asked about is "stash@{0}"; a stash from the toolbar moves it to "stash@{1}" before
    // the drop is confirmed: nothing is dropped and the rows follow git.
    sidebar.requestDropStash(sidebar.stashEntries()[0]);
    local.write("file.txt", "newest\n");
    run(toolbar.commands().stash(QStringLiteral("newest")));
    run(sidebar.dropStash());
    EXPECT_EQ(local.git({"stash", "list", "--format=%gs"}), "On main: newest\nOn main: newer\n");
    EXPECT_TRUE(lastToast().startsWith("The stashes changed since they were listed"))
        << lastToast().toStdString();
    EXPECT_EQ(stashMessages(sidebar), (std::vector<std::string>{"On main: newest", "On main: newer"}));

    for (int pop = 0; pop < 2; ++pop) {
        local.git({"checkout", "-q", "--", "file.txt"});
        run(toolbar.commands().popStash());
    }
    EXPECT_EQ(local.git({"stash", "list"}), "");
    ASSERT_TRUE(test::eventually([&] { return sidebar.stashEntries().empty(); }));
    EXPECT_FALSE(popFromToolbar.isEnabled());
    EXPECT_FALSE(popFromMenu.isEnabled());
}

TEST_F(Toolbar, CreateBranchFromAGraphRowRunsTheGraphsActionAndChecksOutOnlyWhenAsked) {
    WorkspaceTabState& tab = openWithASecondCommit();
    const std::string row = local.rev("HEAD~1");
    const std::string shortHash = row.substr(0, 7);
    for (const bool checkout : {false, true}) {
        SCOPED_TRACE(checkout);
        const std::string name = checkout ? "checked-out-at-first" : "at-first";
        tab.graph().requestCreateBranch(row);
        QDialog* sheet = openDialog<QDialog>();
        ASSERT_TRUE(sheet);
        QTest::keyClicks(sheet->findChild<QLineEdit*>("create-branch.name-field"),
                         QString::fromStdString(name));
        EXPECT_FALSE(sheet->findChild<QToolButton*>("create-branch.advanced-toggle"));
        sheet->findChild<QCheckBox*>("create-branch.checkout-toggle")->setChecked(checkout);
        sheet->findChild<QPushButton*>("create-branch.create-button")->click();
        const QString notice = QString::fromStdString("Created branch '" + name + "' at " + shortHash);
        ASSERT_TRUE(test::eventually([&] { return shown.contains(notice); }))
            << shown.join(" | ").toStdString();
        test::drainQueue(*runner);
        EXPECT_EQ(local.rev(name), row);
        EXPECT_EQ(local.git({"branch", "--show-current"}), (checkout ? name : "main") + "\n");
        // The graph's action refreshed the tab: the sidebar lists the new branch.
        ASSERT_TRUE(test::eventually([&] {
            const auto& branches = tab.branches();
            return std::ranges::any_of(branches, [&](const BranchEntry& b) { return b.name == name; });
        }));
        local.git({"checkout", "-q", "main"});
    }
}

TEST_F(Toolbar, CreateTagFromAGraphRowRunsTheGraphsAction) {
    WorkspaceTabState& tab = openWithASecondCommit();
    const std::string row = local.rev("HEAD~1");
    const std::string head = local.head();
    const std::pair<const char*, const char*> tags[] = {{"light-at-first", ""},
                                                        {"annotated-at-first", "a release"}};
    for (const auto& [name, message] : tags) {
        SCOPED_TRACE(name);
        tab.graph().requestCreateTag(row);
        QDialog* sheet = openDialog<QDialog>();
        ASSERT_TRUE(sheet);
        QTest::keyClicks(sheet->findChild<QLineEdit*>("create-tag.name-field"), QString::fromLatin1(name));
        QTest::keyClicks(sheet->findChild<QPlainTextEdit*>("create-tag.message-field"),
                         QString::fromLatin1(message));
        sheet->findChild<QPushButton*>("create-tag.create-button")->click();
        const QString notice =
            QString::fromStdString(std::string(*message ? "Created annotated tag '" : "Created tag '") +
                                   name + "' at " + row.substr(0, 7));
        ASSERT_TRUE(test::eventually([&] { return shown.contains(notice); }))
            << shown.join(" | ").toStdString();
        test::drainQueue(*runner);
        EXPECT_EQ(local.rev(std::string(name) + "^{commit}"), row);
        EXPECT_EQ(local.head(), head);
    }
}

// New Tag runs as the other commands do: an activity while git runs, then a notice, or an error toast
// when git refuses, with nothing left open over the window.
TEST_F(Toolbar, NewTagShowsItsActivityAndTellsTheOutcomeInAToast) {
    openWithASecondCommit();
    QStringList activities;
    QObject::connect(&model, &AppViewModel::activityChanged, [&] {
        if (model.activityMessage())
            activities.append(*model.activityMessage());
    });
    const struct {
        const char* name;
        const char* toast;
    } cases[] = {{"v1.0", "Created tag 'v1.0'"}, {"v1.0", "Tag creation failed: "}};
    for (const auto& tag : cases) {
        SCOPED_TRACE(tag.toast);
        activities.clear();
        find<QToolButton>("toolbar.new-tag").click();
        QPointer<QDialog> sheet = openDialog<QDialog>();
        ASSERT_TRUE(sheet);
        QTest::keyClicks(sheet->findChild<QLineEdit*>("create-tag.name-field"),
                         QString::fromLatin1(tag.name));
        sheet->findChild<QPushButton*>("create-tag.create-button")->click();
        ASSERT_TRUE(test::eventually([&] {
            return !model.activityMessage() && !shown.isEmpty() && shown.back().startsWith(tag.toast);
        })) << shown.join(" | ").toStdString();
        EXPECT_EQ(activities, QStringList{"Creating tag 'v1.0'…"});
        EXPECT_TRUE(!sheet || !sheet->isVisible());
        test::drainQueue(*runner);
        EXPECT_EQ(local.rev("v1.0"), local.head());
    }
}
