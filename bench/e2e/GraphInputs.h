// Turns parsed graph commits into the input of the lane layout, as the graph pane does on a load.
#pragma once

#include "core/records/GraphCommit.h"
#include "graph/LaneLayout.h"

#include <vector>

namespace orvel::bench {

struct GraphInputs {
    std::vector<DAGNode> nodes;
    CommitInfoMap info;
};

GraphInputs graphInputs(const std::vector<GraphCommit>& commits);

} // namespace orvel::bench
