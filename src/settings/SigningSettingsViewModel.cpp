#include "settings/SigningSettingsViewModel.h"

#include "core/queue/BackgroundWork.h"
#include "core/service/GitServiceError.h"
#include "core/support/Log.h"
#include "core/support/UserDefaults.h"
#include "settings/GlobalGitConfig.h"
#include "settings/LocalizationManager.h"
#include "settings/SigningKeyService.h"

#include <QPointer>

#include <algorithm>
#include <array>
#include <string_view>

namespace orvel {

namespace {

// git has one "user.signingkey"; the key of the format that isn't in force waits here.
const QString gpgKeyDefault = QStringLiteral("gpgSigningKey");
const QString sshKeyDefault = QStringLiteral("sshSigningKey");

// The keys the load reads, in its order.
constexpr std::array<std::string_view, 6> loadedKeys = {"gpg.format",      "gpg.program",
                                                        "commit.gpgsign",  "tag.gpgsign",
                                                        "user.signingkey", "gpg.ssh.allowedSignersFile"};

struct ConfigRead {
    std::optional<std::string> value;
    std::optional<std::string> failure; // git could not be asked at all
};

std::vector<ConfigRead> readLoadedKeys(GitExecutorProtocol& git) {
    std::vector<ConfigRead> reads;
    for (std::string_view key : loadedKeys) {
        try {
            reads.push_back({readGlobalConfig(git, key), std::nullopt});
        } catch (const std::exception& error) {
            reads.push_back({std::nullopt, std::string(error.what())});
        }
    }
    return reads;
}

// One write of Apply: a value, or none to erase the key. git fails to erase a key that isn't set,
// so a refused erase is no failure; a git that can't run still is.
struct ConfigEdit {
    std::string_view key;
    std::optional<std::string> value;
};

void applyEdits(GitExecutorProtocol& git, const std::vector<ConfigEdit>& edits) {
    for (const ConfigEdit& edit : edits) {
        if (edit.value) {
            writeGlobalConfig(git, edit.key, *edit.value);
            continue;
        }
        try {
            eraseGlobalConfig(git, edit.key);
        } catch (const GitServiceError&) {
        }
    }
}

QCoro::Task<void> applyInBackground(std::shared_ptr<GitExecutorProtocol> git, std::vector<ConfigEdit> edits) {
    return runOnPool(backgroundPool(),
                     [git = std::move(git), edits = std::move(edits)] { applyEdits(*git, edits); });
}

std::optional<std::string> valueOrErase(const QString& text) {
    if (text.isEmpty())
        return std::nullopt;
    return text.toStdString();
}

std::string booleanValue(bool on) {
    return on ? "true" : "false";
}

QString decoded(const std::optional<std::string>& value) {
    return value ? QString::fromStdString(*value) : QString();
}

SigningSettingsViewModel::Snapshot trimmedFields(SigningSettingsViewModel::Snapshot fields) {
    for (QString* text :
         {&fields.gpgProgram, &fields.gpgSigningKey, &fields.sshSigningKey, &fields.sshAllowedSigners})
        *text = text->trimmed();
    return fields;
}

void logToggle(bool was, bool now, SigningFormat format, const char* scope) {
    if (was == now)
        return;
    if (now)
        qCDebug(lcApp, "op=settings.signing.enabled format=%s scope=%s", qPrintable(rawValue(format)), scope);
    else
        qCDebug(lcApp, "op=settings.signing.disabled scope=%s", scope);
}

} // namespace

SigningSettingsViewModel::SigningSettingsViewModel(std::shared_ptr<GitExecutorProtocol> git,
                                                   std::shared_ptr<const SigningKeyService> keyService,
                                                   UserDefaults& defaults, QObject* parent)
    : QObject(parent), git_(std::move(git)), keyService_(std::move(keyService)), defaults_(defaults) {}

const QString& SigningSettingsViewModel::selectedKey() const {
    return fields_.selectedFormat == SigningFormat::ssh ? fields_.sshSigningKey : fields_.gpgSigningKey;
}

const std::vector<SigningKeyEntry>& SigningSettingsViewModel::keysOf(SigningFormat format) const {
    return format == SigningFormat::ssh ? availableSSHKeys_ : availableGPGKeys_;
}

void SigningSettingsViewModel::edit(const std::function<void(Snapshot&)>& change) {
    Snapshot changed = fields_;
    change(changed);
    if (changed == fields_)
        return;
    fields_ = std::move(changed);
    emit formChanged();
}

void SigningSettingsViewModel::setSelectedFormat(SigningFormat format) {
    edit([&](Snapshot& s) { s.selectedFormat = format; });
}
void SigningSettingsViewModel::setGpgProgram(const QString& path) {
    edit([&](Snapshot& s) { s.gpgProgram = path; });
}
void SigningSettingsViewModel::setGpgSigningKey(const QString& keyID) {
    edit([&](Snapshot& s) { s.gpgSigningKey = keyID; });
}
void SigningSettingsViewModel::setSshSigningKey(const QString& path) {
    edit([&](Snapshot& s) { s.sshSigningKey = path; });
}
void SigningSettingsViewModel::setSshAllowedSigners(const QString& path) {
    edit([&](Snapshot& s) { s.sshAllowedSigners = path; });
}
void SigningSettingsViewModel::setSignCommits(bool on) {
    edit([&](Snapshot& s) { s.signCommits = on; });
}
void SigningSettingsViewModel::setSignTags(bool on) {
    edit([&](Snapshot& s) { s.signTags = on; });
}

QString SigningSettingsViewModel::statusText() const {
    if (!fields_.signCommits)
        return localized("Signing: Off");
    const bool ssh = fields_.selectedFormat == SigningFormat::ssh;
    const QString key = selectedKey().trimmed();
    if (key.isEmpty())
        return ssh ? localized("SSH: No key") : localized("GPG: No key");
    const auto& keys = keysOf(fields_.selectedFormat);
    const auto listed = std::ranges::find(keys, key, &SigningKeyEntry::keyID);
    const QString shown = listed == keys.end() ? key : listed->label;
    return ssh ? localized("SSH: %1", shown) : localized("GPG: %1", shown);
}

void SigningSettingsViewModel::fail(const char* operation, const std::exception& error) {
    qCDebug(lcApp, "op=settings.signing.%s reason=%s", operation, redactForLog(error.what()).c_str());
    errorMessage_ = QString::fromUtf8(error.what());
    emit errorChanged();
}

QCoro::Task<void> SigningSettingsViewModel::load() {
    qCDebug(lcApp, "op=settings.signing.load");
    auto ticket = loads_.begin(this);
    // The keys come on their own: gpg may wait long for its agent or a lock, and the form must not.
    detectKeys(ticket);
    auto reading = runOnPool(backgroundPool(), [git = git_] { return readLoadedKeys(*git); });
    const std::vector<ConfigRead> reads = co_await std::move(reading);
    if (!ticket.isCurrent())
        co_return;
    for (const ConfigRead& read : reads) {
        if (read.failure)
            qCDebug(lcApp, "op=settings.signing.load reason=%s", redactForLog(*read.failure).c_str());
    }
    Snapshot loaded;
    loaded.selectedFormat = signingFormatFromConfig(decoded(reads[0].value));
    loaded.gpgProgram = decoded(reads[1].value);
    loaded.signCommits = reads[2].value == "true";
    loaded.signTags = reads[3].value == "true";
    const QString signingKey = decoded(reads[4].value);
    const bool ssh = loaded.selectedFormat == SigningFormat::ssh;
    (ssh ? loaded.sshSigningKey : loaded.gpgSigningKey) = signingKey;
    (ssh ? loaded.gpgSigningKey : loaded.sshSigningKey) =
        defaults_.string(ssh ? gpgKeyDefault : sshKeyDefault);
    defaults_.setValue(ssh ? sshKeyDefault : gpgKeyDefault, signingKey);
    loaded.sshAllowedSigners = decoded(reads[5].value);
    fields_ = loaded;
    original_ = loaded;
    const bool hadError = errorMessage_.has_value();
    errorMessage_.reset();
    emit formChanged();
    if (hadError)
        emit errorChanged();
}

QCoro::Task<void> SigningSettingsViewModel::detectKeys(LoadTicket ticket) {
    isDetectingKeys_ = true;
    emit keysChanged();
    auto keyService = keyService_;
    auto gpgKeys = runOnPool(backgroundPool(), [keyService] { return keyService->detectGPGKeys(); });
    auto sshKeys = runOnPool(backgroundPool(), [keyService] { return keyService->detectSSHKeys(); });
    std::vector<SigningKeyEntry> gpg;
    std::vector<SigningKeyEntry> ssh;
    try {
        gpg = co_await std::move(gpgKeys);
    } catch (const std::exception& error) {
        qCDebug(lcApp, "op=settings.signing.key.detected format=gpg reason=%s",
                redactForLog(error.what()).c_str());
    }
    try {
        ssh = co_await std::move(sshKeys);
    } catch (const std::exception& error) {
        qCDebug(lcApp, "op=settings.signing.key.detected format=ssh reason=%s",
                redactForLog(error.what()).c_str());
    }
    if (!ticket.isCurrent())
        co_return;
    qCDebug(lcApp, "op=settings.signing.key.detected format=gpg found=%d count=%ld", !gpg.empty(),
            static_cast<long>(gpg.size()));
    qCDebug(lcApp, "op=settings.signing.key.detected format=ssh found=%d count=%ld", !ssh.empty(),
            static_cast<long>(ssh.size()));
    availableGPGKeys_ = std::move(gpg);
    availableSSHKeys_ = std::move(ssh);
    isDetectingKeys_ = false;
    emit keysChanged();
}

QCoro::Task<void> SigningSettingsViewModel::apply() {
    if (errorMessage_) {
        errorMessage_.reset();
        emit errorChanged();
    }
    if (!hasChanges())
        co_return;
    QPointer<SigningSettingsViewModel> self(this);
    const Snapshot edited = fields_;
    const Snapshot applied = trimmedFields(edited);
    const bool ssh = applied.selectedFormat == SigningFormat::ssh;
    // Each write of git's configuration: a failure becomes the error, and the apply stops there.
    // Answers whether it was written and the model still lives.
    const auto written = [self, git = git_](std::vector<ConfigEdit> edits) -> QCoro::Task<bool> {
        try {
            co_await applyInBackground(git, std::move(edits));
        } catch (const std::exception& error) {
            if (self)
                self->fail("apply", error);
            co_return false;
        }
        co_return !self.isNull();
    };
    if (!co_await written({{"gpg.format", rawValue(applied.selectedFormat).toStdString()},
                           {"user.signingkey", valueOrErase(ssh ? applied.sshSigningKey : applied.gpgSigningKey)}}))
        co_return;
    defaults_.setValue(gpgKeyDefault, applied.gpgSigningKey);
    defaults_.setValue(sshKeyDefault, applied.sshSigningKey);
    if (!co_await written({{"gpg.program", valueOrErase(applied.gpgProgram)},
                           {"gpg.ssh.allowedSignersFile", valueOrErase(applied.sshAllowedSigners)},
                           {"commit.gpgsign", booleanValue(applied.signCommits)},
                           {"tag.gpgsign", booleanValue(applied.signTags)}}))
        co_return;
    logToggle(original_.signCommits, applied.signCommits, applied.selectedFormat, "commit");
    logToggle(original_.signTags, applied.signTags, applied.selectedFormat, "tag");
    original_ = applied;
    // What the user typed meanwhile stays; otherwise the form shows what was stored.
    if (fields_ == edited)
        fields_ = applied;
    emit formChanged();
}

void SigningSettingsViewModel::revert() {
    const bool changed = fields_ != original_;
    fields_ = original_;
    if (changed)
        emit formChanged();
    if (errorMessage_) {
        errorMessage_.reset();
        emit errorChanged();
    }
}

QCoro::Task<std::optional<IdentityMismatch>> SigningSettingsViewModel::checkIdentityMismatch() {
    if (!fields_.signCommits)
        co_return std::nullopt;
    const auto& keys = keysOf(fields_.selectedFormat);
    const auto listed = std::ranges::find(keys, selectedKey().trimmed(), &SigningKeyEntry::keyID);
    if (listed == keys.end())
        co_return std::nullopt;
    const std::optional<QString> keyEmail = emailInKeyLabel(listed->label);
    if (!keyEmail || keyEmail->isEmpty())
        co_return std::nullopt;
    std::optional<std::string> currentEmail;
    try {
        auto reading =
            runOnPool(backgroundPool(), [git = git_] { return readGlobalConfig(*git, "user.email"); });
        currentEmail = co_await std::move(reading);
    } catch (const std::exception& error) {
        qCDebug(lcApp, "op=settings.signing.identity reason=%s", redactForLog(error.what()).c_str());
    }
    const QString current = decoded(currentEmail);
    if (current.isEmpty() || current == *keyEmail)
        co_return std::nullopt;
    co_return IdentityMismatch{current, *keyEmail};
}

QCoro::Task<bool> SigningSettingsViewModel::syncIdentity(QString keyEmail) {
    QPointer<SigningSettingsViewModel> self(this);
    try {
        auto writing = runOnPool(backgroundPool(), [git = git_, email = keyEmail.toStdString()] {
            writeGlobalConfig(*git, "user.email", email);
        });
        co_await std::move(writing);
    } catch (const std::exception& error) {
        if (self)
            fail("syncIdentity", error);
        co_return false;
    }
    co_return true;
}

} // namespace orvel
