// Feeds arbitrary bytes to the reader of gpg's key list, which must read or drop them without
// crashing, and give at most one key a "sec" line, each with an id of one field and a positive expiry.
#include "settings/GpgKeyListParser.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

std::size_t countOf(std::string_view text, std::string_view word) {
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1))
        ++count;
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto keys = orvel::parseGpgSecretKeys(text);
    if (keys.size() > countOf(text, "sec:"))
        __builtin_trap();
    for (const auto& key : keys) {
        if (key.keyID.empty() || key.keyID.find_first_of(":\n") != std::string::npos ||
            key.userID.size() > size || (key.expiresAt && *key.expiresAt <= 0))
            __builtin_trap();
    }
    return 0;
}
