// The sidebar end to end on a real repository: deleting an unmerged branch from a row's menu asks
// whether to force it and then does; creating a branch or a tag from a row says how it went; the
// filter narrows every section to its finds, and says so when nothing matches; a long section
// starts closed and keeps the user's choice per repository; long names show whole in tooltips.
// Screenshots in both appearances.
#include "sidebar/ui/SidebarView.h"
#include "settings/ThemeEngine.h"
#include "sidebar/SidebarOnRealGit.h"
#include "sidebar/SidebarTreeModel.h"
#include "support/Await.h"
#include "support/Eventually.h"
#include "support/Screenshot.h"
#include "widgets/OEmptyState.h"
#include "widgets/TokenPalette.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QStackedWidget>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

class SidebarWidget : public ::testing::Test, public test::SidebarOnRealGit {
  protected:
    SidebarWidget() {
        view.resize(320, 700);
        view.show();
    }

    QModelIndex row(const QString& id, const QModelIndex& parent = {}) const {
        const SidebarTreeModel& model = view.treeModel();
        for (int i = 0; i < model.rowCount(parent); ++i) {
            const QModelIndex index = model.index(i, 0, parent);
            if (index.data(SidebarTreeModel::IdRole).toString() == id)
                return index;
            if (const QModelIndex found = row(id, index); found.isValid())
                return found;
        }
        return {};
    }

    // Opens the row's context menu as a right click does and answers the menu.
    QMenu* openMenu(const QModelIndex& index) {
        QTreeView& tree = view.tree();
        tree.scrollTo(index);
        const QPoint position = tree.visualRect(index).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, position, tree.viewport()->mapToGlobal(position));
        QApplication::sendEvent(tree.viewport(), &event);
        QMenu* menu = nullptr;
        const bool opened = QTest::qWaitFor(
            [&] { return (menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())); }, 5000);
        return opened ? menu : nullptr;
    }

    // Saves the view as it looks in the light and in the dark palette.
    void saveInBothAppearances(const QString& name, QSize size) {
        test::saveScreenshot(view, name + QStringLiteral("-light"), size);
        const QPalette light = QApplication::palette();
        QApplication::setPalette(tokenPalette(ThemeEngine::shared().tokens(ColorScheme::dark)));
        QCoreApplication::processEvents();
        test::saveScreenshot(view, name + QStringLiteral("-dark"), size);
        QApplication::setPalette(light);
        QCoreApplication::processEvents();
    }

    SidebarView view{sidebar, defaults};
};

QAction* actionNamed(QMenu& menu, const QString& text) {
    for (QAction* action : menu.actions())
        if (action->text() == text)
            return action;
    return nullptr;
}

} // namespace

TEST_F(SidebarWidget, DeletingAnUnmergedBranchAsksWhetherToForceIt) {
    test::await(sidebar.loadBranches(entry));
    QMenu* menu = openMenu(row(QStringLiteral("local/topic")));
    ASSERT_NE(menu, nullptr);
    QAction* remove = actionNamed(*menu, QStringLiteral("Delete"));
    ASSERT_NE(remove, nullptr);
    menu->close();
    remove->trigger();

    QMessageBox* question = nullptr;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return (question = view.findChild<QMessageBox*>("sidebar.confirmation")); }, 10000));
    EXPECT_EQ(question->text(), QStringLiteral("Branch 'topic' is not fully merged"));
    EXPECT_TRUE(toasts.toasts().empty()); // the refusal itself is not told
    EXPECT_NE(repo.gitAllowingFailure({"rev-parse", "--verify", "-q", "topic"}).exitCode, 1);
    for (QAbstractButton* button : question->buttons())
        if (button->text() == QStringLiteral("Force Delete"))
            button->click();

    ASSERT_TRUE(
        test::eventually([&] { return lastToast() == QStringLiteral("Force deleted branch 'topic'"); }));
    EXPECT_EQ(repo.gitAllowingFailure({"rev-parse", "--verify", "-q", "topic"}).exitCode, 1);
    ASSERT_TRUE(test::eventually([&] { return !row(QStringLiteral("local/topic")).isValid(); }));
    EXPECT_FALSE(sidebar.pendingForceDeleteBranch());
}

TEST_F(SidebarWidget, TheFilterNarrowsEverySectionAndSaysWhenNothingMatches) {
    repo.git({"branch", "feature/login"});
    repo.git({"branch", "feature/ui/login-form"});
    repo.git({"branch", "release/2.0"});
    repo.git({"tag", "login-beta"});
    repo.git({"tag", "v1.0"});
    repo.write("a.txt", "draft\n");
    repo.git({"stash", "push", "-q", "-m", "login form draft"});
    test::await(sidebar.loadBranches(entry));
    ASSERT_TRUE(test::eventually([&] { return sidebar.stashEntries().size() == 1u; }));
    ASSERT_TRUE(test::eventually([&] { return row(QStringLiteral("tag/v1.0")).isValid(); }));

    auto* field = view.findChild<QLineEdit*>(QStringLiteral("sidebar.filter-field"));
    QTest::keyClicks(field, QStringLiteral("login"));
    ASSERT_TRUE(test::eventually([&] { return !row(QStringLiteral("tag/v1.0")).isValid(); }));
    for (const char* id :
         {"local/feature/login", "local/feature/ui/login-form", "origin/feature/login", "tag/login-beta"})
        EXPECT_TRUE(row(QString::fromLatin1(id)).isValid()) << id;
    EXPECT_FALSE(row(QStringLiteral("local/release/2.0")).isValid());
    EXPECT_EQ(view.treeModel().rowCount(view.treeModel().sectionIndex(SidebarTreeModel::Section::stashes)),
              1);
    saveInBothAppearances(QStringLiteral("sidebar-filtered"), QSize(320, 520));

    view.findChild<QToolButton*>(QStringLiteral("sidebar.filter.word-match"))->click();
    ASSERT_TRUE(
        test::eventually([&] { return !row(QStringLiteral("local/feature/ui/login-form")).isValid(); }));
    EXPECT_TRUE(row(QStringLiteral("local/feature/login")).isValid());

    field->clear();
    QTest::keyClicks(field, QStringLiteral("nothing-like-this"));
    auto* pages = view.findChild<QStackedWidget*>();
    ASSERT_TRUE(
        test::eventually([&] { return qobject_cast<OEmptyState*>(pages->currentWidget()) != nullptr; }));

    field->clear();
    ASSERT_TRUE(test::eventually([&] { return row(QStringLiteral("tag/v1.0")).isValid(); }));
    test::saveScreenshot(view, QStringLiteral("sidebar-light"), QSize(320, 700));
}

// The sheets of a row's menu hand their answer to the sidebar, which creates the ref at the row's
// commit and says so, or says why git refused.
TEST_F(SidebarWidget, CreatingABranchOrATagFromARowTellsTheOutcome) {
    test::await(sidebar.loadBranches(entry));
    const std::string topic = repo.rev("topic");
    const struct {
        const char* action;
        const char* field;
        const char* name;
        const char* toast;
    } cases[] = {
        {"Create Branch from 'topic'…", "create-branch.name-field", "from-topic",
         "Created branch 'from-topic'"},
        {"Create Tag at 'topic'…", "create-tag.name-field", "v2.0", "Created tag 'v2.0'"},
        {"Create Tag at 'topic'…", "create-tag.name-field", "v2.0", "Create tag failed: "},
    };
    for (const auto& create : cases) {
        SCOPED_TRACE(create.toast);
        QMenu* menu = openMenu(row(QStringLiteral("local/topic")));
        ASSERT_NE(menu, nullptr);
        QAction* action = actionNamed(*menu, QString::fromUtf8(create.action));
        ASSERT_NE(action, nullptr);
        menu->close();
        action->trigger();
        QPointer<QDialog> sheet;
        ASSERT_TRUE(QTest::qWaitFor(
            [&] {
                for (QDialog* dialog : view.findChildren<QDialog*>())
                    if (dialog->isVisible())
                        sheet = dialog;
                return !sheet.isNull();
            },
            5000));
        if (auto* checkout = sheet->findChild<QCheckBox*>(QStringLiteral("create-branch.checkout-toggle")))
            checkout->setChecked(false);
        QTest::keyClicks(sheet->findChild<QLineEdit*>(QString::fromLatin1(create.field)),
                         QString::fromLatin1(create.name));
        QTest::keyClick(sheet->findChild<QLineEdit*>(QString::fromLatin1(create.field)), Qt::Key_Return);
        ASSERT_TRUE(test::eventually([&] { return lastToast().startsWith(QString::fromUtf8(create.toast)); }))
            << lastToast().toStdString();
        EXPECT_TRUE(!sheet || !sheet->isVisible());
        EXPECT_EQ(repo.rev(create.name), topic);
    }
    EXPECT_EQ(repo.git({"branch", "--show-current"}), "main\n");
    ASSERT_TRUE(test::eventually([&] { return row(QStringLiteral("tag/v2.0")).isValid(); }));
    ASSERT_TRUE(test::eventually([&] { return row(QStringLiteral("local/from-topic")).isValid(); }));
}

// A click on a branch, a tag or a stash asks the history to show its commit.
TEST_F(SidebarWidget, AClickOnABranchATagOrAStashNamesItsCommit) {
    repo.git({"tag", "-a", "v1", "-m", "annotated", "topic"});
    repo.write("a.txt", "changed\n");
    repo.git({"stash", "-q"});
    test::await(sidebar.loadBranches(entry));
    test::await(sidebar.loadStashes(entry));
    std::vector<std::string> selected;
    QObject::connect(&sidebar, &SidebarViewModel::branchSelected,
                     [&](const BranchEntry& branch) { selected.push_back(branch.hash); });
    const struct {
        QString id;
        std::string hash;
    } cases[] = {
        {QStringLiteral("local/topic"), repo.rev("topic")},
        {QStringLiteral("tag/v1"), repo.rev("topic")},
        {QStringLiteral("stash/") + QString::fromStdString(repo.rev("stash@{0}")), repo.rev("stash@{0}")},
    };
    for (const auto& click : cases) {
        SCOPED_TRACE(click.id.toStdString());
        const QModelIndex index = row(click.id);
        ASSERT_TRUE(index.isValid());
        view.tree().scrollTo(index);
        QTest::mouseClick(view.tree().viewport(), Qt::LeftButton, {}, view.tree().visualRect(index).center());
        ASSERT_FALSE(selected.empty());
        EXPECT_EQ(selected.back(), click.hash);
        selected.clear();
    }
}

// Hundreds of tags would push everything below them out of sight: a section of more than fifty
// rows starts closed. What the user opens or closes stays so for that repository, in the settings.
TEST_F(SidebarWidget, ALongSectionStartsClosedAndTheUsersChoiceIsKeptPerRepository) {
    test::TempRepo other;
    other.write("a.txt", "other\n");
    other.commitAll("other");
    for (int tag = 1; tag <= 51; ++tag)
        for (const test::TempRepo* each : {&repo, &other})
            each->git({"tag", "t" + std::to_string(tag)});
    RepoEntry otherEntry;
    otherEntry.path = other.path();
    const SidebarTreeModel& model = view.treeModel();
    const auto isOpen = [](const SidebarView& sidebarView, SidebarTreeModel::Section section) {
        return sidebarView.tree().isExpanded(sidebarView.treeModel().sectionIndex(section));
    };
    using Section = SidebarTreeModel::Section;

    test::await(sidebar.loadBranches(entry));
    ASSERT_TRUE(test::eventually([&] { return model.rowCount(model.sectionIndex(Section::tags)) == 51; }));
    EXPECT_FALSE(isOpen(view, Section::tags));
    EXPECT_TRUE(isOpen(view, Section::local));
    EXPECT_TRUE(isOpen(view, Section::stashes));
    test::saveScreenshot(view, QStringLiteral("sidebar-long-tags-closed"), QSize(320, 400));

    view.tree().expand(model.sectionIndex(Section::tags));
    view.tree().collapse(model.sectionIndex(Section::local));
    {
        SidebarView again(sidebar, defaults);
        EXPECT_TRUE(isOpen(again, Section::tags));
        EXPECT_FALSE(isOpen(again, Section::local));
    }

    test::await(sidebar.loadBranches(otherEntry));
    ASSERT_TRUE(test::eventually([&] { return sidebar.repo()->path == other.path(); }));
    ASSERT_TRUE(test::eventually([&] { return model.rowCount(model.sectionIndex(Section::tags)) == 51; }));
    EXPECT_FALSE(isOpen(view, Section::tags));
    EXPECT_TRUE(isOpen(view, Section::local));

    test::await(sidebar.loadBranches(entry));
    ASSERT_TRUE(test::eventually([&] { return isOpen(view, Section::tags); }));
    EXPECT_FALSE(isOpen(view, Section::local));
}

// A narrow column cuts long names in the middle; every named row carries its whole name.
TEST_F(SidebarWidget, EveryNamedRowCarriesItsWholeNameInATooltip) {
    const std::string branch = "feature/a-branch-name-long-enough-that-a-narrow-column-cuts-it-in-the-middle";
    const std::string tag = "release-candidate-for-the-spring-version-2.0.0-built-on-the-long-night";
    repo.git({"branch", branch});
    repo.git({"tag", tag});
    test::await(sidebar.loadBranches(entry));
    ASSERT_TRUE(test::eventually([&] { return row(QString::fromStdString("tag/" + tag)).isValid(); }));
    const std::pair<std::string, std::string> rows[] = {
        {"local/feature", "feature"}, {"local/" + branch, branch},
        {"remote/origin", "origin"},  {"origin/feature/login", "origin/feature/login"},
        {"tag/" + tag, tag},
    };
    for (const auto& [id, name] : rows) {
        const QModelIndex index = row(QString::fromStdString(id));
        ASSERT_TRUE(index.isValid()) << id;
        EXPECT_EQ(index.data(Qt::ToolTipRole).toString().section(QLatin1Char('\n'), 0, 0),
                  QString::fromStdString(name))
            << id;
    }
    view.tree().expand(row(QStringLiteral("local/feature")));
    view.tree().setCurrentIndex(row(QStringLiteral("local/topic")));
    view.resize(220, 500);
    saveInBothAppearances(QStringLiteral("sidebar-long-names"), QSize(220, 500));
}
