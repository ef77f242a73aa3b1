// Cloning through the dialog on real repositories: a bare repository with history opens at once;
// an empty one is offered its first commit and push, and a rejected push keeps the commit.
#include "content/ui/CloneSheet.h"
#include "content/CloneViewModel.h"
#include "content/EmptyRepositoryStart.h"
#include "content/WelcomeOnRealGit.h"

#include "support/Screenshot.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

CloneSheet* fillCloneSheet(test::WelcomeOnRealGit& welcome, const std::string& url,
                           const std::string& destination) {
    auto* sheet = welcome.openSheet<CloneSheet>("welcome.clone");
    EXPECT_TRUE(sheet && sheet->isVisible());
    QTest::keyClicks(sheet->findChild<QLineEdit*>("clone.url"), QString::fromStdString("  " + url + " "));
    QTest::keyClicks(sheet->findChild<QLineEdit*>("clone.destination"), QString::fromStdString(destination));
    return sheet;
}

} // namespace

TEST(CloneSheet, ClonesALocalRepositoryAndAsksTheWindowToOpenIt) {
    test::TempRepo source;
    source.write("README.md", "# Source\n");
    const std::string head = source.commitAll("First");
    test::TempDir place;
    test::git(place.path(), {"clone", "--bare", source.path(), "source.git"});

    test::WelcomeOnRealGit welcome;
    CloneSheet* sheet = fillCloneSheet(welcome, place / "source.git", place / "copy");
    test::saveScreenshot(*sheet, QStringLiteral("clone-sheet"), QSize(560, 240));
    sheet->findChild<QPushButton*>("clone.submit")->click();

    ASSERT_TRUE(welcome.waitForOpen());
    EXPECT_EQ(welcome.openedPath(), place / "copy");
    EXPECT_EQ(test::git(place / "copy", {"rev-parse", "HEAD"}), head + "\n");
}

TEST(CloneSheet, EmptyRepositoryGetsItsFirstCommitAndPushAndAFailedPushKeepsTheCommit) {
    for (const bool rejectPush : {false, true}) {
        test::TempDir place;
        const std::string remote = place / "empty.git";
        test::git(place.path(), {"init", "--bare", "-b", "main", remote});
        if (rejectPush) {
            test::writeFile(remote + "/hooks/pre-receive", "#!/bin/sh\necho refused >&2\nexit 1\n");
            std::filesystem::permissions(remote + "/hooks/pre-receive", std::filesystem::perms::owner_all);
        }
        test::WelcomeOnRealGit welcome;
        welcome.defaults->setValue("emptyRepoInitFile", rejectPush ? "gitkeep" : "readme");
        CloneSheet* sheet = fillCloneSheet(welcome, remote, place / "work");
        sheet->findChild<QPushButton*>("clone.submit")->click();

        QMessageBox* prompt = nullptr;
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return (prompt = sheet->findChild<QMessageBox*>()) != nullptr; }, 30000));
        EXPECT_TRUE(prompt->informativeText().contains(rejectPush ? ".gitkeep" : "README.md"));
        prompt->findChild<QPushButton*>("clone.empty-repository.initialize")->click();

        const std::string subject = "Initialization\n\nInit by Orvel 0 - Git GUI\n\n";
        if (!rejectPush) {
            ASSERT_TRUE(welcome.waitForOpen());
            EXPECT_EQ(welcome.openedPath(), place / "work");
            EXPECT_EQ(test::git(remote, {"log", "-1", "--format=%B"}), subject);
            EXPECT_EQ(test::git(remote, {"show", "main:README.md"}), "# work\n");
            continue;
        }
        auto* error = sheet->findChild<QLabel*>("clone.error");
        ASSERT_TRUE(QTest::qWaitFor([&] { return error->isVisible(); }, 30000));
        EXPECT_TRUE(error->text().contains("refused"));
        EXPECT_TRUE(sheet->isVisible());
        EXPECT_TRUE(welcome.opened.isEmpty());
        EXPECT_EQ(test::git(place / "work", {"log", "-1", "--format=%B"}), subject);
        EXPECT_EQ(test::git(place / "work", {"ls-files"}), ".gitkeep\n");
        EXPECT_TRUE(test::gitAllowingFailure(remote, {"rev-parse", "--verify", "main"}).exitCode != 0);
    }
}

TEST(CloneSheet, DestinationIsTheFolderJoinedWithTheRepositoryName) {
    struct Case {
        const char* url;
        const char* destination;
    } cases[] = {
        {"https://github.com/owner/orvel.git", "/work/orvel"},
        {"  https://example.com/a/b/tool/  ", "/work/tool"},
        {"git@github.com:owner/thing.git", "/work/thing"},
        {"/srv/git/plain", "/work/plain"},
        {"https://example.com/", "/work"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CloneViewModel::cloneDestination(c.url, "/work").toStdString(), c.destination) << c.url;
}

TEST(EmptyRepositoryStart, GitignoreComesFromTheResourceOrTheBuiltInText) {
    InMemoryUserDefaults defaults;
    defaults.setValue("emptyRepoInitFile", "gitignore");
    const auto fallback = EmptyRepositoryStart::fromSettings(defaults, "app", QString());
    EXPECT_EQ(fallback.fileName, ".gitignore");
    EXPECT_EQ(fallback.fileContent, ".DS_Store\n.build/\nbuild/\nDerivedData/\nnode_modules/\n.env\n*.log\n");
    const auto bundled = EmptyRepositoryStart::fromSettings(defaults, "app");
    EXPECT_NE(bundled.fileContent, fallback.fileContent);
    EXPECT_NE(bundled.fileContent.find("node_modules/"), std::string::npos);
}
