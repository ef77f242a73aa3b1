// A run of consecutive lines of a file that one commit last changed.
#pragma once

#include "core/support/IsoDate.h"

#include <string>
#include <vector>

namespace orvel {

struct BlameEntry {
    std::string hash;
    int finalLineNumber = 0;        // 1-based number of the group's first line in the file as it is
    std::vector<std::string> lines; // the lines' text, without their newlines
    std::string authorName;
    Instant authorDate = distantPast;
    std::string summary;
    std::string filename; // the file's path in that commit

    bool operator==(const BlameEntry&) const = default;
};

} // namespace orvel
