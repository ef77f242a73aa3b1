// Signing with a key whose e-mail address isn't git's user.email gives commits that a forge shows
// as unverified; the signing settings warn of it after Apply.
#pragma once

#include <QString>

#include <optional>

namespace orvel {

struct IdentityMismatch {
    QString currentEmail; // git's global user.email
    QString keyEmail;     // the address in the signing key's user id

    bool operator==(const IdentityMismatch&) const = default;
};

// The address of a key's label "Name (comment) <e-mail>": what stands between the first "<" and the
// first ">" after it, without the spaces around it. None without both brackets, as for an SSH key,
// whose label is a file name.
std::optional<QString> emailInKeyLabel(const QString& label);

} // namespace orvel
