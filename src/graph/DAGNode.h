// One commit as the lane layout sees it: its hash and its parents, first parent first. It views
// texts kept elsewhere for the length of one layout call.
#pragma once

#include <string_view>
#include <vector>

namespace orvel {

struct DAGNode {
    std::string_view hash;
    std::vector<std::string_view> parents;
};

} // namespace orvel
