#include "merge/MergeLineRows.h"

namespace orvel {

std::vector<int> conflictHunkIds(const std::vector<ConflictHunk>& hunks) {
    std::vector<int> ids;
    for (const ConflictHunk& hunk : hunks)
        if (std::holds_alternative<ConflictSides>(hunk.kind))
            ids.push_back(hunk.id);
    return ids;
}

std::vector<MergeLineRow> conflictSideRows(const std::vector<ConflictHunk>& hunks,
                                           const ConflictDecisions& decisions, int hunkId, MergeSide side,
                                           const QString& language) {
    int before = 0; // lines of this side's version above the hunk
    for (const ConflictHunk& hunk : hunks) {
        if (const auto* clean = std::get_if<CleanLines>(&hunk.kind)) {
            before += static_cast<int>(clean->lines.size());
            continue;
        }
        const auto& sides = std::get<ConflictSides>(hunk.kind);
        const auto& lines = side == MergeSide::ours ? sides.ours : sides.theirs;
        if (hunk.id != hunkId) {
            before += static_cast<int>(lines.size());
            continue;
        }
        const LineSelection* selection = selectionOf(decisions, hunkId);
        std::vector<MergeLineRow> rows;
        rows.reserve(lines.size());
        for (std::size_t index = 0; index < lines.size(); ++index)
            rows.push_back({before + static_cast<int>(index) + 1, lines[index], language,
                            isLineIncluded(selection, side == MergeSide::ours, index), side, true});
        return rows;
    }
    return {};
}

std::vector<MergeLineRow> composedRows(const std::vector<ConflictHunk>& hunks,
                                       const ConflictDecisions& decisions, int focusedHunkId,
                                       const QString& language) {
    std::vector<MergeLineRow> rows;
    const auto add = [&](const std::string& text, MergeSide tint, bool focused) {
        rows.push_back({static_cast<int>(rows.size()) + 1, text, language, std::nullopt, tint, focused});
    };
    for (const ConflictHunk& hunk : hunks) {
        if (const auto* clean = std::get_if<CleanLines>(&hunk.kind)) {
            for (const std::string& line : clean->lines)
                add(line, MergeSide::none, false);
            continue;
        }
        const auto& sides = std::get<ConflictSides>(hunk.kind);
        const LineSelection* selection = selectionOf(decisions, hunk.id);
        const bool focused = hunk.id == focusedHunkId;
        for (std::size_t index = 0; index < sides.ours.size(); ++index)
            if (isLineIncluded(selection, true, index))
                add(sides.ours[index], MergeSide::ours, focused);
        for (std::size_t index = 0; index < sides.theirs.size(); ++index)
            if (isLineIncluded(selection, false, index))
                add(sides.theirs[index], MergeSide::theirs, focused);
    }
    if (!rows.empty() && rows.back().text.empty() && rows.back().accentTint == MergeSide::none &&
        !hunks.empty() && std::holds_alternative<CleanLines>(hunks.back().kind))
        rows.pop_back();
    return rows;
}

} // namespace orvel
