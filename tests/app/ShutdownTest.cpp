// Closing the last window while git runs ends the program promptly: the fetch that hangs on a
// remote that never answers is killed, the fetch queued behind it never starts, and nothing of
// either is left running. The system's request to end (SIGTERM) ends it the same way, with its
// private files removed.
#include "support/GitFixture.h"
#include "support/SilentRemote.h"

#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

using namespace orvel;
using namespace std::chrono_literals;

TEST(Shutdown, ClosingTheLastWindowWhileAFetchHangsEndsTheProgramWithinASecond) {
    test::TempRepo repo;
    test::TempDir remotes;
    const test::SilentRemote silent(remotes.path(), "origin");
    silent.addTo(repo.path());

    QProcess program;
    auto environment = QProcessEnvironment::systemEnvironment();
    // The coroutines that awaited the killed fetches stay suspended when the program ends, by
    // design, so their frames are not freed: that is no leak to report.
    environment.insert("ASAN_OPTIONS", environment.value("ASAN_OPTIONS") + ":detect_leaks=0");
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(ORVEL_SHUTDOWN_PROBE,
                  {QString::fromStdString(repo.path()), QString::fromStdString(silent.marker())});
    ASSERT_TRUE(program.waitForStarted());
    QByteArray out;
    const auto deadline = std::chrono::steady_clock::now() + 60s;
    while (!out.contains("closing\n") && program.state() == QProcess::Running &&
           std::chrono::steady_clock::now() < deadline) {
        program.waitForReadyRead(100);
        out += program.readAllStandardOutput();
    }
    ASSERT_TRUE(out.contains("closing\n")) << out.toStdString();

    const auto closed = std::chrono::steady_clock::now();
    ASSERT_TRUE(program.waitForFinished(30000));
    EXPECT_LT(std::chrono::steady_clock::now() - closed, 1s);
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);

    // git's own helpers end when the killed git's end of the connection closes.
    for (int i = 0; i < 500 && silent.running(); ++i)
        std::this_thread::sleep_for(10ms);
    EXPECT_FALSE(silent.running());
}

TEST(Shutdown, TheSystemsRequestToEndRemovesThePrivateFilesAsClosingDoes) {
    test::TempDir home;
    const QString temporary = QString::fromStdString(home.path()) + QStringLiteral("/tmp");
    QDir().mkpath(temporary);
    const auto askpassFolders = [&] {
        return QDir(temporary).entryList({QStringLiteral("orvel-askpass-*")}, QDir::Dirs | QDir::NoDotAndDotDot);
    };
    QProcess program;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", QString::fromStdString(home.path()));
    environment.insert("XDG_CONFIG_HOME", QString::fromStdString(home.path()) + QStringLiteral("/config"));
    environment.insert("TMPDIR", temporary);
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(ORVEL_PROGRAM, {});
    ASSERT_TRUE(program.waitForStarted());
    const auto deadline = std::chrono::steady_clock::now() + 30s;
    while (askpassFolders().isEmpty() && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(20ms);
    ASSERT_FALSE(askpassFolders().isEmpty());

    program.terminate();
    ASSERT_TRUE(program.waitForFinished(30000));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_TRUE(askpassFolders().isEmpty()) << askpassFolders().join(' ').toStdString();
}
