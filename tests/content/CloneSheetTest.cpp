// Cloning through the dialog on real repositories: a bare repository with history opens at once,
// where the destination that follows the URL or the one the user typed says; an empty one is
// offered its first commit and push, and a rejected push keeps the commit.
#include "content/ui/CloneSheet.h"
#include "content/CloneViewModel.h"
#include "content/EmptyRepositoryStart.h"
#include "content/WelcomeOnRealGit.h"
#include "core/support/Version.h"

#include "core/service/MockGitService.h"
#include "support/Await.h"
#include "support/Screenshot.h"

#include <QCoro/QCoroTimer>

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

// Clones wait until the test lets them go, and remember the URL they were given.
class HeldCloneService final : public MockGitService {
  public:
    bool held = true;
    std::string url;

    QCoro::Task<RepoEntry> cloneRepository(std::string cloneUrl, std::string path, std::stop_token) override {
        url = cloneUrl;
        while (held)
            co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        auto cloned = MockGitService::cloneRepository(std::move(cloneUrl), std::move(path));
        co_return co_await std::move(cloned);
    }
};

// Types `text` in place of what the field shows, as a user who selects it all first.
void typeOver(QLineEdit& field, const std::string& text) {
    field.selectAll();
    QTest::keyClicks(&field, QString::fromStdString(text));
}

CloneSheet* fillCloneSheet(test::WelcomeOnRealGit& welcome, const std::string& url,
                           const std::string& destination) {
    auto* sheet = welcome.openSheet<CloneSheet>("welcome.clone");
    EXPECT_TRUE(sheet && sheet->isVisible());
    QTest::keyClicks(sheet->findChild<QLineEdit*>("clone.url"), QString::fromStdString("  " + url + " "));
    typeOver(*sheet->findChild<QLineEdit*>("clone.destination"), destination);
    return sheet;
}

} // namespace

// The destination follows the URL as it is typed, in the home folder; a destination typed over it
// stays through later URL edits, and the clone lands there and asks the window to open it.
TEST(CloneSheet, ClonesALocalRepositoryWhereTheUserSaysAndAsksTheWindowToOpenIt) {
    test::TempRepo source;
    source.write("README.md", "# Source\n");
    const std::string head = source.commitAll("First");
    test::TempDir place;
    test::git(place.path(), {"clone", "--bare", source.path(), "source.git"});

    test::WelcomeOnRealGit welcome;
    auto* sheet = welcome.openSheet<CloneSheet>("welcome.clone");
    ASSERT_NE(sheet, nullptr);
    auto& url = *sheet->findChild<QLineEdit*>("clone.url");
    auto& destination = *sheet->findChild<QLineEdit*>("clone.destination");
    QTest::keyClicks(&url, QString::fromStdString("  " + place / "source.git// "));
    EXPECT_EQ(destination.text().toStdString(), QDir::home().filePath(QStringLiteral("source")).toStdString());
    test::saveScreenshot(*sheet, QStringLiteral("clone-sheet"), QSize(560, 200));

    typeOver(destination, place / "mine");
    for (int removed = 0; removed < 3; ++removed)
        QTest::keyClick(&url, Qt::Key_Backspace);
    EXPECT_EQ(url.text().toStdString(), "  " + place / "source.git");
    EXPECT_EQ(destination.text().toStdString(), place / "mine");
    sheet->findChild<QPushButton*>("clone.submit")->click();

    ASSERT_TRUE(welcome.waitForOpen());
    EXPECT_EQ(welcome.openedPath(), place / "mine");
    EXPECT_EQ(test::git(place / "mine", {"rev-parse", "HEAD"}), head + "\n");
}

// URL edits fill the destination until the user types one; Browse picks the folder it is made in
// and makes it follow the URL again, as does emptying the field.
TEST(CloneSheet, TypedDestinationIsNeverOverwrittenByTheUrl) {
    CloneViewModel model(std::make_shared<MockGitService>(), std::make_shared<InMemoryUserDefaults>());
    const QString home = QDir::homePath();
    struct Step {
        const char* url; // typed into the URL field; null for no URL edit
        const char* destination; // typed into the destination field; null for none
        const char* browsed;     // chosen with Browse; null for none
        QString expected;
    };
    const Step steps[] = {
        {"https://example.com/owner/orvel.git", nullptr, nullptr, home + "/orvel"},
        {"git@example.com:owner/tool.git/", nullptr, nullptr, home + "/tool"},
        {"example.com:plain", nullptr, nullptr, home + "/plain"},
        {"https://example.com/", nullptr, nullptr, QString()},
        {"https://example.com/tool", nullptr, "/srv/src", "/srv/src/tool"},
        {"https://example.com/other.git", nullptr, nullptr, "/srv/src/other"},
        {nullptr, "/data/mine", nullptr, "/data/mine"},
        {"https://example.com/third.git", nullptr, nullptr, "/data/mine"},
        {"", nullptr, nullptr, "/data/mine"},
        {nullptr, "", nullptr, QString()},
        {"host:again", nullptr, nullptr, "/srv/src/again"},
        {nullptr, "/data/typed", "/opt", "/opt/again"},
        {"https://example.com/last.git", nullptr, nullptr, "/opt/last"},
    };
    int index = 0;
    for (const Step& step : steps) {
        if (step.url)
            model.setUrlText(QString::fromUtf8(step.url));
        if (step.destination)
            model.setDestinationPath(QString::fromUtf8(step.destination));
        if (step.browsed)
            model.chooseDestinationFolder(QString::fromUtf8(step.browsed));
        EXPECT_EQ(model.destinationPath().toStdString(), step.expected.toStdString()) << "step " << index;
        ++index;
    }
}

TEST(CloneSheet, EmptyRepositoryGetsItsFirstCommitAndPushAndAFailedPushKeepsTheCommit) {
    for (const bool rejectPush : {false, true}) {
        test::TempDir place;
        const std::string remote = place / "empty.git";
        test::git(place.path(), {"init", "--bare", "-b", "main", remote});
        if (rejectPush)
            test::writeScript(remote + "/hooks/pre-receive", "#!/bin/sh\necho refused >&2\nexit 1\n");
        test::WelcomeOnRealGit welcome;
        welcome.defaults->setValue("emptyRepoInitFile", rejectPush ? "gitkeep" : "readme");
        CloneSheet* sheet = fillCloneSheet(welcome, remote, place / "work");
        sheet->findChild<QPushButton*>("clone.submit")->click();

        QMessageBox* prompt = nullptr;
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return (prompt = sheet->findChild<QMessageBox*>()) != nullptr; }, 30000));
        EXPECT_TRUE(prompt->informativeText().contains(rejectPush ? ".gitkeep" : "README.md"));
        for (QAbstractButton* button : prompt->buttons()) {
            if (button->text() == "Initialize & Push")
                button->click();
        }

        const std::string subject =
            "Initialization\n\nInit by Orvel " + std::string(orvelVersion) + " - Git GUI\n\n";
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

TEST(CloneSheet, EscapeAbandonsARunningCloneAndItsLateAnswer) {
    auto service = std::make_shared<HeldCloneService>();
    CloneViewModel model(service, std::make_shared<InMemoryUserDefaults>());
    CloneSheet sheet(model);
    sheet.open();
    model.setUrlText(" https://example.com/tool.git ");
    model.setDestinationPath("/tmp/tool");
    QSignalSpy finished(&model, &CloneViewModel::finished);
    auto clone = model.clone();
    ASSERT_TRUE(model.isCloning());
    EXPECT_EQ(service->url, "https://example.com/tool.git");

    QTest::keyClick(&sheet, Qt::Key_Escape);
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_FALSE(model.isCloning());
    service->held = false;
    test::await(std::move(clone));
    EXPECT_TRUE(finished.isEmpty());
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
        {"host:tool", "/work/tool"},
        {"git@example.com:owner/thing.git//", "/work/thing"},
        {"ssh://git@example.com:2222/srv/repo.git/", "/work/repo"},
        {"file:///srv/git/x.git", "/work/x"},
        {"git@example.com:", "/work"},
        {"https://example.com/a/..", "/work"},
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
