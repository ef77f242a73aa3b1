// A conflicted file cut into clean runs and conflict hunks, and the file composed back from the
// lines the user keeps of each conflict.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace orvel {

// Lines outside any conflict.
struct CleanLines {
    std::vector<std::string> lines;

    bool operator==(const CleanLines&) const = default;
};

// The sides of one conflict; `base` is present only when the file has a "|||||||" section.
struct ConflictSides {
    std::vector<std::string> ours;
    std::vector<std::string> theirs;
    std::optional<std::vector<std::string>> base;

    bool operator==(const ConflictSides&) const = default;
};

using ConflictHunkKind = std::variant<CleanLines, ConflictSides>;

struct ConflictHunk {
    int id = 0; // position in the file's sequence of hunks, from 0; clean runs and conflicts share it
    ConflictHunkKind kind;

    bool operator==(const ConflictHunk&) const = default;
};

// One conflict's choice: a flag per line of each side.
struct LineSelection {
    std::vector<bool> oursIncluded;
    std::vector<bool> theirsIncluded;

    bool operator==(const LineSelection&) const = default;
};

using ConflictDecisions = std::map<int, LineSelection>;

// One pass over the file's text. Lines are the pieces between "\n" (a "\r" stays with its line), and
// the empty piece after a final newline is kept, so that composing gives the newline back. Marker
// lines are recognised by their first seven characters and kept nowhere; a conflict still open at
// the end of the text is kept with what was read. Empty text gives no hunks.
std::vector<ConflictHunk> parseConflictHunks(std::string_view text);

// The starting choice of every conflict hunk: all of ours, none of theirs.
LineSelection defaultSelection(const ConflictSides& sides);
ConflictDecisions defaultDecisions(const std::vector<ConflictHunk>& hunks);

// The choice of the conflict `hunkId`, or null when it has none.
const LineSelection* selectionOf(const ConflictDecisions& decisions, int hunkId);
// Whether a line of one side is kept; a missing choice or flag takes the default.
bool isLineIncluded(const LineSelection* selection, bool ours, std::size_t index);

// The hunks' lines joined with "\n", nothing added at the end: a clean run's lines, and of each
// conflict the chosen lines of ours, then the chosen lines of theirs. A conflict without a decision,
// or a line without a flag, takes the default.
std::string composeResolved(const std::vector<ConflictHunk>& hunks, const ConflictDecisions& decisions);

// True when any line starts with "<<<<<<<", "|||||||", "=======" or ">>>>>>>": such a text still
// holds conflict markers and is refused as a resolution, whatever the file's language.
bool containsConflictMarkers(std::string_view text);

} // namespace orvel
