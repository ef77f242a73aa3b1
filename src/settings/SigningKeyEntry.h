// A key that git can sign with, as the signing settings list it, and the two kinds of signing.
#pragma once

#include <QString>

#include <optional>

namespace orvel {

enum class SigningFormat { gpg, ssh };

// What git's "gpg.format" holds for the format.
inline QString rawValue(SigningFormat format) {
    return format == SigningFormat::ssh ? QStringLiteral("ssh") : QStringLiteral("openpgp");
}

// "gpg.format" as git's configuration holds it: "ssh" is SSH, anything else (absent included) GPG.
inline SigningFormat signingFormatFromConfig(const QString& value) {
    return value == QStringLiteral("ssh") ? SigningFormat::ssh : SigningFormat::gpg;
}

struct SigningKeyEntry {
    QString id;
    QString label;
    QString keyID; // what "user.signingkey" takes: a GPG key id, or the path of an SSH public key
    SigningFormat type = SigningFormat::gpg;
    std::optional<QString> expires; // the expiry date as text

    bool operator==(const SigningKeyEntry&) const = default;
};

} // namespace orvel
