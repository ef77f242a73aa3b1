// The landing page on real repositories: an empty list says so; selecting a recent previews its
// branches, commits and README (a table and code in it), and the preview's button opens it; a
// README that is no regular file is passed over and a large one is cut with a note.
#include "content/WelcomeOnRealGit.h"
#include "content/ui/MarkdownView.h"

#include "support/Screenshot.h"

#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QPushButton>

#include <filesystem>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

QPalette darkPalette() {
    QPalette palette(QColor(0x2b, 0x2b, 0x2b));
    palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
    palette.setColor(QPalette::Text, QColor(0xe6, 0xe6, 0xe6));
    palette.setColor(QPalette::WindowText, QColor(0xe6, 0xe6, 0xe6));
    palette.setColor(QPalette::PlaceholderText, QColor(0x99, 0x99, 0x99));
    return palette;
}

} // namespace

TEST(WelcomeView, EmptyListSaysSo) {
    test::WelcomeOnRealGit welcome;
    EXPECT_TRUE(welcome.view.findChild<QWidget*>("welcome.recents.empty")->isVisible());
    EXPECT_TRUE(welcome.view.findChild<QWidget*>("welcome.detail")->isVisible());
    test::saveScreenshot(welcome.view, QStringLiteral("welcome-empty"));
}

TEST(WelcomeView, SelectingARecentPreviewsItAndOpenAsksForIt) {
    test::TempRepo repo;
    repo.write("README.md", "# Orvel sample\n\nA repository to look at.\n\n"
                            "| Command | Effect |\n|---|---|\n| `git status` | shows changes |\n"
                            "| `git log` | shows history |\n\n"
                            "```cpp\nint main() {\n    return 0;\n}\n```\n\n"
                            "- one\n- two\n\n> A quote.\n\nSee [the site](https://example.com).\n");
    repo.commitAll("Add the README");
    repo.write("src/main.cpp", "int main() {}\n");
    repo.commitAll("Add the program");
    repo.git({"branch", "feature/graph"});
    test::TempRepo other;

    test::WelcomeOnRealGit welcome;
    welcome.model.setRecents({QString::fromStdString(repo.path()), QString::fromStdString(other.path())});
    auto* list = welcome.view.findChild<QListView*>("welcome.recents");
    list->setCurrentIndex(list->model()->index(0, 0));
    ASSERT_TRUE(QTest::qWaitFor([&] { return welcome.model.repo() && !welcome.model.isLoading(); }, 30000));

    const QString branches = welcome.view.findChild<QLabel*>("welcome.preview.branches")->text();
    EXPECT_TRUE(branches.contains("feature/graph") && branches.contains("main"));
    EXPECT_TRUE(
        welcome.view.findChild<QLabel*>("welcome.preview.commits")->text().contains("Add the program"));
    const QString readme = welcome.view.findChild<MarkdownView*>("welcome.preview.readme")->toPlainText();
    EXPECT_TRUE(readme.contains("shows history") && readme.contains("return 0;"));
    test::saveScreenshot(welcome.view, QStringLiteral("welcome-preview"));
    const QPalette light = QApplication::palette();
    QApplication::setPalette(darkPalette());
    QCoreApplication::processEvents();
    test::saveScreenshot(welcome.view, QStringLiteral("welcome-preview-dark"));
    QApplication::setPalette(light);

    welcome.view.findChild<QPushButton*>("welcome.preview.open")->click();
    ASSERT_EQ(welcome.opened.size(), 1);
    EXPECT_EQ(welcome.openedPath(), repo.path());
}

// A README linked to an endless device is passed over; a large one shows its first megabyte and says
// that the rest was cut.
TEST(WelcomeView, HostileReadmeIsPassedOverAndALargeOneIsCutWithANote) {
    test::TempRepo repo;
    repo.write("app.txt", "app\n");
    repo.commitAll("base");
    std::filesystem::create_symlink("/dev/zero", repo / "README.md");
    std::string large;
    while (large.size() < 2 * std::size_t(Readme::maxBytes))
        large += std::string(2000, 'x') + "\n";
    repo.write("README.txt", large);

    test::WelcomeOnRealGit welcome;
    welcome.model.setRecents({QString::fromStdString(repo.path())});
    auto* list = welcome.view.findChild<QListView*>("welcome.recents");
    list->setCurrentIndex(list->model()->index(0, 0));
    ASSERT_TRUE(QTest::qWaitFor([&] { return welcome.model.repo() && !welcome.model.isLoading(); }, 30000));

    auto* notice = welcome.view.findChild<QLabel*>("welcome.preview.readme-notice");
    EXPECT_TRUE(notice->isVisible());
    EXPECT_EQ(notice->text(), QStringLiteral("README truncated at 1 MB"));
    const QString shown = welcome.view.findChild<MarkdownView*>("welcome.preview.readme")->toPlainText();
    EXPECT_GT(shown.size(), 1000000);
    EXPECT_LE(shown.size(), Readme::maxBytes);
}
