// The signing tab over its model on real gpg and git: empty lists say where keys come from, the keys
// found fill the pickers, the format shows its own rows, a picked key and the toggle reach the status
// line and, through Apply, git's configuration; the mismatch alert updates git's address.
#include "SigningOnRealTools.h"

#include "settings/LocalizationManager.h"
#include "settings/ThemeEngine.h"
#include "settings/ui/IdentityMismatchAlert.h"
#include "settings/ui/SigningSettingsTab.h"
#include "support/Eventually.h"
#include "support/Screenshot.h"
#include "widgets/TokenPalette.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

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

} // namespace
