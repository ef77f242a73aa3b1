#include "core/parsers/MergeTreeParser.h"

#include "core/support/Text.h"

#include <algorithm>

namespace orvel::GitOutputParser {

bool isObjectName(std::string_view text) {
    return (text.size() == 40 || text.size() == 64) &&
           std::all_of(text.begin(), text.end(),
                       [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); });
}

std::optional<MergeTreeOutput> parseMergeTree(std::string_view text) {
    const auto end = text.find('\0');
    if (end == std::string_view::npos || !isObjectName(text.substr(0, end)))
        return std::nullopt;
    MergeTreeOutput output{std::string(text.substr(0, end)), {}};
    // The conflicted-file list ends at an empty field, where the (suppressed) messages would begin.
    for (const std::string_view path : splitFields(text.substr(end + 1), '\0')) {
        if (path.empty())
            break;
        output.files.emplace_back(path);
    }
    std::sort(output.files.begin(), output.files.end());
    output.files.erase(std::unique(output.files.begin(), output.files.end()), output.files.end());
    return output;
}

std::vector<CommitTrees> parseCommitTrees(std::string_view text) {
    std::vector<CommitTrees> records;
    for (const std::string_view line : splitLines(text)) {
        const auto fields = splitFields(line, ' ');
        if (fields.size() < 2 || !isObjectName(fields[0]) || !isObjectName(fields[1]))
            continue;
        CommitTrees record{std::string(fields[0]), std::string(fields[1]), {}};
        for (std::size_t i = 2; i < fields.size(); ++i)
            if (isObjectName(fields[i]))
                record.parents.emplace_back(fields[i]);
        records.push_back(std::move(record));
    }
    return records;
}

} // namespace orvel::GitOutputParser
