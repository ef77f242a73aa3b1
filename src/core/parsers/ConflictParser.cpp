#include "core/parsers/ConflictParser.h"

#include "core/parsers/RecordFields.h"
#include "core/support/Log.h"

namespace orvel::GitOutputParser {

namespace {

constexpr std::string_view absentHash = "0000000000000000000000000000000000000000";

std::optional<std::string> presentUnless(std::string_view field, std::string_view absentMarker) {
    if (field == absentMarker)
        return std::nullopt;
    return std::string(field);
}

} // namespace

std::vector<ConflictEntry> parseConflictFiles(std::string_view text) {
    qCDebug(lcParser, "parseConflictFiles: %ld chars", static_cast<long>(text.size()));
    std::vector<ConflictEntry> conflicts;
    forEachNulRecord(text, [&](std::string_view record, auto&) {
        if (!record.starts_with("u "))
            return;
        std::array<std::string_view, 10> fields;
        std::string_view path;
        if (!splitLeadingFields(record, fields, path) || path.empty())
            return;
        const auto type = conflictTypeFromCode(fields[1]);
        if (!type)
            return;
        ConflictEntry entry;
        entry.id = QUuid::createUuid();
        entry.path = path;
        entry.conflictType = *type;
        // Modes count as absent only as "0", hashes only as the 40-zero form: git's own markers.
        entry.baseMode = presentUnless(fields[3], "0");
        entry.oursMode = presentUnless(fields[4], "0");
        entry.theirsMode = presentUnless(fields[5], "0");
        entry.baseHash = presentUnless(fields[7], absentHash);
        entry.oursHash = presentUnless(fields[8], absentHash);
        entry.theirsHash = presentUnless(fields[9], absentHash);
        conflicts.push_back(std::move(entry));
    });
    qCDebug(lcParser, "parseConflictFiles: %ld conflicts", static_cast<long>(conflicts.size()));
    return conflicts;
}

} // namespace orvel::GitOutputParser
