#include "diff/GitPathQuoting.h"

#include <array>

namespace orvel {

namespace {

bool needsQuotes(std::string_view path) {
    for (const char character : path) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x20 || byte >= 0x7f || character == '"' || character == '\\')
            return true;
    }
    return false;
}

void appendEscaped(std::string& out, unsigned char byte) {
    constexpr std::string_view named = "\a\b\t\n\v\f\r";
    constexpr std::string_view letters = "abtnvfr";
    if (const auto at = named.find(static_cast<char>(byte)); at != std::string_view::npos && byte != 0) {
        out += '\\';
        out += letters[at];
    } else if (byte == '"' || byte == '\\') {
        out += '\\';
        out += static_cast<char>(byte);
    } else if (byte < 0x20 || byte >= 0x7f) {
        const std::array<char, 4> octal{'\\', static_cast<char>('0' + ((byte >> 6) & 7)),
                                        static_cast<char>('0' + ((byte >> 3) & 7)),
                                        static_cast<char>('0' + (byte & 7))};
        out.append(octal.data(), octal.size());
    } else {
        out += static_cast<char>(byte);
    }
}

} // namespace

std::string gitQuotedPath(std::string_view prefix, std::string_view path) {
    if (!needsQuotes(path))
        return {};
    std::string quoted = "\"";
    for (const char character : prefix)
        appendEscaped(quoted, static_cast<unsigned char>(character));
    for (const char character : path)
        appendEscaped(quoted, static_cast<unsigned char>(character));
    quoted += '"';
    return quoted;
}

bool diffPathNames(std::string_view printed, std::string_view path) {
    // git ends a "---"/"+++" path that holds a blank with a tab.
    if (printed.ends_with('\t'))
        printed.remove_suffix(1);
    if (printed == path)
        return true;
    if (printed.empty() || printed.front() != '"')
        return false;
    // Quoted forms: in "---"/"+++" lines with the side's prefix, in rename and copy lines without.
    for (const std::string_view prefix : {"a/", "b/", ""})
        if (printed == gitQuotedPath(prefix, path))
            return true;
    return false;
}

} // namespace orvel
