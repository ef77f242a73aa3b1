// The commit change of a submodule as git's diff tells it: a removed line "Subproject commit <old>"
// and an added one "Subproject commit <new>", the latter ending in "-dirty" when the submodule's
// own tree has changes. A pure function over the parsed diff of one path.
#pragma once

#include "core/records/DiffResult.h"

#include <optional>
#include <string>

namespace orvel {

struct SubmoduleChange {
    std::string oldHash; // empty: the submodule is new
    std::string newHash; // empty: the submodule is gone
    bool isDirty = false;

    bool operator==(const SubmoduleChange&) const = default;
};

// Nothing when the diff holds no "Subproject commit" line.
std::optional<SubmoduleChange> submoduleChange(const FileDiff& file);

// The first seven characters, as git abbreviates; a missing side is all zeros.
std::string shortHash(const std::string& hash);

} // namespace orvel
