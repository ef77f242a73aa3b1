// One laid-out row of the commit graph: the commit's texts and its lanes, left to right.
#pragma once

#include "graph/GraphLane.h"

#include <string>
#include <vector>

namespace orvel {

struct CommitRow {
    std::string hash;
    std::string shortHash; // the first 7 characters of the hash
    std::string message;
    std::string author;
    std::string date;
    std::vector<GraphLane> lanes; // ascending by index
    int activeLane = 0;           // the column of the commit's node

    bool operator==(const CommitRow&) const = default;
};

} // namespace orvel
