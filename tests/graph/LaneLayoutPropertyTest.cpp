// The lane layout over many random histories, checked against properties any drawing relies on:
// lines continue from row to row in their column and colour, every parent edge of a loaded
// parent is drawn along one unbroken path, colours follow the order columns were opened in, and
// no column appears twice in a row.
#include "graph/LaneLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <map>
#include <random>
#include <set>

using namespace orvel;

namespace {

// The layout's nodes view their hashes: the names live here for the whole test run.
std::string_view kept(std::string name) {
    static std::deque<std::string> names;
    return names.emplace_back(std::move(name));
}

// A random history listed children first: commit n may only have parents below n, so listing
// from the newest down is a topological order. Roots, merges, octopus merges and duplicate
// parents all occur; a cut keeps only the newest rows, as a limited load does.
std::vector<DAGNode> randomHistory(std::mt19937& random, int count) {
    std::vector<std::vector<int>> parents(static_cast<std::size_t>(count));
    for (int n = 1; n < count; ++n) {
        std::uniform_int_distribution<int> older(std::max(0, n - 40), n - 1);
        const int roll = std::uniform_int_distribution<int>(0, 99)(random);
        int parentCount = roll < 4    ? 0
                          : roll < 72 ? 1
                          : roll < 95 ? 2
                                      : std::uniform_int_distribution<int>(3, 5)(random);
        for (int p = 0; p < parentCount; ++p)
            parents[n].push_back(roll == 50 && p == 1 ? parents[n][0] : older(random));
    }
    std::vector<DAGNode> nodes;
    for (int n = count - 1; n >= 0; --n) {
        DAGNode node{kept("c" + std::to_string(n)), {}};
        for (const int parent : parents[n])
            node.parents.push_back(kept("c" + std::to_string(parent)));
        nodes.push_back(std::move(node));
    }
    // A real load sorts children before parents but interleaves branches; a few swaps of
    // unrelated neighbours keep the order topological while mixing it.
    for (int swaps = 0; count > 1 && swaps < count; ++swaps) {
        const auto i = std::uniform_int_distribution<std::size_t>(0, nodes.size() - 2)(random);
        const auto& above = nodes[i].parents;
        if (std::find(above.begin(), above.end(), nodes[i + 1].hash) == above.end())
            std::swap(nodes[i], nodes[i + 1]);
    }
    const int cut = std::uniform_int_distribution<int>(count / 2, count)(random);
    nodes.resize(static_cast<std::size_t>(cut));
    return nodes;
}

bool contains(const ColumnList& columns, int column) {
    return std::find(columns.begin(), columns.end(), column) != columns.end();
}

const GraphLane* laneAt(const CommitRow& row, int column) {
    for (const auto& lane : row.lanes) {
        if (lane.index == column)
            return &lane;
    }
    return nullptr;
}

const GraphLane& nodeLaneOf(const CommitRow& row) {
    const GraphLane* lane = laneAt(row, row.activeLane);
    EXPECT_TRUE(lane && lane->hasNode);
    return *lane;
}

void checkHistory(const std::vector<DAGNode>& nodes) {
    const auto rows = layoutCommitRows(nodes);
    ASSERT_EQ(rows.size(), nodes.size());
    std::map<std::string, std::size_t, std::less<>> rowOf;
    for (std::size_t r = 0; r < nodes.size(); ++r)
        rowOf.emplace(nodes[r].hash, r);

    int opened = 0;
    std::set<std::pair<std::size_t, int>> covered; // (row, column) segments below a row's centre
    for (std::size_t r = 0; r < rows.size(); ++r) {
        const CommitRow& row = rows[r];
        // Columns are unique and ascending, and exactly one lane holds the node.
        for (std::size_t i = 1; i < row.lanes.size(); ++i)
            ASSERT_LT(row.lanes[i - 1].index, row.lanes[i].index) << "row " << r;
        ASSERT_EQ(
            std::count_if(row.lanes.begin(), row.lanes.end(), [](const GraphLane& l) { return l.hasNode; }),
            1);
        const GraphLane& nodeLane = nodeLaneOf(row);
        ASSERT_EQ(nodeLane.lineDown, !nodes[r].parents.empty());
        ASSERT_EQ(row.mergesFrom.size(), nodes[r].parents.empty() ? 0 : nodes[r].parents.size() - 1);

        // Colours: a node without a line from above opened its column, and merge parents that
        // open a column follow in parent order; each takes the next colour in the cycle.
        if (!nodeLane.lineUp) {
            ASSERT_EQ(nodeLane.colorIndex, opened % 8) << "row " << r;
            ++opened;
        }
        std::set<int> openedInRow; // a later parent equal to an earlier one joins its new column
        for (const int column : row.mergesFrom) {
            const GraphLane* target = laneAt(row, column);
            ASSERT_TRUE(target) << "row " << r;
            ASSERT_NE(column, row.activeLane);
            if (!target->lineDown && openedInRow.insert(column).second) {
                ASSERT_EQ(target->colorIndex, opened % 8) << "row " << r;
                ++opened;
            }
        }

        // Every line leaving downward arrives in the next row, same column, same colour: as a
        // line from above, or as a column that ends there and curves into the node (whose colour
        // only a column reopened in that row for a merge replaces). A line arriving from above
        // left the previous row downward or was opened there by a merge.
        if (r + 1 < rows.size()) {
            for (const auto& lane : row.lanes) {
                const GraphLane* below = laneAt(rows[r + 1], lane.index);
                const bool opensHere =
                    contains(row.mergesFrom, lane.index) && !lane.lineDown && !lane.hasNode;
                if (!lane.lineDown && !opensHere)
                    continue;
                const bool endsBelow = contains(rows[r + 1].branchesTo, lane.index);
                ASSERT_TRUE(below && (below->lineUp || endsBelow)) << "row " << r << " column " << lane.index;
                if (!(endsBelow && contains(rows[r + 1].mergesFrom, lane.index)))
                    ASSERT_EQ(below->colorIndex, lane.colorIndex) << "row " << r << " column " << lane.index;
            }
            for (const auto& lane : rows[r + 1].lanes) {
                if (!lane.lineUp && !contains(rows[r + 1].branchesTo, lane.index))
                    continue;
                const GraphLane* above = laneAt(row, lane.index);
                ASSERT_TRUE(above) << "row " << r + 1 << " column " << lane.index;
                ASSERT_TRUE(above->lineDown || contains(row.mergesFrom, lane.index))
                    << "row " << r + 1 << " column " << lane.index;
            }
        }

        // Each parent edge follows its column down through rows that pass it on, and ends at the
        // parent's row, in the node or in a column that branches off there; an edge to a parent
        // outside the load runs out of the bottom.
        for (std::size_t p = 0; p < nodes[r].parents.size(); ++p) {
            const std::string_view parent = nodes[r].parents[p];
            const auto parentRow = rowOf.find(parent);
            int column = p == 0 ? row.activeLane : row.mergesFrom[p - 1];
            std::size_t s = r + 1;
            covered.insert({r, column});
            for (; s < rows.size(); ++s) {
                const GraphLane* lane = laneAt(rows[s], column);
                ASSERT_TRUE(lane) << "edge " << nodes[r].hash << "->" << parent << " broken at row " << s;
                if ((lane->hasNode && lane->lineUp) || contains(rows[s].branchesTo, column))
                    break;
                ASSERT_TRUE(lane->lineUp) << "edge " << nodes[r].hash << "->" << parent << " broken at row " << s;
                ASSERT_TRUE(lane->lineDown) << "edge " << nodes[r].hash << "->" << parent << " ends at row " << s;
                covered.insert({s, column});
            }
            if (parentRow != rowOf.end() && parentRow->second > r) {
                ASSERT_EQ(s, parentRow->second) << "edge " << nodes[r].hash << "->" << parent;
            } else {
                ASSERT_EQ(s, rows.size()) << "edge to unloaded " << parent << " stopped";
            }
        }
    }
    // No line is drawn that carries no edge.
    for (std::size_t r = 0; r < rows.size(); ++r) {
        for (const auto& lane : rows[r].lanes) {
            if (lane.lineDown)
                EXPECT_TRUE(covered.count({r, lane.index})) << "row " << r << " column " << lane.index;
        }
    }
}

} // namespace

TEST(LaneLayoutProperties, HoldForManyRandomHistories) {
    std::mt19937 random(20260101);
    for (int round = 0; round < 400; ++round) {
        const int count = std::uniform_int_distribution<int>(1, round < 300 ? 40 : 400)(random);
        const auto nodes = randomHistory(random, count);
        SCOPED_TRACE("round " + std::to_string(round) + " with " + std::to_string(nodes.size()) + " commits");
        checkHistory(nodes);
        if (HasFatalFailure())
            return;
    }
}

TEST(LaneLayoutProperties, HoldForWideHistoriesWithManyTips) {
    std::mt19937 random(7);
    std::vector<DAGNode> nodes;
    // Forty branch tips that all come back to a shared trunk, newest first.
    for (int tip = 0; tip < 40; ++tip)
        nodes.push_back({kept("tip" + std::to_string(tip)), {kept("trunk" + std::to_string(tip % 10))}});
    for (int trunk = 0; trunk < 10; ++trunk)
        nodes.push_back({kept("trunk" + std::to_string(trunk)),
                         {kept("trunk" + std::to_string(trunk + 1)), kept("side" + std::to_string(trunk))}});
    for (int side = 0; side < 10; ++side)
        nodes.push_back({kept("side" + std::to_string(side)), {"trunk10"}});
    nodes.push_back({"trunk10", {}});
    checkHistory(nodes);
}
