// The texts a graph row shows beside its lanes.
#pragma once

#include <string>

namespace orvel {

struct CommitInfo {
    std::string message;
    std::string author;
    std::string date; // already formatted
};

} // namespace orvel
