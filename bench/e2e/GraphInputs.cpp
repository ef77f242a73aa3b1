#include "e2e/GraphInputs.h"

namespace orvel::bench {

GraphInputs graphInputs(const std::vector<GraphCommit>& commits) {
    GraphInputs inputs;
    for (const auto& commit : commits)
        inputs.store->append(commit);
    inputs.nodes.reserve(commits.size());
    for (std::size_t index = 0; index < inputs.store->size(); ++index)
        inputs.nodes.push_back({inputs.store->hash(index), inputs.store->parents(index)});
    return inputs;
}

} // namespace orvel::bench
