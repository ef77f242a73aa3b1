// Which rows show each ref pill, and how faintly. A ref shows at full strength on its own commit
// and fades down that commit's first-parent line: a branch for ten rows, a tag for two hundred
// with a faint floor, so that the rows below a tip still tell which line they belong to.
#pragma once

#include "graph/CommitStore.h"
#include "graph/RowRef.h"

#include <deque>
#include <string>
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
    // Spreads the refs of the commits of `store` from `first` on, whose rows are their indexes plus
    // `rowOffset`; `refsByRow` holds the lists of the rows above them. Adds one list a row, with the
    // refs of every commit in row order and each commit's refs in their own order. The pills point
    // into the store's refs, which stay in place while commits are added.
    void append(const CommitStore& store, std::size_t first, int rowOffset,
                std::deque<std::vector<RowRef>>& refsByRow);

  private:
    // A fade that reached a commit without a row yet.
    struct Fade {
        const GraphRef* ref = nullptr;
        std::string hash;
        int step = 0;
    };

    std::vector<Fade> open_; // in the order of the rows they started on
};

} // namespace orvel
