// The askpass bridge end to end: git runs the manager's script through the executor, the question
// shows in the model, and what the test answers there is what git receives. No network is used:
// `git credential fill` asks for an https host's username and password.
#include "workspace/CredentialManager.h"
#include "core/process/SubprocessExecutor.h"
#include "core/support/UserDefaults.h"
#include "support/Await.h"
#include "support/Eventually.h"
#include "support/GitFixture.h"
#include "support/LogCapture.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>

#include <chrono>
#include <filesystem>
#include <future>
#include <sys/stat.h>

#include <gtest/gtest.h>

using namespace orvel;
using namespace std::chrono_literals;
using test::eventually;

namespace {

mode_t permissionsOf(const QString& path) {
    struct stat info {};
    if (::stat(QFile::encodeName(path).constData(), &info) != 0)
        return 0;
    return info.st_mode;
}

class CredentialBridge : public ::testing::Test {
  protected:
    void SetUp() override {
        manager.start();
        test::writeFile(input, "protocol=https\nhost=example.invalid\n\n");
    }

    // Starts `git credential fill` through an executor that knows the manager's script. git reads
    // the request from a file through a shell alias, since the executor gives children no stdin.
    std::future<std::string> fill() {
        auto executor =
            std::make_shared<SubprocessExecutor>(manager.askpassScriptPath().toStdString(), defaults);
        const std::string alias = "alias.askfill=!git credential fill <'" + input + "'";
        const std::string directory = work.path();
        return std::async(std::launch::async, [executor, alias, directory] {
            return executor->execute({"-c", "credential.helper=", "-c", alias, "askfill"}, directory);
        });
    }

    // Waits for the next question, checks it, and answers it with `answer` or a cancel.
    void answer(const QString& expectedStart, const std::optional<QString>& answer) {
        ASSERT_TRUE(eventually([&] { return manager.isShowingPrompt(); })) << "no question arrived";
        EXPECT_TRUE(manager.promptMessage().startsWith(expectedStart))
            << manager.promptMessage().toStdString();
        if (answer) {
            manager.setUserInput(*answer);
            manager.submitCredential();
        } else {
            manager.cancelCredential();
        }
        EXPECT_FALSE(manager.isShowingPrompt());
        EXPECT_TRUE(manager.promptMessage().isEmpty());
        EXPECT_TRUE(manager.userInput().isEmpty());
    }

    static std::string finished(std::future<std::string>& result) {
        EXPECT_TRUE(eventually([&] { return result.wait_for(0s) == std::future_status::ready; }));
        return result.get();
    }

    // After the listener has stopped, git's next question races with the removal of the pipes: the
    // script either finds nothing and git fails on its own, or the listener's last act answers it
    // with nothing. Either way git ends without a password and without a question being shown.
    static bool endedWithoutPassword(std::future<std::string>& result) {
        std::string outcome;
        try {
            outcome = finished(result);
        } catch (const std::exception& error) {
            outcome = error.what();
        }
        const bool ended = outcome.find("password=\n") != std::string::npos ||
                           outcome.find("could not read Password") != std::string::npos;
        EXPECT_TRUE(ended) << outcome;
        return ended;
    }

    // The listener removes the prompt pipe on its way out, shortly after stop().
    bool listening() const { return QFileInfo::exists(manager.promptPipePath()); }

    InMemoryUserDefaults defaults;
    test::TempDir work;
    std::string input = work / "request";
    CredentialManager manager;
};

} // namespace

TEST_F(CredentialBridge, PrivateDirectoryPipesAndScript) {
    const QString base = manager.baseDirectory();
    EXPECT_EQ(base, QDir::tempPath() + "/orvel-askpass-" + manager.sessionID());
    EXPECT_EQ(manager.askpassScriptPath(), base + "/orvel-askpass.sh");
    EXPECT_EQ(permissionsOf(base) & 07777, 0700u);
    for (const QString& pipe : {manager.promptPipePath(), manager.responsePipePath()}) {
        EXPECT_TRUE(S_ISFIFO(permissionsOf(pipe))) << pipe.toStdString();
        EXPECT_EQ(permissionsOf(pipe) & 07777, 0600u);
    }
    EXPECT_EQ(permissionsOf(manager.askpassScriptPath()) & 07777, 0700u);
    const std::string script = test::readFile(manager.askpassScriptPath().toStdString());
    EXPECT_EQ(
        script,
        CredentialManager::askpassScript(manager.promptPipePath(), manager.responsePipePath()).toStdString());
    EXPECT_TRUE(
        script.starts_with("#!/bin/bash\n# Orvel askpass helper — communicates with the main app via named "
                           "pipes\nPROMPT=\"$1\"\nPROMPT_PIPE=\"" +
                           manager.promptPipePath().toStdString() + "\"\n"));
    manager.stop();
    EXPECT_TRUE(eventually([&] { return !QFileInfo::exists(base); }));
}

TEST_F(CredentialBridge, ScriptQuotesPathsThatHoldShellCharacters) {
    const QByteArray script = CredentialManager::askpassScript("/t/a \"b\" $(x) `y`/prompt", "/t/r\\s");
    EXPECT_TRUE(script.contains("PROMPT_PIPE=\"/t/a \\\"b\\\" \\$(x) \\`y\\`/prompt\"\n"));
    EXPECT_TRUE(script.contains("RESPONSE_PIPE=\"/t/r\\\\s\"\n"));
}

TEST_F(CredentialBridge, GitReceivesTheUsernameAndPasswordAndNoAnswerIsLogged) {
    test::LogCapture log;
    QSignalSpy shown(&manager, &CredentialManager::isShowingPromptChanged);
    const std::string marker = work / "evaluated";
    const QString password = QString::fromStdString("pw \"q\" $(touch " + marker + ") `x` -n");
    auto result = fill();
    answer("Username for 'https://example.invalid'", "uZer-7781");
    answer("Password for 'https://uZer-7781@example.invalid'", password);
    const std::string output = finished(result);
    EXPECT_NE(output.find("username=uZer-7781\n"), std::string::npos) << output;
    EXPECT_NE(output.find("password=" + password.toStdString() + "\n"), std::string::npos) << output;
    EXPECT_FALSE(std::filesystem::exists(marker)) << "the answer was run by a shell";
    EXPECT_EQ(shown.count(), 4);

    const QString lines = log.text();
    EXPECT_TRUE(lines.contains("listener: credential request received"));
    EXPECT_TRUE(lines.contains("submitCredential: sending response (length=9)"));
    EXPECT_FALSE(lines.contains("uZer-7781")) << lines.toStdString();
    EXPECT_FALSE(lines.contains("pw \"q\"")) << lines.toStdString();
}

TEST_F(CredentialBridge, CancelGivesGitEmptyAnswersAndThreeInARowStopTheListener) {
    auto first = fill();
    answer("Username for", std::nullopt);
    answer("Password for", std::nullopt);
    const std::string output = finished(first);
    EXPECT_NE(output.find("username=\npassword=\n"), std::string::npos) << output;
    EXPECT_TRUE(listening());

    auto second = fill();
    answer("Username for", std::nullopt);
    EXPECT_TRUE(eventually([&] { return !QFileInfo::exists(manager.baseDirectory()); }));
    EXPECT_TRUE(endedWithoutPassword(second));
    EXPECT_FALSE(manager.isShowingPrompt());
}

TEST_F(CredentialBridge, SubmitInBetweenResetsTheCancelCount) {
    for (const bool submit : {false, false, true, false, false}) {
        auto pending = manager.showPromptAndWait("Passphrase for key");
        if (submit)
            manager.submitCredential();
        else
            manager.cancelCredential();
        EXPECT_EQ(test::await(std::move(pending)), QString());
    }
    EXPECT_TRUE(listening());
    auto third = manager.showPromptAndWait("Passphrase for key");
    manager.cancelCredential();
    EXPECT_EQ(test::await(std::move(third)), QString());
    EXPECT_TRUE(eventually([&] { return !listening(); }));
}

TEST_F(CredentialBridge, LaterQuestionEndsTheEarlierWithNothing) {
    auto earlier = manager.showPromptAndWait("first");
    auto later = manager.showPromptAndWait("second");
    EXPECT_TRUE(earlier.isReady());
    EXPECT_EQ(test::await(std::move(earlier)), QString());
    EXPECT_EQ(manager.promptMessage(), "second");
    manager.setUserInput("PIN 1234");
    manager.submitCredential();
    EXPECT_EQ(test::await(std::move(later)), "PIN 1234");
}

TEST_F(CredentialBridge, StopWithAQuestionOpenAnswersItAndLeavesNothingBehind) {
    auto result = fill();
    ASSERT_TRUE(eventually([&] { return manager.isShowingPrompt(); }));
    manager.stop();
    EXPECT_FALSE(manager.isShowingPrompt());
    EXPECT_TRUE(endedWithoutPassword(result));
    // The listener removes the pipes and the directory once it has answered the script.
    EXPECT_TRUE(eventually([&] { return !QFileInfo::exists(manager.baseDirectory()); }));
}
