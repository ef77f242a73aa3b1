#include "core/parsers/StatusParser.h"

#include "core/parsers/RecordFields.h"
#include "core/support/Log.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace orvel::GitOutputParser {

namespace {

FileStatusKind trackedKind(std::string_view xy) {
    if (xy.size() != 2)
        return FileStatusKind::tracked(TrackedStatus::unmodified, TrackedStatus::unmodified);
    return FileStatusKind::tracked(trackedStatusFromCode(xy[0]), trackedStatusFromCode(xy[1]));
}

bool isSymlinkMode(std::string_view mode) { return mode == "120000"; }

std::optional<std::string> stageHash(std::string_view field) {
    if (field.find_first_not_of('0') == std::string_view::npos)
        return std::nullopt;
    return std::string(field);
}

struct Header {
    std::optional<std::string> branch;
    long stashCount = 0;
};

void readHeader(std::string_view line, Header& header) {
    constexpr std::string_view branchKey = "branch.head ";
    constexpr std::string_view stashKey = "stash ";
    if (line.starts_with(branchKey)) {
        header.branch = std::string(line.substr(branchKey.size()));
    } else if (line.starts_with(stashKey)) {
        const auto value = line.substr(stashKey.size());
        long count = 0;
        const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), count);
        header.stashCount = (error == std::errc() && end == value.data() + value.size()) ? count : 0;
    }
}

// "1 XY sub mH mI mW hH hI path"
bool readOrdinary(std::string_view record, FileChange& change) {
    std::array<std::string_view, 8> fields;
    std::string_view path;
    if (!splitLeadingFields(record, fields, path) || path.empty())
        return false;
    change.path = path;
    change.status = trackedKind(fields[1]);
    change.isSubmodule = fields[2].starts_with('S');
    change.isSymlink = isSymlinkMode(fields[3]) || isSymlinkMode(fields[4]) || isSymlinkMode(fields[5]);
    return true;
}

// "2 XY sub mH mI mW hH hI Xscore path", followed by the original path as its own record
bool readRenamed(std::string_view record, FileChange& change) {
    std::array<std::string_view, 9> fields;
    std::string_view path;
    if (!splitLeadingFields(record, fields, path) || path.empty())
        return false;
    change.path = path;
    change.status = trackedKind(fields[1]);
    change.isSubmodule = fields[2].starts_with('S');
    change.isSymlink = isSymlinkMode(fields[3]) || isSymlinkMode(fields[4]) || isSymlinkMode(fields[5]);
    return true;
}

// "u XY sub m1 m2 m3 mW h1 h2 h3 path"
bool readUnmerged(std::string_view record, FileChange& change) {
    std::array<std::string_view, 10> fields;
    std::string_view path;
    if (!splitLeadingFields(record, fields, path) || path.empty())
        return false;
    const auto type = conflictTypeFromCode(fields[1]);
    if (!type)
        return false;
    change.path = path;
    change.status = FileStatusKind::unmerged(*type);
    change.baseHash = stageHash(fields[7]);
    change.oursHash = stageHash(fields[8]);
    change.theirsHash = stageHash(fields[9]);
    return true;
}

} // namespace

std::vector<FileChange> parseStatusResult(std::string_view text) {
    qCDebug(lcParser, "parseStatusResult: %ld chars", static_cast<long>(text.size()));
    std::vector<FileChange> files;
    // One record a NUL at most, so one reservation holds them all.
    files.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\0')));
    Header header;
    forEachNulRecord(text, [&](std::string_view record, auto& next) {
        FileChange change;
        bool read = false;
        switch (record.front()) {
        case '#':
            if (record.starts_with("# "))
                readHeader(record.substr(2), header);
            return;
        case '1':
            read = readOrdinary(record, change);
            break;
        case '2':
            read = readRenamed(record, change);
            // The original path is always taken along, so that it is never read as a record.
            if (const auto original = next(); read && !original.empty())
                change.originalPath = std::string(original);
            break;
        case 'u':
            read = readUnmerged(record, change);
            break;
        case '?':
        case '!':
            if (record.size() > 2) {
                change.path = record.substr(2);
                change.status = record.front() == '?' ? FileStatusKind::untracked() : FileStatusKind::ignored();
                read = true;
            }
            break;
        default:
            return;
        }
        if (read)
            files.push_back(std::move(change));
    });
    qCDebug(lcParser, "parseStatusResult: %ld files, branch=%s, stash=%ld", static_cast<long>(files.size()),
            header.branch ? header.branch->c_str() : "nil", header.stashCount);
    return files;
}

} // namespace orvel::GitOutputParser
