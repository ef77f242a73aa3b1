// The rows the merge editor's panels show: each side of one conflict with a choice per line, and
// the composed file with the lines that came from either side marked. Pure functions of the hunks
// and the choices, so the panels only display them.
#pragma once

#include "merge/ConflictHunks.h"

#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace orvel {

enum class MergeSide { none, ours, theirs };

struct MergeLineRow {
    int lineNumber = 0;       // 1-based, in the version of the file the panel shows
    std::string text;         // the line's bytes, without its newline
    QString language;         // the file's language for colouring; empty draws plain text
    std::optional<bool> isOn; // absent for rows that cannot be chosen
    MergeSide accentTint = MergeSide::none;
    bool isFocused = false;

    bool operator==(const MergeLineRow&) const = default;
};

// One side of the conflict hunk `hunkId`, numbered as the lines stand in that side's version of the
// file. Empty when the id names no conflict.
std::vector<MergeLineRow> conflictSideRows(const std::vector<ConflictHunk>& hunks,
                                           const ConflictDecisions& decisions, int hunkId, MergeSide side,
                                           const QString& language);

// The file as saving would write it, a row per line; the chosen lines of every conflict are tinted
// by their side and those of `focusedHunkId` are focused. The empty piece after a final newline is
// not a line of its own.
std::vector<MergeLineRow> composedRows(const std::vector<ConflictHunk>& hunks,
                                       const ConflictDecisions& decisions, int focusedHunkId,
                                       const QString& language);

// The ids of the conflict hunks, in file order.
std::vector<int> conflictHunkIds(const std::vector<ConflictHunk>& hunks);

} // namespace orvel
