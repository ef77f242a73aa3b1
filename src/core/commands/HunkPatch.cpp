#include "core/commands/HunkPatch.h"

#include "core/parsers/DiffNumbers.h"

#include <array>
#include <optional>
#include <vector>

namespace orvel::HunkCommands {

namespace {

// The start and count of a range; nothing when either doesn't read.
std::optional<std::pair<int, int>> readRange(std::string_view range) {
    const auto read = GitOutputParser::readHunkRange(range);
    if (!read.start || !read.count)
        return std::nullopt;
    return std::pair{*read.start, *read.count};
}

bool isHeaderLine(std::string_view line) {
    static constexpr std::array<std::string_view, 8> prefixes{
        "diff --git", "index ", "--- ", "+++ ", "new file", "deleted file", "old mode", "new mode"};
    for (const auto prefix : prefixes) {
        if (line.starts_with(prefix))
            return true;
    }
    return false;
}

} // namespace

bool hunkHeaderMatches(std::string_view line, const DiffHunk& hunk) {
    const auto opening = line.find("@@");
    if (opening == std::string_view::npos)
        return false;
    std::string_view ranges = line.substr(opening + 2);
    ranges = ranges.substr(0, ranges.find("@@"));
    const auto first = ranges.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return false;
    ranges = ranges.substr(first, ranges.find_last_not_of(" \t") - first + 1);
    std::array<std::string_view, 2> pieces;
    std::size_t count = 0;
    for (std::size_t start = 0; start < ranges.size() && count < 2;) {
        auto end = ranges.find(' ', start);
        if (end == std::string_view::npos)
            end = ranges.size();
        if (end > start)
            pieces[count++] = ranges.substr(start, end - start);
        start = end + 1;
    }
    if (count < 2 || !pieces[0].starts_with('-') || !pieces[1].starts_with('+'))
        return false;
    const auto oldRange = readRange(pieces[0].substr(1));
    const auto newRange = readRange(pieces[1].substr(1));
    return oldRange && newRange && oldRange->first == hunk.oldStart && oldRange->second == hunk.oldCount &&
           newRange->first == hunk.newStart && newRange->second == hunk.newCount;
}

std::vector<std::string_view> patchHeaderLines(std::string_view rawDiff) {
    std::vector<std::string_view> header;
    for (std::size_t start = 0; start < rawDiff.size();) {
        auto end = rawDiff.find('\n', start);
        if (end == std::string_view::npos)
            end = rawDiff.size();
        const std::string_view line = rawDiff.substr(start, end - start);
        if (line.starts_with("@@"))
            break;
        if (isHeaderLine(line))
            header.push_back(line);
        start = end + 1;
    }
    return header;
}

std::string extractHunkPatch(std::string_view rawDiff, const DiffHunk& hunk) {
    std::vector<std::string_view> headerLines;
    std::vector<std::string_view> patchLines;
    bool seenHunk = false;
    bool inTarget = false;
    // Every piece between newlines counts, the empty one after a final newline included.
    for (std::size_t start = 0;;) {
        auto end = rawDiff.find('\n', start);
        const bool last = end == std::string_view::npos;
        if (last)
            end = rawDiff.size();
        const std::string_view line = rawDiff.substr(start, end - start);
        if (!seenHunk && isHeaderLine(line)) {
            headerLines.push_back(line);
        } else if (line.starts_with("@@")) {
            inTarget = hunkHeaderMatches(line, hunk);
            if (inTarget) {
                patchLines = headerLines;
                patchLines.push_back(line);
            }
            seenHunk = true;
        } else if (inTarget) {
            patchLines.push_back(line);
        }
        if (last)
            break;
        start = end + 1;
    }
    if (patchLines.empty())
        return {};
    std::size_t size = 0;
    for (const auto line : patchLines)
        size += line.size() + 1;
    std::string patch;
    patch.reserve(size);
    for (const auto line : patchLines) {
        patch += line;
        patch += '\n';
    }
    return patch;
}

} // namespace orvel::HunkCommands
