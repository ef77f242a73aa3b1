// The integers of hunk headers ("-12,5"), read strictly: a whole decimal number with an optional
// sign, within the range of int.
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

} // namespace orvel::GitOutputParser
