#include "graph/RefSpreading.h"

#include <algorithm>

namespace orvel {

std::vector<std::vector<RowRef>> spreadRefs(const std::vector<const GraphCommit*>& rows,
                                            const std::unordered_map<std::string_view, int>& rowOfHash) {
    std::vector<std::vector<RowRef>> refsByRow(rows.size());
    const int rowCount = static_cast<int>(rows.size());
    for (const GraphCommit* commit : rows) {
        for (const GraphRef& ref : commit->refs) {
            const bool isTag = ref.type == GraphRefType::tag;
            const int bound = isTag ? std::min(rowCount, tagFadeRows) : branchFadeRows;
            const double floor = isTag ? tagOpacityFloor : 0.0;
            std::string_view hash = commit->hash;
            for (int step = 0; step < bound; ++step) {
                const auto found = rowOfHash.find(hash);
                if (found == rowOfHash.end())
                    break;
                const double opacity = std::max(1.0 - opacityStep * step, floor);
                if (opacity <= 0.0)
                    break;
                refsByRow[found->second].push_back({ref, opacity});
                const GraphCommit& onRow = *rows[found->second];
                if (onRow.parentHashes.empty())
                    break;
                hash = onRow.parentHashes.front();
            }
        }
    }
    return refsByRow;
}

} // namespace orvel
