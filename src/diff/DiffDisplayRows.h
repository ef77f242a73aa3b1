// The rows a diff view paints, for each way of showing a file: unified (a header row a hunk, then
// its lines), side by side (a header row a hunk, then its paired rows) and the whole file (its
// lines, numbered). Texts are slices of the text git printed or of the file read, never copies.
#pragma once

#include "core/records/DiffResult.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

enum class CodeDiffMode : char { diff, split, file };

// The background and marker of one side of a row.
enum class RowTone : char { context, addition, deletion, empty, noNewline };

struct DiffDisplayRow {
    bool isHunkHeader = false;
    int hunk = -1; // the hunk the row belongs to; -1 in the whole-file view
    // Unified: the old and new numbers. Side by side: the left and right numbers. File: `right`.
    std::optional<int> leftNumber;
    std::optional<int> rightNumber;
    TextSlice left; // unified, file and header rows use this side only
    RowTone leftTone = RowTone::context;
    TextSlice right;
    RowTone rightTone = RowTone::empty;
    // The place in the hunk's lines of the line each side shows; -1 for none.
    int leftLine = -1;
    int rightLine = -1;
};

// The chosen lines of one hunk: its index, the hunk as the rows showed it (shownHunk()) and the
// places in its lines of the chosen additions and deletions.
struct ChosenLines {
    int hunk = -1;
    std::string shown;
    std::vector<int> lines;

    bool operator==(const ChosenLines&) const = default;
};

// "@@ -1,2 +1,3 @@ section"
std::string hunkHeaderText(const DiffHunk& hunk);

// Hunk `hunk` as `rows` show it: its header and every row's texts and tones, in one string; empty
// when no row belongs to it. An action on a hunk carries this from the moment the person chose
// the hunk, so that a reload which put another hunk at the same place is noticed.
std::string shownHunk(const std::vector<DiffDisplayRow>& rows, int hunk);

// Whether a side of `row` shows an addition or a deletion of a hunk's lines, which can be chosen.
bool showsChange(const DiffDisplayRow& row, bool right);

// The additions and deletions that one side of the rows from `first` to `last` shows (both
// included, in either order), by hunk: the left side holds every line of the unified view, the
// old side's of the side-by-side one, and `right` the new side's. The other rows in between, and
// the other side, choose nothing.
std::vector<ChosenLines> chosenLines(const std::vector<DiffDisplayRow>& rows, int first, int last,
                                     bool right);

std::vector<DiffDisplayRow> unifiedRows(const FileDiff& file);
std::vector<DiffDisplayRow> sideBySideRows(const FileDiff& file);
// One row a line of `text`; a final newline does not open another line.
std::vector<DiffDisplayRow> fileRows(const std::shared_ptr<const std::string>& text);

// A conflicted file as git left it in the working tree: each conflict opens with its "<<<<<<<"
// line as a header row (the conflicts are the hunks, from 0), our lines shown as removed and
// theirs as added, the other marker lines dimmed, and every line numbered as in the file.
std::vector<DiffDisplayRow> conflictRows(const std::shared_ptr<const std::string>& text);

// A file that git doesn't track yet, shown whole as one hunk of additions.
FileDiff untrackedFileDiff(const std::string& path, const std::shared_ptr<const std::string>& text);

} // namespace orvel
