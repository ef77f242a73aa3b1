// Cuts a one-hunk patch out of git's own diff text, so that a hunk is applied with exactly the
// bytes git printed, and only while its numbers are still those the user saw.
#pragma once

#include "core/records/DiffResult.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvel::HunkCommands {

// The file's header lines and the hunk whose header carries `hunk`'s four numbers, joined by
// newlines with one more at the end; empty when no such hunk is in `rawDiff`.
std::string extractHunkPatch(std::string_view rawDiff, const DiffHunk& hunk);

// The lines of `rawDiff` before its first hunk that a patch of it carries ("diff --git", "index ",
// "--- ", "+++ ", the mode lines), without their newlines.
std::vector<std::string_view> patchHeaderLines(std::string_view rawDiff);

// Whether the "@@ -a,b +c,d @@" line carries the hunk's four numbers (a missing count is 1).
bool hunkHeaderMatches(std::string_view line, const DiffHunk& hunk);

} // namespace orvel::HunkCommands
