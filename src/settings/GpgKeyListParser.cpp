#include "settings/GpgKeyListParser.h"

#include <charconv>

namespace orvel {

namespace {

constexpr std::size_t minimumFields = 10;

std::vector<std::string_view> fieldsOf(std::string_view line) {
    std::vector<std::string_view> fields;
    std::size_t start = 0;
    for (std::size_t colon = line.find(':'); colon != std::string_view::npos; colon = line.find(':', start)) {
        fields.push_back(line.substr(start, colon - start));
        start = colon + 1;
    }
    fields.push_back(line.substr(start));
    return fields;
}

int hexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// gpg writes a colon, a backslash and control characters of a user id as "\xHH".
std::string unescaped(std::string_view field) {
    std::string text;
    text.reserve(field.size());
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size() && field[i + 1] == 'x') {
            const int high = hexValue(field[i + 2]);
            const int low = hexValue(field[i + 3]);
            if (high >= 0 && low >= 0) {
                text.push_back(static_cast<char>(high * 16 + low));
                i += 3;
                continue;
            }
        }
        text.push_back(field[i]);
    }
    return text;
}

std::optional<std::int64_t> expiryOf(std::string_view field) {
    std::int64_t seconds = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), seconds);
    if (field.empty() || error != std::errc() || end != field.data() + field.size() || seconds <= 0)
        return std::nullopt;
    return seconds;
}

} // namespace

std::vector<GpgSecretKey> parseGpgSecretKeys(std::string_view text) {
    std::vector<GpgSecretKey> keys;
    std::optional<GpgSecretKey> pending;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos)
            end = text.size();
        const std::vector<std::string_view> fields = fieldsOf(text.substr(start, end - start));
        start = end + 1;
        if (fields.size() < minimumFields)
            continue;
        if (fields[0] == "sec") {
            // A key that got no user id before the next one began is dropped.
            pending.reset();
            if (!fields[4].empty())
                pending = GpgSecretKey{std::string(fields[4]), {}, expiryOf(fields[6])};
        } else if (fields[0] == "uid" && pending) {
            pending->userID = unescaped(fields[9]);
            keys.push_back(std::move(*pending));
            pending.reset();
        }
    }
    return keys;
}

} // namespace orvel
