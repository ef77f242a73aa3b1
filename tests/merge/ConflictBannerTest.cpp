// The conflict banner and the merge editor end to end on real git: a rebase stopped on a conflict
// is resolved line by line in an editor that names both sides, saved, staged and continued from
// the banner; "Open Merge Editor" opens the conflicted file selected in the changes page; in every
// state the banner can end, Abort asks first and then leaves the repository clean.
#include "merge/ui/ConflictBanner.h"
#include "merge/ConflictBannerViewModel.h"
#include "merge/ConflictResolutionViewModel.h"
#include "merge/ui/ConflictResolutionView.h"

#include "core/RealGitService.h"
#include "merge/ConflictedMerge.h"
#include "notices/ToastManager.h"
#include "settings/ThemeEngine.h"
#include "support/Await.h"
#include "support/Eventually.h"
#include "support/Screenshot.h"
#include "widgets/TokenPalette.h"

#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

class ConflictBannerTest : public test::RepositoryTest {
  protected:
    // The banner over its model, given the repository's state and files whenever an action changed
    // the repository, as the tab does after its refresh.
    void showBanner(const test::TempRepo& where) {
        model = std::make_unique<ConflictBannerViewModel>(test::RealGitService::repoAt(where.path()), service,
                                                          toasts);
        QObject::connect(model.get(), &ConflictBannerViewModel::repositoryChanged, model.get(),
                         [this, path = where.path()] { readRepository(path); });
        banner = std::make_unique<ConflictBanner>(*model);
        test::await(readRepository(where.path()));
    }

    QCoro::Task<void> readRepository(std::string path) {
        const RepoEntry opened = co_await service->open(path);
        const StatusResult status = co_await service->status(opened);
        model->update(opened.state, status.files);
    }

    template <typename T>
    T* child(QWidget& parent, const char* name) {
        auto* found = parent.findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    bool toasted(const QString& message) const {
        for (const ToastItem& toast : toasts.toasts())
            if (toast.message == message)
                return true;
        return false;
    }

    static void clickRow(QListView* panel, int row) {
        const QRect rect = panel->visualRect(panel->model()->index(row, 0));
        QTest::mouseClick(panel->viewport(), Qt::LeftButton, {}, rect.center());
    }

    std::shared_ptr<GitServiceProtocol> service{&real.service, [](GitServiceProtocol*) {}};
    ToastManager toasts;
    std::unique_ptr<ConflictBannerViewModel> model;
    std::unique_ptr<ConflictBanner> banner;
};

TEST_F(ConflictBannerTest, ResolveARebaseConflictLineByLineAndContinue) {
    repo.write("file.txt", "a\nb\nc\n");
    repo.commitAll("base");
    repo.git({"checkout", "-q", "-b", "topic"});
    repo.write("file.txt", "a\nb topic\nextra topic\nc\n");
    repo.commitAll("topic changes b");
    repo.git({"checkout", "-q", "main"});
    repo.write("file.txt", "a\nb main\nc\n");
    repo.commitAll("main changes b");
    repo.git({"checkout", "-q", "topic"});
    // The commit step of a continued rebase asks for the editor; this user's editor keeps the message.
    repo.git({"config", "core.editor", "true"});
    ASSERT_NE(repo.gitAllowingFailure({"rebase", "main"}).exitCode, 0);

    showBanner(repo);
    ASSERT_FALSE(banner->isHidden());
    EXPECT_EQ(child<QLabel>(*banner, "conflict-banner.text")->text(),
              QStringLiteral("Rebasing: resolve conflicts and continue"));
    EXPECT_FALSE(child<QPushButton>(*banner, "conflict-banner.continue")->isHidden());
    EXPECT_FALSE(child<QPushButton>(*banner, "conflict-banner.skip")->isHidden());
    test::saveScreenshot(*banner, QStringLiteral("conflict-banner-rebase"), QSize(1000, 40));

    child<QToolButton>(*banner, "conflict-banner.open-merge-editor")->click();
    auto* editor = banner->findChild<ConflictResolutionView*>();
    ASSERT_NE(editor, nullptr);
    auto* count = child<QLabel>(*editor, "merge-editor.conflict-count");
    ASSERT_TRUE(test::eventually([&] { return (count->text()) == (QStringLiteral("Conflict 1 of 1")); }));
    // Ours is the branch the rebase replays onto, theirs the commit it replays.
    ASSERT_TRUE(QTest::qWaitFor([&] {
        return child<QLabel>(*editor, "merge-editor.ours-title")->text() == QStringLiteral("A: Ours (main)");
    }));
    EXPECT_EQ(child<QLabel>(*editor, "merge-editor.theirs-title")->text(),
              QStringLiteral("B: Theirs (%1 topic changes b)")
                  .arg(QString::fromStdString(repo.rev("topic").substr(0, 7))));
    auto* ours = child<QListView>(*editor, "merge-editor.ours-panel");
    auto* theirs = child<QListView>(*editor, "merge-editor.theirs-panel");
    ASSERT_EQ(ours->model()->rowCount(), 1);
    ASSERT_EQ(theirs->model()->rowCount(), 2);
    EXPECT_EQ(theirs->model()->index(1, 0).data().toString(), QStringLiteral("extra topic"));

    // The raw text still holds git's markers: saving it is refused and the editor stays.
    auto* raw = child<QPushButton>(*editor, "merge-editor.toggle-raw-text");
    raw->click();
    EXPECT_TRUE(
        child<QPlainTextEdit>(*editor, "merge-editor.raw-text-field")->toPlainText().contains("<<<<<<<"));
    child<QPushButton>(*editor, "merge-editor.save")->click();
    ASSERT_TRUE(
        test::eventually([&] { return child<QLabel>(*editor, "merge-editor.save-error")->isVisible(); }));
    EXPECT_EQ(child<QLabel>(*editor, "merge-editor.save-error")->text(),
              QStringLiteral("Remove conflict markers before saving."));
    raw->click();

    // Space leaves out the only line of ours; a click takes the second line of theirs.
    ours->setCurrentIndex(ours->model()->index(0, 0));
    QTest::keyClick(ours, Qt::Key_Space);
    clickRow(theirs, 1);
    auto* output = child<QListView>(*editor, "merge-editor.output-panel");
    QStringList composed;
    for (int row = 0; row < output->model()->rowCount(); ++row)
        composed << output->model()->index(row, 0).data().toString();
    EXPECT_EQ(composed, (QStringList{"a", "extra topic", "c"}));

    test::saveScreenshot(*editor, QStringLiteral("merge-editor-light"), QSize(1100, 700));
    const QPalette light = QApplication::palette();
    QApplication::setPalette(tokenPalette(ThemeEngine::shared().tokens(ColorScheme::dark)));
    QCoreApplication::processEvents();
    test::saveScreenshot(*editor, QStringLiteral("merge-editor-dark"), QSize(1100, 700));
    QApplication::setPalette(light);

    child<QPushButton>(*editor, "merge-editor.save")->click();
    ASSERT_TRUE(test::eventually([&] { return banner->findChild<ConflictResolutionView*>() == nullptr; }));
    EXPECT_EQ(repo.read("file.txt"), "a\nextra topic\nc\n");
    ASSERT_TRUE(test::eventually([&] { return model->conflicts().empty(); }));

    child<QPushButton>(*banner, "conflict-banner.continue")->click();
    ASSERT_TRUE(test::eventually([&] { return (model->repoState()) == (RepositoryState::clean); }));
    EXPECT_TRUE(banner->isHidden());
    EXPECT_TRUE(toasted(QStringLiteral("Rebase completed")));
    EXPECT_EQ(repo.git({"log", "--format=%s", "main..topic"}), "topic changes b\n");
    EXPECT_EQ(repo.git({"show", "topic:file.txt"}), "a\nextra topic\nc\n");
}

TEST_F(ConflictBannerTest, OpenMergeEditorOpensTheSelectedConflictedFile) {
    repo.write("a.txt", "base\n");
    repo.write("b.txt", "base\n");
    repo.write("c.txt", "base\n");
    repo.commitAll("base");
    repo.git({"checkout", "-q", "-b", "topic"});
    repo.write("a.txt", "topic\n");
    repo.write("b.txt", "topic\n");
    repo.commitAll("topic");
    repo.git({"checkout", "-q", "main"});
    repo.write("a.txt", "main\n");
    repo.write("b.txt", "main\n");
    repo.commitAll("main");
    ASSERT_NE(repo.gitAllowingFailure({"merge", "topic"}).exitCode, 0);
    repo.write("c.txt", "changed\n");
    showBanner(repo);
    ASSERT_EQ(model->conflicts().size(), 2u);

    struct Case {
        const char* name;
        std::vector<std::string> selected; // in the changes page
        std::string opened;
    };
    const Case cases[] = {
        {"nothing selected", {}, "a.txt"},
        {"the second conflict", {"b.txt"}, "b.txt"},
        {"a file without conflict, then a conflict", {"c.txt", "b.txt"}, "b.txt"},
        {"only a file without conflict", {"c.txt"}, "a.txt"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        model->setSelectedPaths(c.selected);
        child<QToolButton>(*banner, "conflict-banner.open-merge-editor")->click();
        auto* editor = banner->findChild<ConflictResolutionView*>();
        ASSERT_NE(editor, nullptr);
        EXPECT_EQ(editor->model().conflict().path, c.opened);
        editor->close();
        ASSERT_TRUE(QTest::qWaitFor([&] { return banner->findChild<ConflictResolutionView*>() == nullptr; }));
    }
}

TEST_F(ConflictBannerTest, AbortAsksFirstAndThenLeavesTheRepositoryClean) {
    const struct {
        const char* operation;
        QString text;
        QString abortTitle;
        bool offersContinue;
    } cases[] = {
        {"merge", "Merging: resolve conflicts and commit", "Abort Merge", false},
        {"rebase", "Rebasing: resolve conflicts and continue", "Abort Rebase", true},
        {"cherry-pick", "Cherry-picking: resolve conflicts and commit", "Abort Cherry-pick", false},
        {"revert", "Reverting: resolve conflicts and commit", "Abort Revert", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.operation);
        test::TempRepo fresh;
        fresh.divergeOnOneFile();
        test::stopOnConflict(fresh, c.operation);
        showBanner(fresh);
        ASSERT_FALSE(banner->isHidden());
        EXPECT_EQ(child<QLabel>(*banner, "conflict-banner.text")->text(), c.text);
        EXPECT_EQ(!child<QPushButton>(*banner, "conflict-banner.continue")->isHidden(), c.offersContinue);

        // Escape keeps everything as it was.
        auto* abort = child<QPushButton>(*banner, "conflict-banner.abort");
        abort->click();
        auto* box = banner->findChild<QMessageBox*>();
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), c.abortTitle);
        QTest::keyClick(box, Qt::Key_Escape);
        ASSERT_TRUE(test::eventually([&] { return banner->findChild<QMessageBox*>() == nullptr; }));
        test::await(readRepository(fresh.path()));
        EXPECT_FALSE(banner->isHidden());

        abort->click();
        child<QAbstractButton>(*banner->findChild<QMessageBox*>(), "conflict-banner.abort-confirm")->click();
        ASSERT_TRUE(test::eventually(
            [&] { return !model->isBusy() && banner->findChild<QMessageBox*>() == nullptr; }));
        test::await(readRepository(fresh.path()));
        EXPECT_EQ(model->repoState(), RepositoryState::clean);
        EXPECT_TRUE(banner->isHidden());
        EXPECT_EQ(fresh.git({"status", "--porcelain"}), "");
        EXPECT_NE(fresh.git({"rev-parse", "--abbrev-ref", "HEAD"}), "HEAD\n"); // back on its branch
        banner.reset();
        model.reset();
    }
}

} // namespace
