// One commit as the lane layout sees it: its hash and its parents, first parent first.
#pragma once

#include <string>
#include <vector>

namespace orvel {

struct DAGNode {
    std::string hash;
    std::vector<std::string> parents;
};

} // namespace orvel
