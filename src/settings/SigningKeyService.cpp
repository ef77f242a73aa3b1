#include "settings/SigningKeyService.h"

#include "core/process/ChildProcess.h"
#include "core/support/Log.h"
#include "settings/GpgKeyListParser.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLocale>

#include <algorithm>
#include <filesystem>

#include <unistd.h>

namespace orvel {

namespace {

constexpr std::size_t gpgOutputLimit = 4u << 20;

QString fromBytes(const std::string& bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

// The listing of one gpg program, or nothing when it isn't there or doesn't answer cleanly.
std::string listSecretKeys(const std::string& program) {
    if (::access(program.c_str(), X_OK) != 0 || std::filesystem::is_directory(program))
        return {};
    ChildRequest request;
    request.executable = program;
    request.arguments = {"--list-secret-keys", "--keyid-format=long", "--with-colons"};
    request.environment = inheritedEnvironment();
    request.stdoutCapture = StreamCapture::capture(gpgOutputLimit);
    request.stderrCapture = StreamCapture::discarded();
    try {
        ChildOutcome outcome = runChild(request);
        if (outcome.succeeded())
            return std::move(outcome.out);
        qCDebug(lcApp, "op=settings.signing.gpg exit=%d", outcome.code);
    } catch (const std::exception& error) {
        qCDebug(lcApp, "op=settings.signing.gpg reason=%s", redactForLog(error.what()).c_str());
    }
    return {};
}

} // namespace

QString SigningKeyService::defaultSshFolder() {
    return QDir::homePath() + QStringLiteral("/.ssh");
}

SigningKeyService::SigningKeyService(std::vector<std::string> gpgPrograms, QString sshFolder)
    : gpgPrograms_(std::move(gpgPrograms)), sshFolder_(std::move(sshFolder)) {}

std::vector<SigningKeyEntry> SigningKeyService::detectGPGKeys() const {
    for (const std::string& program : gpgPrograms_) {
        const std::vector<GpgSecretKey> keys = parseGpgSecretKeys(listSecretKeys(program));
        if (keys.empty())
            continue;
        std::vector<SigningKeyEntry> entries;
        entries.reserve(keys.size());
        for (const GpgSecretKey& key : keys) {
            const QString id = fromBytes(key.keyID);
            std::optional<QString> expires;
            if (key.expiresAt)
                expires = formatKeyExpiry(*key.expiresAt);
            entries.push_back({id, fromBytes(key.userID), id, SigningFormat::gpg, expires});
        }
        return entries;
    }
    return {};
}

std::vector<SigningKeyEntry> SigningKeyService::detectSSHKeys() const {
    const std::filesystem::path folder(QFile::encodeName(sshFolder_).toStdString());
    std::vector<std::filesystem::path> publicKeys;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (name.size() > 4 && name.ends_with(".pub") && !entry.is_directory())
            publicKeys.push_back(entry.path());
    }
    std::ranges::sort(publicKeys);
    std::vector<SigningKeyEntry> entries;
    entries.reserve(publicKeys.size());
    for (const auto& path : publicKeys) {
        const QString full = QFile::decodeName(QByteArray::fromStdString(path.string()));
        const QString name = QFile::decodeName(QByteArray::fromStdString(path.filename().string()));
        entries.push_back({full, name.chopped(4), full, SigningFormat::ssh, std::nullopt});
    }
    return entries;
}

QString formatKeyExpiry(std::int64_t secondsSinceEpoch) {
    const QLocale locale;
    QString format = locale.dateFormat(QLocale::ShortFormat);
    // Short formats give the year in two digits; an expiry reads better with all four.
    if (!format.contains(QStringLiteral("yyyy")))
        format.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
    return locale.toString(QDateTime::fromSecsSinceEpoch(secondsSinceEpoch).date(), format);
}

} // namespace orvel
