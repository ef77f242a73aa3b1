// The lane layout on small histories whose rows are known by hand: the worked merge, tips that
// share a parent, colours that wrap, octopus merges and loads cut off below a merge.
#include "graph/LaneLayout.h"

#include <gtest/gtest.h>

using namespace orvel;

namespace {

std::vector<CommitRow> layout(const std::vector<DAGNode>& nodes) {
    return layoutCommitRows(nodes);
}

// A lane as drawn: the row's curves belong to its node lane.
struct Lane {
    int index = 0;
    int colour = 0;
    bool hasNode = false;
    bool lineUp = false;
    bool lineDown = false;
    std::vector<int> mergesFrom;
    std::vector<int> branchesTo;

    bool operator==(const Lane&) const = default;
};

std::vector<Lane> lanesOf(const CommitRow& row) {
    std::vector<Lane> lanes;
    for (const GraphLane& lane : row.lanes) {
        Lane& drawn = lanes.emplace_back(Lane{lane.index, lane.colorIndex, lane.hasNode, lane.lineUp, lane.lineDown, {}, {}});
        if (lane.hasNode) {
            drawn.mergesFrom = row.mergesFrom.toVector();
            drawn.branchesTo = row.branchesTo.toVector();
        }
    }
    return lanes;
}

Lane node(int index, int colour, bool up, bool down, std::vector<int> mergesFrom = {},
          std::vector<int> branchesTo = {}) {
    return {index, colour, true, up, down, std::move(mergesFrom), std::move(branchesTo)};
}

Lane line(int index, int colour, bool up, bool down) {
    return {index, colour, false, up, down, {}, {}};
}

} // namespace

TEST(LaneLayoutRows, MergeOfABranchThatLeftTheSameBase) {
    const auto rows = layout({{"M", {"A", "B"}}, {"B", {"A"}}, {"A", {}}});
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(lanesOf(rows[0]),
              (std::vector<Lane>{node(0, 0, false, true, {1}), line(1, 1, false, false)}));
    EXPECT_EQ(rows[0].activeLane, 0);
    EXPECT_EQ(lanesOf(rows[1]), (std::vector<Lane>{line(0, 0, true, true), node(1, 1, true, true)}));
    EXPECT_EQ(rows[1].activeLane, 1);
    EXPECT_EQ(lanesOf(rows[2]),
              (std::vector<Lane>{node(0, 0, true, false, {}, {1}), line(1, 1, false, false)}));
    EXPECT_EQ(rows[2].activeLane, 0);
}

TEST(LaneLayoutRows, EmptyInputSingleRootAndLinearHistory) {
    EXPECT_TRUE(layout({}).empty());
    const auto single = layout({{"R", {}}});
    ASSERT_EQ(single.size(), 1u);
    EXPECT_EQ(lanesOf(single[0]), (std::vector<Lane>{node(0, 0, false, false)}));

    const auto linear = layout({{"e", {"d"}}, {"d", {"c"}}, {"c", {"b"}}, {"b", {"a"}}, {"a", {}}});
    for (std::size_t i = 0; i < linear.size(); ++i) {
        EXPECT_EQ(lanesOf(linear[i]), (std::vector<Lane>{node(0, 0, i != 0, i != linear.size() - 1)})) << i;
    }
}

TEST(LaneLayoutRows, TipsSharingAParentJoinAtTheParentAndFreeTheirColumn) {
    const auto rows = layout({{"T1", {"P"}}, {"T2", {"P"}}, {"P", {"R"}}, {"T3", {"R"}}, {"R", {}}});
    EXPECT_EQ(lanesOf(rows[1]), (std::vector<Lane>{line(0, 0, true, true), node(1, 1, false, true)}));
    EXPECT_EQ(lanesOf(rows[2]),
              (std::vector<Lane>{node(0, 0, true, true, {}, {1}), line(1, 1, false, false)}));
    // The freed column is the first free one for the next tip, which gets the next colour.
    EXPECT_EQ(lanesOf(rows[3]), (std::vector<Lane>{line(0, 0, true, true), node(1, 2, false, true)}));
    EXPECT_EQ(lanesOf(rows[4]),
              (std::vector<Lane>{node(0, 0, true, false, {}, {1}), line(1, 2, false, false)}));
}

TEST(LaneLayoutRows, ColoursWrapAfterEightOpenedColumns) {
    // The nodes view their names.
    std::vector<std::string> names;
    for (int i = 0; i < 9; ++i) {
        names.push_back("tip" + std::to_string(i));
        names.push_back("unloaded" + std::to_string(i));
    }
    std::vector<DAGNode> tips;
    for (int i = 0; i < 9; ++i)
        tips.push_back({names[2 * i], {names[2 * i + 1]}});
    const auto rows = layout(tips);
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(rows[i].activeLane, i);
        EXPECT_EQ(rows[i].lanes[i].colorIndex, i % 8);
    }
    // Lines to parents outside the load run out of the bottom.
    for (const auto& lane : rows.back().lanes)
        EXPECT_TRUE(lane.lineDown);
}

TEST(LaneLayoutRows, OctopusMergeOpensOneColumnPerFurtherParentInOrder) {
    const auto rows =
        layout({{"O", {"A", "B", "C", "D"}}, {"D", {"A"}}, {"C", {"A"}}, {"B", {"A"}}, {"A", {}}});
    EXPECT_EQ(rows[0].mergesFrom.toVector(), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(rows[0].lanes.size(), 4u);
    EXPECT_EQ(rows[1].activeLane, 3);
    EXPECT_EQ(rows[2].activeLane, 2);
    EXPECT_EQ(rows[3].activeLane, 1);
    EXPECT_EQ(lanesOf(rows[4])[0], node(0, 0, true, false, {}, {1, 2, 3}));
}

TEST(LaneLayoutRows, MergeIntoAColumnThatAlreadyRunsTowardsTheParent) {
    // T's line runs towards B, so M's second parent curves into it and nothing opens.
    const auto rows = layout({{"T", {"B"}}, {"M", {"A", "B"}}, {"B", {"A"}}, {"A", {}}});
    EXPECT_EQ(lanesOf(rows[1]), (std::vector<Lane>{line(0, 0, true, true), node(1, 1, false, true, {0})}));
    EXPECT_EQ(lanesOf(rows[2]), (std::vector<Lane>{node(0, 0, true, true), line(1, 1, true, true)}));
}

TEST(LaneLayoutRows, SameParentTwiceOpensASecondColumn) {
    const auto rows = layout({{"X", {"P", "P"}}, {"P", {}}});
    EXPECT_EQ(lanesOf(rows[0]),
              (std::vector<Lane>{node(0, 0, false, true, {1}), line(1, 1, false, false)}));
    EXPECT_EQ(lanesOf(rows[1]),
              (std::vector<Lane>{node(0, 0, true, false, {}, {1}), line(1, 1, false, false)}));
}

TEST(LaneLayoutRows, ClosedColumnReopenedInTheSameRowIsListedOnceWithItsNewColour) {
    const auto rows = layout({{"T1", {"P"}}, {"T2", {"P"}}, {"P", {"Q", "R"}}});
    EXPECT_EQ(lanesOf(rows[2]),
              (std::vector<Lane>{node(0, 0, true, true, {1}, {1}), line(1, 2, false, false)}));
}

TEST(LaneLayoutRows, LoadCutOffBelowAMergeLeavesLinesRunning) {
    const auto rows = layout({{"M", {"A", "B"}}, {"C", {"X"}}});
    EXPECT_EQ(lanesOf(rows[1]), (std::vector<Lane>{line(0, 0, true, true), line(1, 1, true, true),
                                                     node(2, 2, false, true)}));
}

TEST(LaneLayoutRows, WorkingTreeRowJoinsHeadsColumn) {
    const auto rows = layout({{"wip", {"H"}}, {"H", {"P"}}, {"P", {}}});
    EXPECT_EQ(lanesOf(rows[0]), (std::vector<Lane>{node(0, 0, false, true)}));
    EXPECT_EQ(lanesOf(rows[1]), (std::vector<Lane>{node(0, 0, true, true)}));
}

TEST(LaneLayoutRows, DuplicateHashStartsANewColumn) {
    const auto rows = layout({{"A", {}}, {"A", {}}, {"B", {"C"}}});
    EXPECT_EQ(lanesOf(rows[1]), (std::vector<Lane>{node(0, 1, false, false)}));
    EXPECT_EQ(lanesOf(rows[2]), (std::vector<Lane>{node(0, 2, false, true)}));
}
