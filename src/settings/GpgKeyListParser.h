// Reads the secret keys that gpg lists in its machine-readable form ("--with-colons"): one record a
// line, its fields split at ":". A "sec" line begins a key and the first "uid" line after it names
// the key. Never fails: a line or a key it can't use is dropped.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

struct GpgSecretKey {
    std::string keyID;                     // the long key id, as "user.signingkey" takes it
    std::string userID;                    // "Name (comment) <e-mail>", with gpg's "\xHH" escapes decoded
    std::optional<std::int64_t> expiresAt; // seconds since the Unix epoch; none when it never expires

    bool operator==(const GpgSecretKey&) const = default;
};

std::vector<GpgSecretKey> parseGpgSecretKeys(std::string_view text);

} // namespace orvel
