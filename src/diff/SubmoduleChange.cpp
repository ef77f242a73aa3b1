#include "diff/SubmoduleChange.h"

#include <string_view>

namespace orvel {

std::optional<SubmoduleChange> submoduleChange(const FileDiff& file) {
    constexpr std::string_view prefix = "Subproject commit ";
    constexpr std::string_view dirty = "-dirty";
    std::optional<SubmoduleChange> change;
    for (const DiffHunk& hunk : file.hunks) {
        for (const DiffLine& line : hunk.lines) {
            std::string_view text = line.content.view();
            if (line.type == DiffLineType::context || !text.starts_with(prefix))
                continue;
            text.remove_prefix(prefix.size());
            if (!change)
                change.emplace();
            if (line.type == DiffLineType::deletion) {
                change->oldHash = std::string(text);
            } else if (line.type == DiffLineType::addition) {
                change->isDirty = text.ends_with(dirty);
                if (change->isDirty)
                    text.remove_suffix(dirty.size());
                change->newHash = std::string(text);
            }
        }
    }
    return change;
}

std::string shortHash(const std::string& hash) {
    return hash.empty() ? std::string(7, '0') : hash.substr(0, 7);
}

} // namespace orvel
