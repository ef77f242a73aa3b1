#include "graph/RefSpreading.h"

#include <algorithm>

namespace orvel {

void RefSpreading::append(const CommitStore& store, std::size_t first, int rowOffset,
                          std::deque<std::vector<RowRef>>& refsByRow) {
    refsByRow.resize(store.size() + static_cast<std::size_t>(rowOffset));
    std::vector<Fade> stillOpen;
    // Goes down the first-parent line from `hash`; a parent beyond the rows keeps the fade open.
    const auto follow = [&](const GraphRef* ref, std::string_view hash, int step) {
        const bool isTag = ref->type == GraphRefType::tag;
        const int bound = isTag ? tagFadeRows : branchFadeRows;
        const double floor = isTag ? tagOpacityFloor : 0.0;
        for (; step < bound; ++step) {
            const auto index = store.find(hash);
            if (!index) {
                stillOpen.push_back({ref, std::string(hash), step});
                return;
            }
            const double opacity = std::max(1.0 - opacityStep * step, floor);
            if (opacity <= 0.0)
                return;
            if (*index < first) // a parent above its child: not a history in git's order
                return;
            refsByRow[*index + static_cast<std::size_t>(rowOffset)].push_back({ref, opacity});
            hash = store.firstParent(*index);
            if (hash.empty())
                return;
        }
    };
    for (const Fade& fade : open_)
        follow(fade.ref, fade.hash, fade.step);
    for (std::size_t index = first; index < store.size(); ++index) {
        for (const GraphRef& ref : store.refs(index))
            follow(&ref, store.hash(index), 0);
    }
    open_ = std::move(stillOpen);
}

} // namespace orvel
