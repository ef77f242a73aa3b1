// A tag as `git tag -l` lists it: lightweight, or annotated with its own object.
#pragma once

#include <optional>
#include <string>

namespace orvel {

struct TagEntry {
    std::string name;
    std::string hash;                      // the tag object, or the commit of a lightweight tag
    std::optional<std::string> targetHash; // the commit an annotated tag points at

    // The identity in lists: a tag moved to another object is another entry.
    std::string id() const { return name + ":" + hash; }

    bool operator==(const TagEntry&) const = default;
};

} // namespace orvel
