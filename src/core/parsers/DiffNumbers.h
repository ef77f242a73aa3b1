// The integers of hunk headers ("-12,5"), read strictly: a whole decimal number with an optional
// sign, within the range of int. The diff parser and the hunk matcher both read them here.
#pragma once

#include <climits>
#include <optional>
#include <string_view>

namespace orvel::GitOutputParser {

inline std::optional<int> readDiffInteger(std::string_view text) {
    bool negative = false;
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    if (text.empty())
        return std::nullopt;
    long long value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9')
            return std::nullopt;
        value = value * 10 + (c - '0');
        if (value > static_cast<long long>(INT_MAX) + 1)
            return std::nullopt;
    }
    if (negative)
        value = -value;
    if (value > INT_MAX || value < INT_MIN)
        return std::nullopt;
    return static_cast<int>(value);
}

// The start and count of one side of a hunk header, without its sign: "12,5" reads as 12 and 5,
// "12" as 12 and a count of 1. A number that doesn't read is absent.
struct HunkRange {
    std::optional<int> start;
    std::optional<int> count;
};

inline HunkRange readHunkRange(std::string_view range) {
    const auto comma = range.find(',');
    if (comma == std::string_view::npos)
        return {readDiffInteger(range), 1};
    const std::string_view rest = range.substr(comma + 1);
    return {readDiffInteger(range.substr(0, comma)), readDiffInteger(rest.substr(0, rest.find(',')))};
}

} // namespace orvel::GitOutputParser
