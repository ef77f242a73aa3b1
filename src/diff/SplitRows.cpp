#include "diff/SplitRows.h"

#include <algorithm>

namespace orvel {

namespace {

// The indices of a run of lines of `type` from `at` on; a "no newline" marker inside the run
// neither ends it nor takes a row.
std::vector<std::size_t> runOf(const std::vector<DiffLine>& lines, std::size_t& at, DiffLineType type) {
    std::vector<std::size_t> run;
    for (; at < lines.size(); ++at) {
        if (lines[at].type == type)
            run.push_back(at);
        else if (lines[at].type != DiffLineType::noNewlineAtEnd)
            break;
    }
    return run;
}

} // namespace

std::vector<SplitDiffRow> splitRows(const DiffHunk& hunk) {
    const auto& lines = hunk.lines;
    std::vector<SplitDiffRow> rows;
    rows.reserve(lines.size());
    std::size_t at = 0;
    while (at < lines.size()) {
        const DiffLine& line = lines[at];
        if (line.type == DiffLineType::context) {
            rows.push_back({line.oldLineNumber, line.content, SplitCellType::context, line.newLineNumber,
                            line.content, SplitCellType::context, int(at), int(at)});
            ++at;
        } else if (line.type == DiffLineType::deletion || line.type == DiffLineType::addition) {
            const auto deletions = runOf(lines, at, DiffLineType::deletion);
            const auto additions = runOf(lines, at, DiffLineType::addition);
            for (std::size_t k = 0; k < std::max(deletions.size(), additions.size()); ++k) {
                SplitDiffRow row;
                if (k < deletions.size()) {
                    const DiffLine& left = lines[deletions[k]];
                    row.leftLineNumber = left.oldLineNumber;
                    row.leftContent = left.content;
                    row.leftType = SplitCellType::deletion;
                    row.leftLine = int(deletions[k]);
                }
                if (k < additions.size()) {
                    const DiffLine& right = lines[additions[k]];
                    row.rightLineNumber = right.newLineNumber;
                    row.rightContent = right.content;
                    row.rightType = SplitCellType::addition;
                    row.rightLine = int(additions[k]);
                }
                rows.push_back(std::move(row));
            }
        } else {
            ++at;
        }
    }
    return rows;
}

} // namespace orvel
