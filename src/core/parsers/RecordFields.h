// Field access for git's blank-separated records, where the last field (a path) may itself hold
// blanks and is therefore taken from the record rather than re-joined from a split.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace orvel::GitOutputParser {

// Cuts the first N blank-terminated fields off `record` and leaves the remainder in `rest`.
// Fails when the record has fewer than N blanks.
template <std::size_t N>
bool splitLeadingFields(std::string_view record, std::array<std::string_view, N>& fields, std::string_view& rest) {
    std::size_t start = 0;
    for (std::size_t i = 0; i < N; ++i) {
        const std::size_t blank = record.find(' ', start);
        if (blank == std::string_view::npos)
            return false;
        fields[i] = record.substr(start, blank - start);
        start = blank + 1;
    }
    rest = record.substr(start);
    return true;
}

// Calls `visit` with each non-empty NUL-terminated record of `text`; `visit` returns how many
// further records it consumed (a rename takes its original path with it).
template <typename Visit>
void forEachNulRecord(std::string_view text, Visit&& visit) {
    std::size_t start = 0;
    auto next = [&]() -> std::string_view {
        while (start < text.size()) {
            std::size_t end = text.find('\0', start);
            if (end == std::string_view::npos)
                end = text.size();
            std::string_view record = text.substr(start, end - start);
            start = end + 1;
            if (!record.empty())
                return record;
        }
        return {};
    };
    for (std::string_view record = next(); !record.empty(); record = next())
        visit(record, next);
}

} // namespace orvel::GitOutputParser
