// A commit as a flat record: history lists, search results and the commit that was just made.
#pragma once

#include "core/support/IsoDate.h"

#include <string>
#include <vector>

namespace orvel {

struct CommitEntry {
    std::string hash;
    std::string abbreviatedHash;
    std::string authorName;
    std::string authorEmail;
    Instant authorDate = distantPast;
    std::string subject;
    std::string body;
    std::vector<std::string> parentHashes;
    // The raw decorations, unclassified: "HEAD -> main" stays one item.
    std::vector<std::string> refs;

    bool operator==(const CommitEntry&) const = default;
};

} // namespace orvel
