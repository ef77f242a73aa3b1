#include "graph/LaneLayout.h"

#include <algorithm>
#include <cassert>

namespace orvel {

namespace {

bool contains(const std::vector<int>& columns, int column) {
    return std::find(columns.begin(), columns.end(), column) != columns.end();
}

void removeWaiting(decltype(LaneLayoutState::waitingLanes)& waitingLanes, std::string_view hash, int column) {
    const auto entry = waitingLanes.find(hash);
    if (entry == waitingLanes.end())
        return;
    std::erase(entry->second, column);
    if (entry->second.empty())
        waitingLanes.erase(entry);
}

} // namespace

int LaneLayoutState::firstFreeLane() const {
    for (std::size_t column = 0; column < activeLanes.size(); ++column) {
        if (!activeLanes[column])
            return static_cast<int>(column);
    }
    return static_cast<int>(activeLanes.size());
}

void LaneLayoutState::assignLane(int column, std::string_view hash, int colour) {
    if (isActive(column))
        removeWaiting(waitingLanes, activeLanes[column]->expectedHash, column);
    if (static_cast<std::size_t>(column) >= activeLanes.size())
        activeLanes.resize(static_cast<std::size_t>(column) + 1);
    activeLanes[column] = ActiveLane{std::string(hash), colour};
    auto entry = waitingLanes.find(hash);
    if (entry == waitingLanes.end())
        entry = waitingLanes.emplace(std::string(hash), std::vector<int>()).first;
    auto& columns = entry->second;
    columns.insert(std::upper_bound(columns.begin(), columns.end(), column), column);
}

void LaneLayoutState::releaseLane(int column) {
    if (!isActive(column))
        return;
    removeWaiting(waitingLanes, activeLanes[column]->expectedHash, column);
    activeLanes[column].reset();
    // Free columns at the right end are dropped, so that scans stop at the last active one.
    while (!activeLanes.empty() && !activeLanes.back())
        activeLanes.pop_back();
}

std::vector<CommitRow> layoutCommitRows(const std::vector<DAGNode>& nodes) {
    return LaneLayout().append(nodes);
}

std::vector<CommitRow> LaneLayout::append(const std::vector<DAGNode>& nodes) {
    std::vector<CommitRow> rows;
    rows.reserve(nodes.size());
    LaneLayoutState& state = state_;
    std::vector<int> waiting;
    std::vector<std::pair<int, int>> closed; // column, colour
    std::vector<int> newLanes;

    for (const DAGNode& node : nodes) {
        // 1. The columns that expected this commit, lowest first.
        waiting.clear();
        if (const auto found = state.waitingLanes.find(node.hash); found != state.waitingLanes.end())
            waiting = found->second;

        // 2. The node takes the leftmost of them and its colour, or opens a column as a tip.
        int lane = 0;
        int colour = 0;
        if (waiting.empty()) {
            lane = state.firstFreeLane();
            colour = state.nextColor % laneColourCount;
            state.assignLane(lane, node.hash, colour);
            ++state.nextColor;
        } else {
            lane = waiting.front();
            assert(state.isActive(lane));
            colour = state.activeLanes[lane]->colour;
        }
        GraphLane nodeLane;
        nodeLane.index = static_cast<std::int16_t>(lane);
        nodeLane.colorIndex = static_cast<std::uint8_t>(colour);
        nodeLane.hasNode = true;
        nodeLane.lineUp = state.wasActive(lane);
        nodeLane.lineDown = !node.parents.empty();

        CommitRow row;

        // 3. The other columns that reached this commit end here: children that branched off it.
        closed.clear();
        for (std::size_t i = 1; i < waiting.size(); ++i) {
            const int column = waiting[i];
            assert(state.isActive(column));
            row.branchesTo.push_back(column);
            closed.emplace_back(column, state.activeLanes[column]->colour);
            state.releaseLane(column);
        }

        // 4. The first parent continues in the node's column with its colour.
        if (node.parents.empty())
            state.releaseLane(lane);
        else
            state.assignLane(lane, node.parents.front(), colour);

        // 5. Further parents join a column that already runs towards them, or open one.
        newLanes.clear();
        for (std::size_t i = 1; i < node.parents.size(); ++i) {
            const std::string_view parent = node.parents[i];
            int target = -1;
            if (const auto found = state.waitingLanes.find(parent); found != state.waitingLanes.end()) {
                for (const int column : found->second) {
                    if (column != lane) {
                        target = column;
                        break;
                    }
                }
            }
            if (target < 0) {
                target = state.firstFreeLane();
                state.assignLane(target, parent, state.nextColor % laneColourCount);
                ++state.nextColor;
                newLanes.push_back(target);
            }
            row.mergesFrom.push_back(target);
        }

        // 6 to 9. The node lane, every other active column, and the closed ones for their
        // colours, built in column order. A closed column that is active again was reopened
        // for a merge parent in this row and is listed once, as the new column.
        row.activeLane = lane;
        int lastClosed = -1;
        for (const auto& entry : closed)
            lastClosed = std::max(lastClosed, entry.first);
        const int width = std::max({static_cast<int>(state.activeLanes.size()), lastClosed + 1, lane + 1});
        row.lanes.reserve(static_cast<std::size_t>(width));
        for (int column = 0; column < width; ++column) {
            if (column == lane) {
                row.lanes.push_back(nodeLane);
            } else if (state.isActive(column)) {
                GraphLane& passing = row.lanes.emplace_back();
                passing.index = static_cast<std::int16_t>(column);
                passing.colorIndex = static_cast<std::uint8_t>(state.activeLanes[column]->colour);
                // A column opened in this row has no vertical line here: its line starts below.
                const bool opened = !newLanes.empty() && contains(newLanes, column);
                passing.lineUp = !opened && state.wasActive(column);
                passing.lineDown = !opened;
            } else if (column <= lastClosed) {
                for (const auto& [closedColumn, closedColour] : closed) {
                    if (closedColumn != column)
                        continue;
                    GraphLane& ended = row.lanes.emplace_back();
                    ended.index = static_cast<std::int16_t>(column);
                    ended.colorIndex = static_cast<std::uint8_t>(closedColour);
                }
            }
        }
        rows.push_back(std::move(row));

        // 11. What the next row sees as lines coming from above.
        state.previousActive.resize(state.activeLanes.size());
        for (std::size_t column = 0; column < state.activeLanes.size(); ++column)
            state.previousActive[column] = state.activeLanes[column].has_value();
    }
    return rows;
}

} // namespace orvel
