// The signing tab over its model on real gpg and git: empty lists say where keys come from, the keys
// found fill the pickers, the format shows its own rows, a picked key and the toggle reach the status
// line and, through Apply, git's configuration; the mismatch alert updates git's address. The
// program's settings window asks about a mismatch after Apply, and may close while it reads git's address.
#include "SigningOnRealTools.h"

#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitConfigService.h"
#include "core/service/NativeGitService.h"
#include "settings/LocalizationManager.h"
#include "settings/SettingsPageModels.h"
#include "settings/ThemeEngine.h"
#include "settings/ui/IdentityMismatchAlert.h"
#include "settings/ui/SigningSettingsTab.h"
#include "support/Eventually.h"
#include "support/Screenshot.h"
#include "widgets/TokenPalette.h"
#include "workspace/AppViewModel.h"
#include "workspace/ui/MainWindow.h"
#include "workspace/ui/SettingsDialog.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <condition_variable>
#include <mutex>

using namespace orvel;
using namespace orvel::test;

namespace {

template <typename Widget>
Widget* child(QWidget& parent, const char* name) {
    auto* found = parent.findChild<Widget*>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

class SigningSettingsTabTest : public SigningOnRealTools {};

// Real git whose reads of the global user.email wait until the test lets one through, as a git slow
// to answer does.
class HeldEmailReads final : public GitExecutorProtocol {
  public:
    explicit HeldEmailReads(std::shared_ptr<GitExecutorProtocol> git) : git_(std::move(git)) {}

    std::string execute(const Arguments& arguments, const std::string& repoPath) override {
        if (arguments == Arguments{"config", "--global", "user.email"}) {
            std::unique_lock lock(mutex_);
            ++waiting_;
            let_.wait(lock, [this] { return allowed_ > 0; });
            --allowed_;
            --waiting_;
        }
        return git_->execute(arguments, repoPath);
    }
    std::string executeWithEnvironment(const Arguments& arguments, const std::string& repoPath,
                                       const Environment& environment) override {
        return git_->executeWithEnvironment(arguments, repoPath, environment);
    }
    std::string resolvedGitPath() override { return git_->resolvedGitPath(); }
    std::string gitVersion() override { return git_->gitVersion(); }
    void setGitPathOverride(const std::optional<std::string>& path) override {
        git_->setGitPathOverride(path);
    }

    bool isWaiting() {
        std::lock_guard lock(mutex_);
        return waiting_ > 0;
    }
    void letOneThrough() {
        std::lock_guard lock(mutex_);
        ++allowed_;
        let_.notify_all();
    }

  private:
    std::shared_ptr<GitExecutorProtocol> git_;
    std::mutex mutex_;
    std::condition_variable let_;
    int waiting_ = 0;
    int allowed_ = 0;
};

TEST_F(SigningSettingsTabTest,
       ShowsTheKeysFoundAndTheRowsOfTheFormatAndApplyWritesThemThenTheAlertSyncsTheEmail) {
    if (gpg.empty())
        GTEST_SKIP() << "gpg is not installed";
    auto model = loadedModel();
    QWidget window;
    auto* tab = new SigningSettingsTab(*model, &window);
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(tab);
    window.show();

    // Before there are keys the pickers say where they come from, and a typed key id is taken.
    auto* gpgKey = child<QComboBox>(*tab, "settings.signing.gpg-key-picker");
    EXPECT_EQ(gpgKey->count(), 0);
    EXPECT_EQ(gpgKey->lineEdit()->placeholderText(),
              QStringLiteral("No GPG keys found. Install gpg and create a key."));
    EXPECT_EQ(child<QComboBox>(*tab, "settings.signing.ssh-key-picker")->lineEdit()->placeholderText(),
              QStringLiteral("No SSH keys found in ~/.ssh/"));
    saveScreenshot(window, QStringLiteral("settings-signing-no-keys"), QSize(720, 300));
    QTest::keyClicks(gpgKey->lineEdit(), "0123456789ABCDEF");
    EXPECT_EQ(model->fields().gpgSigningKey, QStringLiteral("0123456789ABCDEF"));
    EXPECT_EQ(gpgKey->currentText(), QStringLiteral("0123456789ABCDEF"));

    const QString keyID =
        QString::fromStdString(makeGpgKey("Signer Name <signer@orvel.invalid>", "2030-01-01"));
    makeSshKey("id_ed25519");
    await(model->load());
    ASSERT_TRUE(eventually([&] { return !model->isDetectingKeys(); }));
    auto* format = child<QComboBox>(*tab, "settings.signing.format-picker");
    auto* sshKey = child<QComboBox>(*tab, "settings.signing.ssh-key-picker");
    auto* status = child<QLabel>(*tab, "settings.signing.status-text");
    ASSERT_EQ(gpgKey->count(), 2);
    EXPECT_EQ(gpgKey->itemText(0), QStringLiteral("None"));
    EXPECT_TRUE(gpgKey->itemText(1).startsWith(QStringLiteral("Signer Name <signer@orvel.invalid>")));
    EXPECT_TRUE(gpgKey->itemText(1).contains(QStringLiteral("Expires: ")));
    EXPECT_TRUE(gpgKey->isVisible());
    EXPECT_FALSE(sshKey->isVisible());
    EXPECT_EQ(status->text(), QStringLiteral("Signing: Off"));

    child<QCheckBox>(*tab, "settings.signing.sign-commits-toggle")->click();
    EXPECT_EQ(status->text(), QStringLiteral("GPG: No key"));
    gpgKey->setCurrentIndex(1);
    emit gpgKey->activated(1);
    EXPECT_EQ(model->fields().gpgSigningKey, keyID);
    EXPECT_EQ(status->text(), QStringLiteral("GPG: Signer Name <signer@orvel.invalid>"));
    QTest::keyClicks(child<QLineEdit>(*tab, "settings.path-row.text.GPG Program"), "/usr/bin/gpg");
    EXPECT_EQ(model->fields().gpgProgram, QStringLiteral("/usr/bin/gpg"));
    const QPalette light = QApplication::palette();
    saveScreenshot(window, QStringLiteral("settings-signing-gpg-light"), QSize(720, 360));
    QApplication::setPalette(tokenPalette(ThemeEngine::shared().tokens(ColorScheme::dark)));
    QCoreApplication::processEvents();
    saveScreenshot(window, QStringLiteral("settings-signing-gpg-dark"), QSize(720, 360));
    QApplication::setPalette(light);
    QCoreApplication::processEvents();

    format->setCurrentIndex(1);
    emit format->activated(1);
    EXPECT_FALSE(gpgKey->isVisible());
    EXPECT_TRUE(sshKey->isVisible());
    EXPECT_TRUE(child<QWidget>(*tab, "settings.signing.ssh-allowed-signers-row")->isVisible());
    EXPECT_EQ(status->text(), QStringLiteral("SSH: No key"));
    sshKey->setCurrentIndex(0);
    emit sshKey->activated(0);
    EXPECT_EQ(status->text(), QStringLiteral("SSH: id_ed25519"));
    saveScreenshot(window, QStringLiteral("settings-signing-ssh-light"), QSize(720, 360));
    format->setCurrentIndex(0);
    emit format->activated(0);

    await(model->apply());
    EXPECT_EQ(stored("user.signingkey"), keyID.toStdString());
    EXPECT_EQ(stored("gpg.program"), "/usr/bin/gpg");
    const std::optional<IdentityMismatch> mismatch = await(model->checkIdentityMismatch());
    ASSERT_TRUE(mismatch);
    bool updated = false;
    QMessageBox* alert = showIdentityMismatchAlert(&window, *model, *mismatch, [&] { updated = true; });
    EXPECT_EQ(alert->text(), QStringLiteral("Signing Identity Mismatch"));
    EXPECT_TRUE(alert->informativeText().startsWith(
        QStringLiteral("Your git email (test@orvel.invalid) does not match the signing key email "
                       "(signer@orvel.invalid).")));
    saveScreenshot(*alert, QStringLiteral("settings-signing-mismatch-alert"), alert->sizeHint());
    for (QAbstractButton* button : alert->buttons()) {
        if (button->text() == QStringLiteral("Update Email"))
            button->click();
    }
    ASSERT_TRUE(eventually([&] { return updated; }));
    EXPECT_EQ(stored("user.email"), "signer@orvel.invalid");

    LocalizationManager::shared().switchLanguage("zh-Hans", defaults);
    EXPECT_TRUE(eventually(
        [&] { return status->text() == QStringLiteral("GPG：Signer Name <signer@orvel.invalid>"); }));
    saveScreenshot(window, QStringLiteral("settings-signing-gpg-zh-Hans"), QSize(720, 300));
    LocalizationManager::shared().switchLanguage("en", defaults);
}

TEST_F(SigningSettingsTabTest,
       TheWindowAsksAboutAKeyOfAnotherAddressAfterApplyAndMayCloseWhileItReadsGitsAddress) {
    if (gpg.empty())
        GTEST_SKIP() << "gpg is not installed";
    const QString keyID = QString::fromStdString(makeGpgKey("Signer Name <signer@orvel.invalid>", "never"));
    auto held = std::make_shared<HeldEmailReads>(executor);
    SettingsPageModels pages(held, std::make_shared<NativeGitConfigService>(executor), defaults);
    // Each read's job holds the executor until it has handed its answer to this thread.
    const long owners = held.use_count();
    AppViewModel app(std::make_shared<NativeGitService>(executor, std::make_shared<GitOpRunner>(1)),
                     defaults);
    auto window = std::make_unique<MainWindow>(app, defaults);
    window->setSettingsPages(pages);
    // The window loads its pages when it opens: the form is edited once the signing page has loaded.
    QSignalSpy loaded(&pages.signing, &SigningSettingsViewModel::formChanged);
    window->findChild<QAction*>("menu.settings")->trigger();
    const QPointer<SettingsDialog> dialog = window->findChild<SettingsDialog*>();
    ASSERT_TRUE(eventually([&] { return !loaded.isEmpty() && !pages.signing.availableGPGKeys().empty(); }));
    pages.signing.setGpgSigningKey(keyID);
    pages.signing.setSignCommits(true);

    auto* apply = dialog->findChild<QPushButton*>("settings.apply");
    apply->click();
    ASSERT_TRUE(eventually([&] { return held->isWaiting(); }));
    held->letOneThrough();
    ASSERT_TRUE(eventually([&] {
        auto* alert = dialog->findChild<QMessageBox*>();
        return alert && alert->isVisible();
    }));
    EXPECT_TRUE(dialog->isVisible());

    // The window goes while git's address is read again: the answer finds nothing to ask over.
    apply->click();
    ASSERT_TRUE(eventually([&] { return held->isWaiting(); }));
    window.reset();
    EXPECT_FALSE(dialog);
    held->letOneThrough();
    ASSERT_TRUE(eventually([&] { return held.use_count() == owners; }));
    QCoreApplication::processEvents();
}

} // namespace
