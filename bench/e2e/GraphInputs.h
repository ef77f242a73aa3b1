// Turns parsed graph commits into the input of the lane layout, as the graph pane does on a load:
// the commits go into the store, and the layout's nodes view it.
#pragma once

#include "core/records/GraphCommit.h"
#include "graph/CommitStore.h"
#include "graph/LaneLayout.h"

#include <memory>
#include <vector>

namespace orvel::bench {

struct GraphInputs {
    // On the heap, so that the nodes' views stay valid when the inputs move.
    std::unique_ptr<CommitStore> store = std::make_unique<CommitStore>();
    std::vector<DAGNode> nodes;
};

GraphInputs graphInputs(const std::vector<GraphCommit>& commits);

} // namespace orvel::bench
