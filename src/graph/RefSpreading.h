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

// `rows` are the commits in row order, `rowOfHash` their rows by hash. Answers one list a row,
// with the refs of every commit in row order and each commit's refs in their own order.
std::vector<std::vector<RowRef>> spreadRefs(const std::vector<const GraphCommit*>& rows,
                                            const std::unordered_map<std::string_view, int>& rowOfHash);

} // namespace orvel
