// Writes a patch that applies only chosen lines of a file's diff. Chosen additions and deletions
// stay changes; of the rest, a line of the side the patch applies to becomes context and a line
// of the other side is left out, so everything not chosen stays as it is. Like the one-hunk
// patch, it works on git's own diff read at the moment of the action, and only while each chosen
// hunk still reads there line for line as it was shown.
#pragma once

#include "core/records/HunkLines.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvel::HunkCommands {

// Which side of the diff the patch is applied to: `forward` to the old side (`git apply`, staging
// from the working tree), `reverse` to the new side (`git apply --reverse`, unstaging from the
// index or discarding from the working tree).
enum class PatchDirection : char { forward, reverse };

struct LinePatch {
    std::string text;
    // The patch takes every line of a file that the other side of the diff doesn't have, so it
    // removes the file, as the action on the whole file does, rather than leave it empty.
    bool removesFile = false;
};

// One patch with a hunk for every chosen hunk that changes something, with exact counts, for the
// one file `rawDiff` holds. Its text is empty when `rawDiff` isn't the diff of one file, when a
// chosen hunk isn't there with the same numbers and lines, when a chosen place is outside its
// hunk, or when nothing chosen is a change.
LinePatch buildLinePatch(std::string_view rawDiff, const std::vector<HunkLines>& chosen,
                         PatchDirection direction);

} // namespace orvel::HunkCommands
