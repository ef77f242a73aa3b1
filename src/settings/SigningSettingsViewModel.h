// The signing page of the settings: whether git signs commits and tags, in which format and with
// which key. It signs nothing itself; Apply writes git's global configuration, so that git signs
// when it commits. The keys found on the machine are offered, and after Apply the identity check
// tells when the key's e-mail address is not git's.
#pragma once

#include "core/support/LoadGeneration.h"
#include "settings/IdentityMismatch.h"
#include "settings/SettingsPage.h"
#include "settings/SigningKeyEntry.h"

#include <QObject>
#include <QString>

#include <QCoro/QCoroTask>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace orvel {

class GitExecutorProtocol;
class SigningKeyService;
class UserDefaults;

class SigningSettingsViewModel final : public QObject, public SettingsPage {
    Q_OBJECT

  public:
    struct Snapshot {
        SigningFormat selectedFormat = SigningFormat::gpg;
        QString gpgProgram;
        QString gpgSigningKey;
        QString sshSigningKey;
        QString sshAllowedSigners;
        bool signCommits = false;
        bool signTags = false;

        bool operator==(const Snapshot&) const = default;
    };

    SigningSettingsViewModel(std::shared_ptr<GitExecutorProtocol> git,
                             std::shared_ptr<const SigningKeyService> keyService, UserDefaults& defaults,
                             QObject* parent = nullptr);

    // What the form shows; `original` is what was last loaded or applied.
    const Snapshot& fields() const { return fields_; }
    const Snapshot& original() const { return original_; }
    bool hasChanges() const { return fields_ != original_; }
    // The key of the selected format, as the form holds it.
    const QString& selectedKey() const;

    void setSelectedFormat(SigningFormat format);
    void setGpgProgram(const QString& path);
    void setGpgSigningKey(const QString& keyID);
    void setSshSigningKey(const QString& path);
    void setSshAllowedSigners(const QString& path);
    void setSignCommits(bool on);
    void setSignTags(bool on);

    const std::vector<SigningKeyEntry>& availableGPGKeys() const { return availableGPGKeys_; }
    const std::vector<SigningKeyEntry>& availableSSHKeys() const { return availableSSHKeys_; }
    // From a load until both look-ups have answered.
    bool isDetectingKeys() const { return isDetectingKeys_; }
    // "Signing: Off", or the format and the selected key's label (its id or path when it isn't listed).
    QString statusText() const;

    // Reads the configuration into the form; the keys of both formats are looked for beside it and
    // come later, with keysChanged.
    QCoro::Task<void> load() override;
    // Writes the form to git's configuration when it differs from what was loaded; a failed step
    // ends it, leaving what was written in place and `original` as it was.
    QCoro::Task<void> apply() override;
    void revert() override;
    QString errorMessage() const override { return errorMessage_.value_or(QString()); }

    // With commit signing on and the selected key listed, the key's address against git's global
    // user.email; none when either is missing or they are the same.
    QCoro::Task<std::optional<IdentityMismatch>> checkIdentityMismatch();
    // Makes `keyEmail` git's global user.email; answers whether it was written.
    QCoro::Task<bool> syncIdentity(QString keyEmail);

  signals:
    // A field of the form or `original` changed.
    void formChanged();
    // The lists of keys or isDetectingKeys changed.
    void keysChanged();
    void errorChanged();

  private:
    void edit(const std::function<void(Snapshot&)>& change);
    void fail(const char* operation, const std::exception& error);
    const std::vector<SigningKeyEntry>& keysOf(SigningFormat format) const;
    QCoro::Task<void> detectKeys(LoadTicket ticket);

    std::shared_ptr<GitExecutorProtocol> git_;
    std::shared_ptr<const SigningKeyService> keyService_;
    UserDefaults& defaults_;
    Snapshot fields_;
    Snapshot original_;
    std::optional<QString> errorMessage_;
    std::vector<SigningKeyEntry> availableGPGKeys_;
    std::vector<SigningKeyEntry> availableSSHKeys_;
    bool isDetectingKeys_ = false;
    LoadGeneration loads_;
};

} // namespace orvel
