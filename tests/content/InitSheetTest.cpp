// Creating a repository through the init dialog with the real git: a new nested folder with the
// chosen initial branch opens; a branch name that git would read as an option is refused inline.
#include "content/ui/InitSheet.h"
#include "content/WelcomeOnRealGit.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

#include <filesystem>

using namespace orvel;

TEST(InitSheet, CreatesTheRepositoryWithItsBranchOrRefusesAnOptionLikeName) {
    struct Case {
        const char* branch;
        bool creates;
    } cases[] = {{"trunk", true}, {"--bare", false}};
    for (const Case& c : cases) {
        test::TempDir place;
        const std::string directory = place / "new/project";
        test::WelcomeOnRealGit welcome;
        auto* sheet = welcome.openSheet<InitSheet>("welcome.init");
        ASSERT_TRUE(sheet && sheet->isVisible());
        QTest::keyClicks(sheet->findChild<QLineEdit*>("init.directory"),
                         QString::fromStdString(directory + " "));
        QTest::keyClicks(sheet->findChild<QLineEdit*>("init.branch"), QString::fromLatin1(c.branch));
        sheet->findChild<QPushButton*>("init.create")->click();

        if (c.creates) {
            ASSERT_TRUE(welcome.waitForOpen());
            EXPECT_EQ(welcome.openedPath(), directory);
            EXPECT_EQ(test::git(directory, {"symbolic-ref", "HEAD"}), "refs/heads/trunk\n");
            continue;
        }
        auto* error = sheet->findChild<QLabel*>("init.error");
        ASSERT_TRUE(QTest::qWaitFor([&] { return error->isVisible(); }, 10000));
        EXPECT_TRUE(error->text().contains("must not begin with '-'"));
        EXPECT_FALSE(std::filesystem::exists(directory));
        EXPECT_TRUE(welcome.opened.isEmpty());
    }
}
