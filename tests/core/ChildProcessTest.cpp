// The child-process layer: concurrent capture of both streams, limits, and no child left behind.
#include "core/process/ChildProcess.h"
#include "support/GitFixture.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <stop_token>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <thread>

using namespace orvel;
using namespace std::chrono_literals;

namespace {

ChildRequest shell(const std::string& script, std::size_t outLimit = 64u << 20,
                   std::size_t errLimit = 64u << 20) {
    ChildRequest request;
    request.executable = "/bin/sh";
    request.arguments = {"-c", script};
    request.environment = inheritedEnvironment();
    request.stdoutCapture = StreamCapture::capture(outLimit);
    request.stderrCapture = StreamCapture::capture(errLimit);
    return request;
}

bool noChildLeft() {
    return ::waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD;
}

} // namespace

TEST(ChildProcess, MegabytesOnBothStreamsAtOnceFinishWithoutDeadlock) {
    // Both streams get far more than a pipe buffer at the same time, so reading one stream only
    // would hang; every line is different, so a lost, doubled or misplaced read shows.
    const auto outcome = runChild(shell("seq 1 500000 & seq 500001 1000000 >&2; wait"));
    EXPECT_TRUE(outcome.succeeded());
    std::string out, err;
    for (int i = 1; i <= 500000; ++i)
        out += std::to_string(i) + '\n';
    for (int i = 500001; i <= 1000000; ++i)
        err += std::to_string(i) + '\n';
    EXPECT_TRUE(outcome.out == out) << "stdout differs, " << outcome.out.size() << " bytes";
    EXPECT_TRUE(outcome.err == err) << "stderr differs, " << outcome.err.size() << " bytes";
}

TEST(ChildProcess, StreamOverItsLimitKillsAndReapsTheChild) {
    // The child would run forever; only the limit ends it.
    EXPECT_THROW(runChild(shell("yes 1>&2", 1024, 1u << 20)), OutputLimitExceeded);
    EXPECT_TRUE(noChildLeft());
    EXPECT_THROW(runChild(shell("yes", 1u << 20)), OutputLimitExceeded);
    EXPECT_TRUE(noChildLeft());
}

TEST(ChildProcess, ExitStatusAndSignalAreReported) {
    auto exited = runChild(shell("echo oops >&2; exit 3"));
    EXPECT_EQ(exited.termination, ChildOutcome::Termination::exited);
    EXPECT_EQ(exited.code, 3);
    EXPECT_EQ(exited.err, "oops\n");
    auto killed = runChild(shell("kill -TERM $$"));
    EXPECT_EQ(killed.termination, ChildOutcome::Termination::signaled);
    EXPECT_FALSE(killed.succeeded());
}

TEST(ChildProcess, OutputIsRawStdinIsEmptyAndADiscardedStreamIsNotKept) {
    EXPECT_EQ(runChild(shell("printf 'a\\000b\\377\\n'")).out, std::string("a\0b\xff\n", 5));
    EXPECT_EQ(runChild(shell("wc -c")).out, "0\n");
    auto request = shell("echo out; echo err >&2");
    request.stderrCapture = StreamCapture::discarded();
    const auto outcome = runChild(request);
    EXPECT_EQ(outcome.out, "out\n");
    EXPECT_EQ(outcome.err, "");
}

TEST(ChildProcess, MissingExecutableGivesAClearError) {
    ChildRequest request;
    request.executable = "/nonexistent/bin/git";
    try {
        runChild(request);
        FAIL() << "expected an error";
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code().value(), ENOENT);
        EXPECT_NE(std::string(error.what()).find("Could not run git at /nonexistent/bin/git"),
                  std::string::npos);
    }
    EXPECT_TRUE(noChildLeft());
}

// A torn-down run ends at once although a grandchild still holds its output pipes, and a run that
// would start after the teardown starts nothing.
TEST(ChildProcess, TornDownRunKillsTheChildAtOnceAndALaterRunStartsNothing) {
    test::TempDir work;
    const std::string started = work / "started";
    std::stop_source teardown;
    const ChildTeardownScope scope(teardown.get_token());
    std::thread stopper([&] {
        while (!std::filesystem::exists(started))
            std::this_thread::sleep_for(5ms);
        teardown.request_stop();
    });
    const auto errnoOf = [](const ChildRequest& request) {
        try {
            runChild(request);
        } catch (const std::system_error& error) {
            return error.code().value();
        }
        return 0;
    };
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(errnoOf(shell("sleep 5 & : > '" + started + "'; exec sleep 600")), ECANCELED);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 4s);
    stopper.join();
    EXPECT_TRUE(noChildLeft());

    const std::string later = work / "later";
    EXPECT_EQ(errnoOf(shell(": > '" + later + "'")), ECANCELED);
    EXPECT_FALSE(std::filesystem::exists(later));
}

// A host that ignores SIGCHLD has its children reaped by the kernel: their status is unknown,
// which must not pass for a clean exit.
TEST(ChildProcess, ChildThatCannotBeReapedIsAFailureNotACleanExit) {
    struct sigaction ignore {};
    struct sigaction previous {};
    ignore.sa_handler = SIG_IGN;
    ::sigaction(SIGCHLD, &ignore, &previous);
    int code = 0;
    try {
        runChild(shell("exit 3"));
    } catch (const std::system_error& error) {
        code = error.code().value();
    }
    ::sigaction(SIGCHLD, &previous, nullptr);
    EXPECT_EQ(code, ECHILD);
}
