// The records of a unified diff: files, their hunks and the lines of each hunk, as read from the
// text of `git diff`, `git show` or `git stash show -p`. Every parse mints new ids, so a hunk is
// found again by its four numbers, never by its id.
#pragma once

#include "core/records/TextSlice.h"

#include <QUuid>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

enum class DiffLineType : char { context, addition, deletion, noNewlineAtEnd };

enum class DiffStatus : char { added, copied, deleted, modified, renamed, typeChanged, unmerged };

// The one-letter raw value ("A", "C", "D", "M", "R", "T", "U"), and back; an unknown letter gives nothing.
char codeOf(DiffStatus status);
std::optional<DiffStatus> diffStatusFromCode(char code);

struct DiffLine {
    QUuid id;
    DiffLineType type = DiffLineType::context;
    // Without the marker column; for `noNewlineAtEnd` the whole line, backslash included. The
    // bytes stay in the text that was parsed, which lives as long as any line of it.
    TextSlice content;
    std::optional<int> oldLineNumber; // context and deletion
    std::optional<int> newLineNumber; // context and addition

    bool operator==(const DiffLine&) const = default;
};

struct DiffHunk {
    QUuid id;
    int oldStart = 0;
    int oldCount = 0;
    int newStart = 0;
    int newCount = 0;
    // What follows the second "@@" of the header, trimmed; absent when that is empty.
    std::optional<std::string> sectionHeader;
    std::vector<DiffLine> lines;

    bool operator==(const DiffHunk&) const = default;
};

struct FileDiff {
    QUuid id;
    std::string oldPath; // empty for /dev/null; raw bytes as git printed them, quotes included
    std::string newPath;
    DiffStatus status = DiffStatus::modified;
    bool isBinary = false;
    std::vector<DiffHunk> hunks;
    int additions = 0;
    int deletions = 0;

    bool operator==(const FileDiff&) const = default;
};

struct DiffResult {
    QUuid id;
    std::vector<FileDiff> files; // in the order of the text

    bool operator==(const DiffResult&) const = default;
};

} // namespace orvel
