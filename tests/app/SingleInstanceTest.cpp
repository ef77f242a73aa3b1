// Folders given on the command line open as tabs, and a second start hands its folders to the
// program that runs and ends: the real program, started twice and three times under offscreen with
// a private settings folder and runtime folder. A socket left behind by a killed program does not
// stop the next start from taking over.
#include "support/GitFixture.h"

#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>
#include <QSettings>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <optional>

using namespace orvel;
using namespace std::chrono_literals;

namespace {

class Program {
  public:
    Program(const QProcessEnvironment& environment, const std::string& workingFolder,
            const QStringList& arguments) {
        process_.setProcessEnvironment(environment);
        process_.setWorkingDirectory(QString::fromStdString(workingFolder));
        process_.start(ORVEL_PROGRAM, arguments);
        EXPECT_TRUE(process_.waitForStarted());
    }
    ~Program() {
        process_.terminate();
        if (!process_.waitForFinished(30000))
            process_.kill();
    }

    QProcess& process() { return process_; }

    // Reads the program's log until `line` appears in it, or it ends, or time is up.
    bool logs(const QByteArray& line) {
        const auto deadline = std::chrono::steady_clock::now() + 60s;
        while (!log_.contains(line) && process_.state() == QProcess::Running &&
               std::chrono::steady_clock::now() < deadline) {
            process_.waitForReadyRead(100);
            log_ += process_.readAllStandardError();
        }
        log_ += process_.readAllStandardError();
        return log_.contains(line);
    }
    const QByteArray& log() const { return log_; }

  private:
    QProcess process_;
    QByteArray log_;
};

// The permissions of the socket in `folder`, when there is one.
std::optional<std::filesystem::perms> socketIn(const std::string& folder) {
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.is_socket())
            return entry.status().permissions();
    return std::nullopt;
}

} // namespace

TEST(SingleInstance, LaterStartsHandTheirFoldersToTheRunningProgramAlsoAfterOneWasKilled) {
    test::TempDir home;
    test::TempDir runtime;
    test::TempRepo first;
    test::TempRepo second;
    test::TempRepo handed;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", QString::fromStdString(home.path()));
    environment.insert("XDG_CONFIG_HOME", QString::fromStdString(home / "config"));
    environment.insert("XDG_RUNTIME_DIR", QString::fromStdString(runtime.path()));
    // The killed program leaves its private temporary files; they go with the test's own folder.
    std::filesystem::create_directory(runtime / "tmp");
    environment.insert("TMPDIR", QString::fromStdString(runtime / "tmp"));
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    environment.insert("QT_LOGGING_RULES", "orvel.app.debug=true");
    // A killed program ends without its leak report; the one that takes over may end with tabs
    // whose coroutines never resumed.
    environment.insert("ASAN_OPTIONS", environment.value("ASAN_OPTIONS") + ":detect_leaks=0");

    {
        Program crashed(environment, home.path(), {});
        for (int i = 0; i < 600 && !socketIn(runtime.path()); ++i)
            crashed.process().waitForFinished(50);
        ASSERT_TRUE(socketIn(runtime.path()));
        using std::filesystem::perms;
        EXPECT_EQ(*socketIn(runtime.path()) & (perms::group_all | perms::others_all), perms::none);
        crashed.process().kill();
        ASSERT_TRUE(crashed.process().waitForFinished(30000));
    }
    ASSERT_TRUE(socketIn(runtime.path())) << "the killed program's socket is the stale one of this test";

    Program running(environment, home.path(),
                    {QString::fromStdString(first.path()), QString::fromStdString(second.path())});
    ASSERT_TRUE(running.logs("op=tab.open tabCount=2")) << running.log().toStdString();

    // Relative to the later start's own folder, which the running program does not share; the
    // file that is no folder fails as in the Open dialog, and the folder after it still opens.
    const std::filesystem::path handedPath(handed.path());
    test::writeFile(home / "notes.txt", "no repository\n");
    Program later(environment, handedPath.parent_path().string(),
                  {QString::fromStdString(home / "notes.txt"),
                   QString::fromStdString(handedPath.filename().string() + "/")});
    ASSERT_TRUE(later.process().waitForFinished(30000)) << "the later start did not end";
    EXPECT_EQ(later.process().exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(later.process().exitCode(), 0);
    EXPECT_FALSE(later.process().readAllStandardError().contains("op=app.launched"));

    ASSERT_TRUE(running.logs("op=tab.open tabCount=3")) << running.log().toStdString();
    EXPECT_TRUE(running.log().contains("op=repo.open reason="));
    EXPECT_EQ(running.process().state(), QProcess::Running);
    const auto newestRecent = [&] {
        const QStringList recents =
            QSettings(QString::fromStdString(home / "config/Orvel/Orvel.ini"), QSettings::IniFormat)
                .value("recentRepositoryPaths")
                .toStringList();
        return recents.value(0).toStdString();
    };
    for (int i = 0; i < 200 && newestRecent() != handed.path(); ++i)
        running.process().waitForFinished(50);
    EXPECT_EQ(newestRecent(), handed.path());
}
