// Which rows show each ref pill, and how faintly. A ref shows at full strength on its own commit
// and fades down that commit's first-parent line: a branch for ten rows, a tag for two hundred
// with a faint floor, so that the rows below a tip still tell which line they belong to.
#pragma once

#include "core/records/GraphCommit.h"
#include "graph/RowRef.h"

#include <string_view>
#include <unordered_map>
#include <vector>

namespace orvel {

inline constexpr int branchFadeRows = 10;
inline constexpr int tagFadeRows = 200;
inline constexpr double tagOpacityFloor = 0.05;
inline constexpr double opacityStep = 0.1;

// Spreads the pills a page at a time, as the rows arrive: a page's own refs, and the fades from
// rows above that ran out at the previous page's end, so that the pills of rows spread in pages are
// those of the rows spread at once and a page costs only its own rows.
class RefSpreading {
  public:
    // `page` are the commits of the rows from refsByRow.size() on, in row order, and `rowOfHash`
    // the rows of every loaded commit by hash. Adds one list a row to `refsByRow`, with the refs of
    // every commit in row order and each commit's refs in their own order. The pills point into the
    // commits' refs, and the fades left open view their hashes: the commits must stay in place.
    void append(const std::vector<const GraphCommit*>& page, const std::unordered_map<std::string_view, int>& rowOfHash,
                std::vector<std::vector<RowRef>>& refsByRow);

  private:
    // A fade that reached a commit without a row yet.
    struct Fade {
        const GraphRef* ref = nullptr;
        std::string_view hash;
        int step = 0;
    };

    std::vector<Fade> open_; // in the order of the rows they started on
};

} // namespace orvel
