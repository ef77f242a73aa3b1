// Feeds arbitrary bytes to the conflict-marker reader, which must cut any text into hunks without
// crashing, and checks that composing the default choice and both sides stays consistent with it;
// the diff pane's rows of the same text number every line once, with conflicts in order.
#include "diff/DiffDisplayRows.h"
#include "merge/ConflictHunks.h"

#include <memory>
#include <string>

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto hunks = orvel::parseConflictHunks(text);
    const auto decisions = orvel::defaultDecisions(hunks);
    bool hasConflict = false;
    for (std::size_t i = 0; i < hunks.size(); ++i) {
        if (hunks[i].id != static_cast<int>(i))
            __builtin_trap();
        if (const auto* clean = std::get_if<orvel::CleanLines>(&hunks[i].kind)) {
            if (clean->lines.empty())
                __builtin_trap();
        } else {
            hasConflict = true;
        }
    }
    // Without a conflict the text comes back unchanged; with one, a marker must have been there.
    const std::string composed = orvel::composeResolved(hunks, decisions);
    if (!hasConflict && composed != text)
        __builtin_trap();
    if (hasConflict && !orvel::containsConflictMarkers(text))
        __builtin_trap();
    if (composed.size() > size)
        __builtin_trap();
    const auto rows = orvel::conflictRows(std::make_shared<const std::string>(text));
    int conflict = -1;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].rightNumber != static_cast<int>(i) + 1 || rows[i].hunk < conflict ||
            rows[i].hunk > conflict + 1 || (rows[i].hunk > conflict) != rows[i].isHunkHeader)
            __builtin_trap();
        conflict = rows[i].hunk;
        if (rows[i].isHunkHeader && orvel::shownHunk(rows, conflict).empty())
            __builtin_trap();
    }
    return 0;
}
