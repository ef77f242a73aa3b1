// The executor against fake git programs (shell scripts) that print what they were given, and
// against the real git for the version probe.
#include "core/process/SubprocessExecutor.h"
#include "core/process/ChildProcess.h"
#include "core/service/GitServiceError.h"
#include "core/support/UserDefaults.h"
#include "support/GitFixture.h"
#include "support/ServiceError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <sys/wait.h>
#include <system_error>

using namespace orvel;
using orvel::test::TempDir;

namespace {

// A fake git: a script with `body`, made executable.
std::string fakeGit(const TempDir& dir, const std::string& body, const std::string& name = "git") {
    test::writeScript(dir / name, "#!/bin/sh\n" + body + "\n");
    return dir / name;
}

std::unique_ptr<SubprocessExecutor> executorFor(const std::string& gitPath,
                                                std::optional<std::string> askpass = std::nullopt) {
    InMemoryUserDefaults defaults;
    defaults.setValue("gitBinaryPath", QString::fromStdString(gitPath));
    return std::make_unique<SubprocessExecutor>(std::move(askpass), defaults);
}

std::string valueOf(const std::vector<std::string>& environment, const std::string& key) {
    for (const auto& entry : environment) {
        if (entry.starts_with(key + "="))
            return entry.substr(key.size() + 1);
    }
    return "<unset>";
}

} // namespace

TEST(SubprocessExecutorArguments, RepositoryComesFirstAndOutputStaysUntrimmed) {
    TempDir dir;
    auto executor = executorFor(
        fakeGit(dir, R"(printf '  '; for a in "$@"; do printf '[%s]' "$a"; done; printf ' \n\n')"));
    EXPECT_EQ(executor->execute({"status"}, "/r"), "  [-C][/r][status] \n\n");
    EXPECT_EQ(executor->execute({"commit", "-m", "it's $(touch x) `y`"}, "/a b"),
              "  [-C][/a b][commit][-m][it's $(touch x) `y`] \n\n");
    EXPECT_FALSE(std::filesystem::exists("x"));
}

TEST(SubprocessExecutorFailures, NonZeroExitCarriesCommandWordAndStderr) {
    TempDir dir;
    auto executor = executorFor(fakeGit(dir, "echo partial; echo 'fatal: bad' >&2; exit 128"));
    const GitServiceError error = test::serviceError([&] {
        executor->execute({"--no-pager", "log", "-1"}, "/r");
    });
    EXPECT_EQ(error.kind(), GitServiceError::Kind::commandFailed);
    EXPECT_STREQ(error.what(), "git log failed: fatal: bad\n");
}

TEST(SubprocessExecutorFailures, SixtyMegabytesOfStderrGiveTheHundredMegabyteMessage) {
    TempDir dir;
    auto executor = executorFor(fakeGit(dir, "head -c 62914560 /dev/zero >&2"));
    const GitServiceError error = test::serviceError([&] { executor->execute({"fsck"}, "/r"); });
    EXPECT_EQ(error.command(), "fsck");
    EXPECT_TRUE(error.stderrText().starts_with("output exceeded 100 MB limit: ")) << error.stderrText();
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

// A streamed reader keeps what it needs itself; the whole history of a large repository is more
// than the cap on captured output.
TEST(SubprocessExecutorStreaming, StreamedOutputPassesTheCapOnCapturedOutput) {
    TempDir dir;
    auto executor = executorFor(fakeGit(dir, "head -c 110100480 /dev/zero"));
    std::size_t streamed = 0;
    executor->executeStreaming({"log"}, "/r", [&](std::string_view piece) { streamed += piece.size(); });
    EXPECT_EQ(streamed, 110'100'480u);
    EXPECT_TRUE(test::serviceError([&] { executor->execute({"log"}, "/r"); })
                    .stderrText()
                    .starts_with("output exceeded 100 MB limit: "));
}

TEST(SubprocessExecutorFailures, MissingGitGivesAClearError) {
    EXPECT_THAT([] { executorFor("/nonexistent/git")->execute({"status"}, "/r"); },
                ::testing::ThrowsMessage<std::system_error>(
                    ::testing::HasSubstr("Could not run git at /nonexistent/git")));
}

TEST(SubprocessExecutorEnvironment, PathPromptLocaleAskpassAndExtras) {
    const auto environment = gitEnvironment({"PATH=/usr/bin", "HOME=/h", "LC_ALL=de_DE.UTF-8"}, std::nullopt);
    EXPECT_EQ(valueOf(environment, "PATH"), "/opt/homebrew/bin:/opt/homebrew/sbin:/usr/local/bin:/usr/bin");
    EXPECT_EQ(valueOf(environment, "GIT_TERMINAL_PROMPT"), "0");
    EXPECT_EQ(valueOf(environment, "GIT_OPTIONAL_LOCKS"), "0");
    EXPECT_EQ(valueOf(environment, "GIT_EDITOR"), ":");
    EXPECT_EQ(valueOf(environment, "LC_ALL"), "C");
    EXPECT_EQ(valueOf(environment, "HOME"), "/h");
    // Without a PATH, the system directories.
    EXPECT_EQ(valueOf(gitEnvironment({}, std::nullopt), "PATH"),
              "/opt/homebrew/bin:/opt/homebrew/sbin:/usr/local/bin:/usr/bin:/bin");

    // Without a script the caller's askpass stays; with one, both prompts go to it, on a display.
    const auto without = gitEnvironment({"GIT_ASKPASS=/mine", "DISPLAY=:5"}, std::nullopt);
    EXPECT_EQ(valueOf(without, "GIT_ASKPASS"), "/mine");
    EXPECT_EQ(valueOf(without, "SSH_ASKPASS"), "<unset>");
    const auto with = gitEnvironment({"DISPLAY=:5"}, std::string("/tmp/askpass.sh"));
    EXPECT_EQ(valueOf(with, "GIT_ASKPASS"), "/tmp/askpass.sh");
    EXPECT_EQ(valueOf(with, "SSH_ASKPASS"), "/tmp/askpass.sh");
    EXPECT_EQ(valueOf(with, "SSH_ASKPASS_REQUIRE"), "force");
    EXPECT_EQ(valueOf(with, "DISPLAY"), ":5");
    EXPECT_EQ(valueOf(gitEnvironment({}, std::string("/a")), "DISPLAY"), ":0");

    // The caller's extra variables win over everything.
    const auto extra =
        gitEnvironment({"PATH=/bin"}, std::nullopt, {{"LC_ALL", "POSIX"}, {"GIT_EDITOR", "true"}});
    EXPECT_EQ(valueOf(extra, "LC_ALL"), "POSIX");
    EXPECT_EQ(valueOf(extra, "GIT_EDITOR"), "true");
}

TEST(SubprocessExecutorEnvironment, ChildSeesTheBuiltEnvironment) {
    TempDir dir;
    auto executor = executorFor(fakeGit(dir, R"(printf '%s|%s|%s' "$LC_ALL" "$GIT_TERMINAL_PROMPT" "$X")"));
    EXPECT_EQ(executor->executeWithEnvironment({"rebase"}, "/r", {{"X", "y"}}), "C|0|y");
}

TEST(SubprocessExecutorCommandWord, FirstNonOptionArgument) {
    EXPECT_EQ(commandWord({"--no-pager", "log"}), "log");
    EXPECT_EQ(commandWord({"--version"}), "--version");
    EXPECT_EQ(commandWord({}), "git");
    EXPECT_EQ(commandWord({"status", "--porcelain=v2"}), "status");
    EXPECT_EQ(commandWord({"-c", "x", "y"}), "x");
}

TEST(SubprocessExecutorDiscovery, WellKnownPlacesThenWhichThenUsrBin) {
    int whichRuns = 0;
    auto which = [&](std::optional<std::string> answer) {
        return [&whichRuns, answer] {
            ++whichRuns;
            return answer;
        };
    };
    auto only = [](std::string present) {
        return [present](const std::string& path) { return path == present; };
    };
    EXPECT_EQ(discoverGitPath(only("/opt/homebrew/bin/git"), which("/x")), "/opt/homebrew/bin/git");
    EXPECT_EQ(discoverGitPath(only("/usr/local/bin/git"), which("/x")), "/usr/local/bin/git");
    EXPECT_EQ(whichRuns, 0);
    EXPECT_EQ(discoverGitPath(only(""), which("/home/me/bin/git")), "/home/me/bin/git");
    EXPECT_EQ(discoverGitPath(only(""), which("")), "");
    EXPECT_EQ(discoverGitPath(only(""), which(std::nullopt)), "/usr/bin/git");
}

TEST(SubprocessExecutorOverride, InvalidPathIsRefusedAndTheOldOneKept) {
    TempDir dir;
    const std::string first = fakeGit(dir, "echo first", "git-first");
    auto executor = executorFor(first);
    EXPECT_THROW(executor->setGitPathOverride(std::string("/nonexistent/git")), GitServiceError);
    EXPECT_THROW(executor->setGitPathOverride(fakeGit(dir, "exit 1", "git-broken")), GitServiceError);
    EXPECT_EQ(executor->resolvedGitPath(), first);

    const std::string second = fakeGit(dir, "echo second", "git-second");
    executor->setGitPathOverride(second);
    EXPECT_EQ(executor->resolvedGitPath(), second);
    EXPECT_EQ(executor->execute({"x"}, "/r"), "second\n");
}

TEST(SubprocessExecutorOverride, ConfiguredPathComesFromTheSettingsAndClearingRediscovers) {
    InMemoryUserDefaults empty;
    SubprocessExecutor discovering(std::nullopt, empty);
    EXPECT_TRUE(discovering.gitVersion().starts_with("git version "));

    TempDir dir;
    auto executor = executorFor(fakeGit(dir, "echo 'git version 0.0.fake'"));
    EXPECT_EQ(executor->gitVersion(), "git version 0.0.fake");
    executor->setGitPathOverride(std::nullopt);
    EXPECT_TRUE(executor->resolvedGitPath().ends_with("/git")) << executor->resolvedGitPath();
    EXPECT_TRUE(executor->gitVersion().starts_with("git version "));
}
