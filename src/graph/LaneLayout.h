// Lays the commits of a graph load out in lanes, in one pass from the top row down, with no
// look-ahead: commits come in `git log --topo-order` order, children above parents. The pass keeps
// its state between pages, so a history laid out a page at a time draws as one laid out whole.
#pragma once

#include "core/support/TextHash.h"
#include "graph/CommitRow.h"
#include "graph/DAGNode.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace orvel {

// The state of a layout pass between rows. It owns the hashes it waits for, which are few (one a
// column), so that the nodes of a page need not outlive the page.
struct LaneLayoutState {
    // A column is active while a line runs in it towards a commit not yet reached.
    struct ActiveLane {
        std::string expectedHash;
        int colour = 0;
    };
    // activeLanes, indexed by column; an empty slot is a free column.
    std::vector<std::optional<ActiveLane>> activeLanes;
    // The inverse of activeLanes: the columns that wait for a hash, ascending. A hash has an
    // entry only while it has columns.
    std::unordered_map<std::string, std::vector<int>, TextHash, std::equal_to<>> waitingLanes;
    // Counts every column that was opened; the colour of the next one is this modulo 8.
    int nextColor = 0;
    // Whether each column was active after the previous row.
    std::vector<char> previousActive;

    int firstFreeLane() const;
    bool isActive(int column) const {
        return column >= 0 && static_cast<std::size_t>(column) < activeLanes.size() &&
               activeLanes[column].has_value();
    }
    void assignLane(int column, std::string_view hash, int colour);
    void releaseLane(int column);
    bool wasActive(int column) const {
        return column >= 0 && static_cast<std::size_t>(column) < previousActive.size() &&
               previousActive[column];
    }
};

inline constexpr int laneColourCount = 8;

// A layout pass that goes on from where its previous page ended.
class LaneLayout {
  public:
    // One row per node, in the same order, for the nodes that follow those already laid out.
    std::vector<CommitRow> append(const std::vector<DAGNode>& nodes);

  private:
    LaneLayoutState state_;
};

// The rows of `nodes` laid out in one pass from the first.
std::vector<CommitRow> layoutCommitRows(const std::vector<DAGNode>& nodes);

} // namespace orvel
