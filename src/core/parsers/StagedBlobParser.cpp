#include "core/parsers/StagedBlobParser.h"

#include "core/parsers/MergeTreeParser.h"
#include "core/parsers/RecordFields.h"
#include "core/support/Text.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace orvel::GitOutputParser {

namespace {

bool isMode(std::string_view text) {
    return text.size() == 6 &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '7'; });
}

// The fields before the record's tab, and the name after it; nothing without a tab or a name.
std::optional<std::pair<std::string_view, std::string_view>> splitAtTab(std::string_view record) {
    const auto tab = record.find('\t');
    if (tab == std::string_view::npos || tab + 1 == record.size())
        return std::nullopt;
    return std::pair(record.substr(0, tab), record.substr(tab + 1));
}

} // namespace

std::vector<IndexRecord> parseIndexRecords(std::string_view text) {
    std::vector<IndexRecord> records;
    forEachNulRecord(text, [&](std::string_view record, auto&) {
        const auto parts = splitAtTab(record);
        std::array<std::string_view, 2> fields;
        std::string_view stage;
        if (!parts || !splitLeadingFields(parts->first, fields, stage) || !isMode(fields[0]) ||
            !isObjectName(fields[1]) || stage.size() != 1 || stage[0] < '0' || stage[0] > '3')
            return;
        records.push_back(
            {std::string(fields[0]), std::string(fields[1]), stage[0] - '0', std::string(parts->second)});
    });
    return records;
}

std::map<std::string, std::uint64_t> parseTreeBlobSizes(std::string_view text) {
    std::map<std::string, std::uint64_t> sizes;
    forEachNulRecord(text, [&](std::string_view record, auto&) {
        const auto parts = splitAtTab(record);
        if (!parts)
            return;
        std::vector<std::string_view> fields = splitFields(parts->first, ' ');
        std::erase(fields, std::string_view());
        std::uint64_t size = 0;
        if (fields.size() != 4 || !isMode(fields[0]) || fields[1] != "blob" || !isObjectName(fields[2]))
            return;
        const auto [end, error] =
            std::from_chars(fields[3].data(), fields[3].data() + fields[3].size(), size);
        if (error == std::errc() && end == fields[3].data() + fields[3].size())
            sizes[std::string(parts->second)] = size;
    });
    return sizes;
}

} // namespace orvel::GitOutputParser
