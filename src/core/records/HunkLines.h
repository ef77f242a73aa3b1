// Lines of one hunk that the person chose in the diff pane: the hunk as it was shown, with its
// numbers and lines, and the places in its `lines` of the chosen additions and deletions.
#pragma once

#include "core/records/DiffResult.h"

#include <vector>

namespace orvel {

struct HunkLines {
    DiffHunk hunk;
    std::vector<int> lines;

    bool operator==(const HunkLines&) const = default;
};

} // namespace orvel
