// The side-by-side pairing of a hunk: deleted and added lines paired by position into rows, context
// on both sides. No similarity is measured.
#pragma once

#include "core/records/DiffResult.h"

#include <optional>
#include <vector>

namespace orvel {

enum class SplitCellType : char { context, addition, deletion, empty };

struct SplitDiffRow {
    std::optional<int> leftLineNumber;
    TextSlice leftContent;
    SplitCellType leftType = SplitCellType::empty;
    std::optional<int> rightLineNumber;
    TextSlice rightContent;
    SplitCellType rightType = SplitCellType::empty;
    // The place in the hunk's lines of the line each side shows; -1 for an empty cell.
    int leftLine = -1;
    int rightLine = -1;

    bool operator==(const SplitDiffRow&) const = default;
};

std::vector<SplitDiffRow> splitRows(const DiffHunk& hunk);

} // namespace orvel
