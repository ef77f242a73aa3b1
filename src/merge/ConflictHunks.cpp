// Reading conflict markers out of a working-tree file and composing the resolved text.
#include "merge/ConflictHunks.h"

namespace orvel {
namespace {

constexpr std::string_view oursMarker = "<<<<<<<";
constexpr std::string_view baseMarker = "|||||||";
constexpr std::string_view theirsMarker = "=======";
constexpr std::string_view endMarker = ">>>>>>>";

// Calls `visit` with every piece between newlines, the empty piece after a final newline included.
template <typename Visit>
void forEachLine(std::string_view text, Visit&& visit) {
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos) {
            visit(text.substr(start));
            return;
        }
        visit(text.substr(start, end - start));
        start = end + 1;
    }
}

} // namespace

std::vector<ConflictHunk> parseConflictHunks(std::string_view text) {
    std::vector<ConflictHunk> hunks;
    if (text.empty())
        return hunks;

    enum class Section { outside, ours, base, theirs };
    Section section = Section::outside;
    CleanLines clean;
    ConflictSides conflict;
    int nextId = 0;

    const auto emitClean = [&] {
        if (clean.lines.empty())
            return;
        hunks.push_back({nextId++, std::move(clean)});
        clean = {};
    };
    const auto emitConflict = [&] {
        hunks.push_back({nextId++, std::move(conflict)});
        conflict = {};
    };

    forEachLine(text, [&](std::string_view line) {
        if (section == Section::outside) {
            if (line.starts_with(oursMarker)) {
                emitClean();
                section = Section::ours;
            } else {
                clean.lines.emplace_back(line);
            }
            return;
        }
        if (line.starts_with(baseMarker)) {
            section = Section::base;
            conflict.base.emplace();
        } else if (line.starts_with(theirsMarker)) {
            section = Section::theirs;
        } else if (line.starts_with(endMarker)) {
            emitConflict();
            section = Section::outside;
        } else if (section == Section::ours) {
            conflict.ours.emplace_back(line);
        } else if (section == Section::base) {
            conflict.base->emplace_back(line);
        } else {
            conflict.theirs.emplace_back(line);
        }
    });

    if (section != Section::outside)
        emitConflict();
    emitClean();
    return hunks;
}

LineSelection defaultSelection(const ConflictSides& sides) {
    return {std::vector<bool>(sides.ours.size(), true), std::vector<bool>(sides.theirs.size(), false)};
}

ConflictDecisions defaultDecisions(const std::vector<ConflictHunk>& hunks) {
    ConflictDecisions decisions;
    for (const ConflictHunk& hunk : hunks) {
        if (const auto* sides = std::get_if<ConflictSides>(&hunk.kind))
            decisions.emplace(hunk.id, defaultSelection(*sides));
    }
    return decisions;
}

const LineSelection* selectionOf(const ConflictDecisions& decisions, int hunkId) {
    const auto found = decisions.find(hunkId);
    return found != decisions.end() ? &found->second : nullptr;
}

bool isLineIncluded(const LineSelection* selection, bool ours, std::size_t index) {
    const std::vector<bool>* flags =
        selection ? (ours ? &selection->oursIncluded : &selection->theirsIncluded) : nullptr;
    return flags && index < flags->size() ? (*flags)[index] : ours;
}

std::string composeResolved(const std::vector<ConflictHunk>& hunks, const ConflictDecisions& decisions) {
    std::string text;
    bool first = true;
    const auto append = [&](const std::string& line) {
        if (!first)
            text += '\n';
        text += line;
        first = false;
    };
    for (const ConflictHunk& hunk : hunks) {
        if (const auto* clean = std::get_if<CleanLines>(&hunk.kind)) {
            for (const std::string& line : clean->lines)
                append(line);
            continue;
        }
        const auto& sides = std::get<ConflictSides>(hunk.kind);
        const LineSelection* selection = selectionOf(decisions, hunk.id);
        for (std::size_t i = 0; i < sides.ours.size(); ++i)
            if (isLineIncluded(selection, true, i))
                append(sides.ours[i]);
        for (std::size_t i = 0; i < sides.theirs.size(); ++i)
            if (isLineIncluded(selection, false, i))
                append(sides.theirs[i]);
    }
    return text;
}

bool containsConflictMarkers(std::string_view text) {
    bool found = false;
    forEachLine(text, [&](std::string_view line) {
        found = found || line.starts_with(oursMarker) || line.starts_with(baseMarker) ||
                line.starts_with(theirsMarker) || line.starts_with(endMarker);
    });
    return found;
}

} // namespace orvel
