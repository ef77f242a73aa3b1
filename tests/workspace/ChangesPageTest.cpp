// The changes page end to end in a repository tab on real repositories: staging everything and
// unstaging one file move rows between the lists, a commit from the form reaches the graph,
// discarding a file asks first and restores its bytes, and amending a pushed commit asks about a
// force push, both answers and a closing tab included.
#include "changes/ui/ChangesPage.h"
#include "changes/ChangesOnRealGit.h"
#include "changes/ChangesPaneViewModel.h"
#include "changes/ui/ChangesFileMenu.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "support/Screenshot.h"
#include "workspace/WorkspaceTabState.h"
#include "workspace/ui/RepositoryTabView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

using namespace orvel;

namespace {

class ChangesPageTest : public test::ChangesOnRealGit {
  protected:
    ChangesPageTest() {
        repo.write("README.md", "read me\n");
        repo.write("src/app.cpp", "int main() {}\n");
        repo.commitAll("base");
    }
    ~ChangesPageTest() override { tab.cancelAllTasks(); }

    void open() {
        tab.loadData();
        view.resize(1280, 800);
        view.show();
    }
    template <typename T = QWidget>
    T& find(const char* name) {
        T* found = view.findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    int rows(const char* list) { return find<QTreeView>(list).model()->rowCount(); }
    bool listsShow(int unstaged, int staged) {
        return QTest::qWaitFor([&] {
            return rows("changes-pane.unstaged-list") == unstaged &&
                   rows("changes-pane.staged-list") == staged;
        });
    }
    // The open alert of the window, once it shows; null when none shows.
    QMessageBox* alert() {
        QMessageBox* box = nullptr;
        static_cast<void>(QTest::qWaitFor([&] {
            for (QWidget* widget : QApplication::topLevelWidgets())
                if (auto* candidate = qobject_cast<QMessageBox*>(widget); candidate && candidate->isVisible())
                    box = candidate;
            return box != nullptr;
        }));
        return box;
    }
    static void press(QMessageBox& box, const QString& text) {
        for (QAbstractButton* button : box.buttons())
            if (button->text() == text)
                return QTest::mouseClick(button, Qt::LeftButton);
        ADD_FAILURE() << "no button " << text.toStdString();
    }
    bool toastSays(const QString& start) {
        return QTest::qWaitFor(
            [&] { return !toasts.toasts().empty() && toasts.toasts().back().message.startsWith(start); });
    }
    void submit(const QString& subject) {
        find<QLineEdit>("commit-form.subject").setText(subject);
        QTest::mouseClick(&find<QPushButton>("commit-form.submit"), Qt::LeftButton);
    }

    WorkspaceTabState tab{entry(), service, toasts, {}};
    RepositoryTabView view{tab, defaults};
};

} // namespace

TEST_F(ChangesPageTest, StageAllThenUnstageOneMovesRowsAndTheTreeShowsFolders) {
    repo.write("README.md", "read me twice\n");
    repo.write("src/app.cpp", "int main() { return 0; }\n");
    repo.write("src/lib/util.h", "#pragma once\n");
    repo.write("docs/guide.md", "# Guide\n");
    repo.git({"add", "docs/guide.md"});
    open();
    ASSERT_TRUE(listsShow(3, 1));
    test::saveScreenshot(view, "changes-page");

    // The graph's working-tree row lists the same files on the history page, one row a path.
    ASSERT_TRUE(QTest::qWaitFor([&] { return tab.graph().rowOf(RepoGraphPaneViewModel::workingTreeHash) == 0; }));
    tab.graph().selectCommit(std::string(RepoGraphPaneViewModel::workingTreeHash));
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows("history.file-list") == 4; }));

    // The rows move at once; git's index follows.
    QTest::mouseClick(&find<QPushButton>("changes-pane.stage-all"), Qt::LeftButton);
    EXPECT_EQ(rows("changes-pane.unstaged-list"), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return repo.git({"ls-files", "--others", "--modified"}).empty(); }));
    ASSERT_TRUE(listsShow(0, 4));

    auto& staged = find<QTreeView>("changes-pane.staged-list");
    staged.setFocus();
    staged.setCurrentIndex(staged.model()->index(0, 0));
    QTest::keyClick(&staged, Qt::Key_Space);
    ASSERT_TRUE(QTest::qWaitFor([&] { return repo.git({"diff", "--name-only"}) == "README.md\n"; }));
    ASSERT_TRUE(listsShow(1, 3));

    // The next status read sets the record straight: the file staged while untracked is added.
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const auto& staged = tab.changes().stagedFiles();
        return std::none_of(staged.begin(), staged.end(), [](const FileChange& file) {
            return file.status.kind == FileStatusKind::Case::untracked;
        });
    }));
    QTest::mouseClick(&find<QToolButton>("changes-pane.mode-tree"), Qt::LeftButton);
    EXPECT_EQ(rows("changes-pane.staged-list"), 2); // the folders docs and src
    test::saveScreenshot(view, "changes-tree");
}

TEST_F(ChangesPageTest, CommitFromTheFormReachesTheGraph) {
    repo.write("notes.txt", "notes\n");
    repo.git({"add", "notes.txt"});
    open();
    ASSERT_TRUE(listsShow(0, 1));
    EXPECT_EQ(find<QPushButton>("commit-form.submit").text(), "Commit");
    submit("Add the notes");
    // A second press can't reach the running commit.
    EXPECT_FALSE(find<QPushButton>("commit-form.submit").isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([&] {
        const auto& commits = tab.graph().store();
        return !commits.empty() && commits.subject(0) == "Add the notes";
    }));
    EXPECT_TRUE(listsShow(0, 0));
    EXPECT_EQ(find<QLineEdit>("commit-form.subject").text(), "");
    EXPECT_EQ(repo.git({"log", "-1", "--format=%s"}), "Add the notes\n");
}

TEST_F(ChangesPageTest, DiscardAsksFirstAndRestoresTheCommittedBytes) {
    repo.write("src/app.cpp", "broken edit\n");
    open();
    ASSERT_TRUE(listsShow(1, 0));
    const FileChange file = tab.changes().unstagedFiles().front();

    confirmDiscardFile(tab.changes(), file, &view);
    QMessageBox* box = alert();
    ASSERT_NE(box, nullptr);
    press(*box, "Cancel");
    EXPECT_EQ(repo.read("src/app.cpp"), "broken edit\n");

    confirmDiscardFile(tab.changes(), file, &view);
    box = alert();
    ASSERT_NE(box, nullptr);
    press(*box, "Discard");
    ASSERT_TRUE(QTest::qWaitFor([&] { return repo.read("src/app.cpp") == "int main() {}\n"; }));
    EXPECT_TRUE(listsShow(0, 0));
}

TEST_F(ChangesPageTest, AmendingAPushedCommitAsksBeforeAForcePush) {
    test::TempRepo origin(test::TempRepo::Kind::bare);
    repo.git({"remote", "add", "origin", origin.path()});
    repo.git({"push", "-q", "-u", "origin", "main"});
    const std::string published = origin.rev("main");
    open();
    ASSERT_TRUE(listsShow(0, 0));
    auto amendAndPush = [&](const QString& subject) {
        find<QCheckBox>("commit-form.amend").setChecked(true);
        find<QCheckBox>("commit-form.commit-and-push").setChecked(true);
        EXPECT_EQ(find<QPushButton>("commit-form.submit").text(), "Amend and Push");
        submit(subject);
    };

    // Refused: the amended commit stays local and the remote keeps what it had.
    amendAndPush("Reworded once");
    QMessageBox* box = alert();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), "Force Push Required");
    press(*box, "Cancel");
    ASSERT_TRUE(toastSays("Amend-push cancelled"));
    // The form takes the next press once the flow has ended.
    ASSERT_TRUE(QTest::qWaitFor([&] { return !tab.changes().isCommitting(); }));
    EXPECT_EQ(repo.git({"log", "-1", "--format=%s"}), "Reworded once\n");
    EXPECT_EQ(origin.rev("main"), published);

    // Accepted: the push goes to git without a force, and git refuses the rewritten history.
    repo.git({"reset", "-q", "--hard", "origin/main"});
    amendAndPush("Reworded twice");
    box = alert();
    ASSERT_NE(box, nullptr);
    press(*box, "Continue");
    ASSERT_TRUE(toastSays("Push failed; your commit was saved locally"));
    // The form takes the next press once the flow has ended.
    ASSERT_TRUE(QTest::qWaitFor([&] { return !tab.changes().isCommitting(); }));
    EXPECT_EQ(origin.rev("main"), published);

    // A tab closing while the question is open answers it as refused, without a word.
    repo.git({"reset", "-q", "--hard", "origin/main"});
    const auto toastCount = toasts.toasts().size();
    amendAndPush("Reworded at closing");
    ASSERT_NE(alert(), nullptr);
    tab.cancelAllTasks();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !tab.changes().pendingAmendPushConfirmation(); }));
    QTest::qWait(100);
    EXPECT_EQ(toasts.toasts().size(), toastCount);
    EXPECT_EQ(repo.git({"log", "-1", "--format=%s"}), "Reworded at closing\n");
    EXPECT_EQ(origin.rev("main"), published);
}
