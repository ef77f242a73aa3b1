// git's own `git credential fill` asks through the askpass bridge, and the answers are typed into
// the dialog: the username in plain sight, the password hidden; git receives both.
#include "workspace/ui/CredentialDialog.h"

#include "RemoteFixture.h"
#include "support/Screenshot.h"
#include "workspace/CredentialManager.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <future>

using namespace orvel;
using namespace std::chrono_literals;

TEST(CredentialDialog, AnswersGitsQuestionsAndHidesThePassword) {
    test::TempDir work;
    test::writeFile(work / "request", "protocol=https\nhost=example.invalid\n\n");
    InMemoryUserDefaults defaults;
    CredentialManager manager;
    manager.start();
    QWidget window;
    window.resize(640, 400);
    window.show();
    CredentialDialog dialog(manager, &window);
    auto executor = std::make_shared<SubprocessExecutor>(manager.askpassScriptPath().toStdString(), defaults);
    // The executor gives children no stdin: a shell alias hands git the request.
    const std::string alias = "alias.askfill=!git credential fill <'" + (work / "request") + "'";
    auto filled = std::async(std::launch::async, [executor, alias, directory = work.path()] {
        return executor->execute({"-c", "credential.helper=", "-c", alias, "askfill"}, directory);
    });

    auto& input = *dialog.findChild<QLineEdit*>("credential.input");
    const std::pair<const char*, const char*> questions[] = {{"Username for", "octo cat"},
                                                             {"Password for", "s3cret $(x)"}};
    for (const auto& [asked, answer] : questions) {
        const QString question = QString::fromLatin1(asked);
        ASSERT_TRUE(test::eventually([&] {
            return dialog.isVisible() &&
                   dialog.findChild<QLabel*>("credential.message")->text().startsWith(question);
        }));
        const bool secret = question.startsWith("Password");
        EXPECT_EQ(input.echoMode(), secret ? QLineEdit::Password : QLineEdit::Normal);
        EXPECT_EQ(dialog.windowModality(), Qt::WindowModal);
        QTest::keyClicks(&input, answer);
        if (secret)
            test::saveScreenshot(dialog, "credential-dialog", QSize(460, 150));
        QTest::keyClick(&input, Qt::Key_Return);
        EXPECT_TRUE(input.text().isEmpty());
    }
    ASSERT_TRUE(test::eventually([&] { return filled.wait_for(0s) == std::future_status::ready; }));
    const std::string output = filled.get();
    EXPECT_NE(output.find("username=octo cat\npassword=s3cret $(x)\n"), std::string::npos) << output;
    EXPECT_FALSE(dialog.isVisible());
    manager.stop();
}

TEST(CredentialDialog, SecretQuestionsAreFoundInsideWordsToo) {
    const std::pair<const char*, bool> cases[] = {
        {"Password for 'https://x@host'", true}, {"Enter passphrase for key '/k/id_ed25519':", true},
        {"Enter PIN for token", true},           {"Spinning up", true},
        {"Username for 'https://host'", false},  {"Are you sure you want to continue connecting?", false}};
    for (const auto& [question, secret] : cases)
        EXPECT_EQ(CredentialDialog::asksForSecret(question), secret) << question;
}
