#include "graph/RefSpreading.h"

#include <algorithm>

namespace orvel {

void RefSpreading::append(const std::vector<const GraphCommit*>& page,
                          const std::unordered_map<std::string_view, int>& rowOfHash,
                          std::vector<std::vector<RowRef>>& refsByRow) {
    const std::size_t firstRow = refsByRow.size();
    refsByRow.resize(firstRow + page.size());
    std::vector<Fade> stillOpen;
    // Goes down the first-parent line from `fade`; a parent beyond the rows keeps it open.
    const auto follow = [&](Fade fade) {
        const bool isTag = fade.ref->type == GraphRefType::tag;
        const int bound = isTag ? tagFadeRows : branchFadeRows;
        const double floor = isTag ? tagOpacityFloor : 0.0;
        for (; fade.step < bound; ++fade.step) {
            const auto found = rowOfHash.find(fade.hash);
            if (found == rowOfHash.end()) {
                stillOpen.push_back(fade);
                return;
            }
            const double opacity = std::max(1.0 - opacityStep * fade.step, floor);
            if (opacity <= 0.0)
                return;
            const auto row = static_cast<std::size_t>(found->second);
            if (row < firstRow) // a parent above its child: not a history in git's order
                return;
            refsByRow[row].push_back({fade.ref, opacity});
            const GraphCommit& onRow = *page[row - firstRow];
            if (onRow.parentHashes.empty())
                return;
            fade.hash = onRow.parentHashes.front();
        }
    };
    for (const Fade& fade : open_)
        follow(fade);
    for (const GraphCommit* commit : page) {
        for (const GraphRef& ref : commit->refs)
            follow({&ref, commit->hash, 0});
    }
    open_ = std::move(stillOpen);
}

} // namespace orvel
