// A repository tab stopped in a merge with two conflicted files, on real git: the file selected in
// the changes page shows its conflict in the diff pane, and both the pane's "Open Merge Editor"
// and the banner's open the merge editor on that file, not on the first one.
#include "changes/ChangesOnRealGit.h"
#include "diff/DiffDetailViewModel.h"
#include "merge/ConflictBannerViewModel.h"
#include "merge/ConflictResolutionViewModel.h"
#include "merge/ui/ConflictResolutionView.h"
#include "support/Screenshot.h"
#include "workspace/WorkspaceTabState.h"
#include "workspace/ui/RepositoryTabView.h"

#include <QAbstractButton>
#include <QTest>
#include <QTreeView>

using namespace orvel;

namespace {

class ConflictedFileInTab : public test::ChangesOnRealGit {
  protected:
    ConflictedFileInTab() {
        for (const char* file : {"a.txt", "b.txt"})
            repo.write(file, "base\n");
        repo.commitAll("base");
        repo.git({"checkout", "-q", "-b", "topic"});
        for (const char* file : {"a.txt", "b.txt"})
            repo.write(file, "topic\n");
        repo.commitAll("topic");
        repo.git({"checkout", "-q", "main"});
        for (const char* file : {"a.txt", "b.txt"})
            repo.write(file, "main\n");
        repo.commitAll("main");
        EXPECT_NE(repo.gitAllowingFailure({"merge", "topic"}).exitCode, 0);
    }
    ~ConflictedFileInTab() override { tab.cancelAllTasks(); }

    // Clicks `name` in the working tree's list and waits for the diff pane to show it.
    void select(const QString& name) {
        auto* list = view.findChild<QTreeView*>(QStringLiteral("changes-pane.unstaged-list"));
        ASSERT_NE(list, nullptr);
        ASSERT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount() == 2; }, 20000));
        const auto found = list->model()->match(list->model()->index(0, 0), Qt::DisplayRole, name);
        ASSERT_EQ(found.size(), 1);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(found.front()).center());
        ASSERT_TRUE(QTest::qWaitFor(
            [&] {
                const auto& shown = tab.diff().selection();
                return shown && shown->file.path == name.toStdString() &&
                       tab.diff().content() != DiffDetailViewModel::Content::loading;
            },
            20000));
    }

    // Clicks the button and answers the file the merge editor opened on, closing it.
    std::string editorOpenedBy(const char* button) {
        auto* clicked = view.findChild<QAbstractButton*>(QString::fromLatin1(button));
        EXPECT_NE(clicked, nullptr) << button;
        if (!clicked)
            return {};
        clicked->click();
        auto* editor = view.findChild<ConflictResolutionView*>();
        EXPECT_NE(editor, nullptr) << button;
        if (!editor)
            return {};
        const std::string path = editor->model().conflict().path;
        editor->close();
        EXPECT_TRUE(QTest::qWaitFor([&] { return view.findChild<ConflictResolutionView*>() == nullptr; }));
        return path;
    }

    WorkspaceTabState tab{entry(), service, toasts, {}};
    RepositoryTabView view{tab, defaults};
};

} // namespace

TEST_F(ConflictedFileInTab, TheSelectedConflictShowsInTheDiffAndOpensInTheMergeEditor) {
    tab.loadData();
    view.resize(1280, 800);
    view.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return tab.conflictBanner().conflicts().size() == 2; }, 20000));
    select(QStringLiteral("b.txt"));
    EXPECT_EQ(tab.diff().content(), DiffDetailViewModel::Content::conflict);
    test::saveScreenshot(view, "diff-conflicted-file");

    EXPECT_EQ(editorOpenedBy("diff-pane.open-merge-editor"), "b.txt");
    EXPECT_EQ(editorOpenedBy("conflict-banner.open-merge-editor"), "b.txt");
    select(QStringLiteral("a.txt"));
    EXPECT_EQ(editorOpenedBy("conflict-banner.open-merge-editor"), "a.txt");
}
