// Field access for git's line-oriented outputs whose fields are NUL-separated ("%00" in a format),
// and the one decimal reader of these parsers.
#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>

namespace orvel::GitOutputParser {

// Calls `visit` with each non-empty line of `text`, lines being separated by "\n".
template <typename Visit>
void forEachNonEmptyLine(std::string_view text, Visit&& visit) {
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos)
            end = text.size();
        if (end > start)
            visit(text.substr(start, end - start));
        start = end + 1;
    }
}

// Fills `fields` with the first N NUL-separated pieces of `line` and returns how many pieces the
// line has in all. Empty pieces count: an empty field keeps its position.
template <std::size_t N>
std::size_t splitNulFields(std::string_view line, std::array<std::string_view, N>& fields) {
    std::size_t count = 0;
    std::size_t start = 0;
    while (true) {
        const std::size_t nul = line.find('\0', start);
        const std::size_t end = nul == std::string_view::npos ? line.size() : nul;
        if (count < N)
            fields[count] = line.substr(start, end - start);
        ++count;
        if (nul == std::string_view::npos)
            return count;
        start = nul + 1;
    }
}

// The whole of `text` as a decimal number ("-" allowed for signed types); blanks, "+" or any
// character behind the digits make it unreadable.
template <typename Integer>
std::optional<Integer> readDecimal(std::string_view text) {
    Integer value{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

} // namespace orvel::GitOutputParser
