// The display texts of a graph load by commit hash. The layout looks up every row, and over a long
// history a node-based hash map spends most of the layout's time on cache misses; this one keeps
// the texts in one array, in the order they were added, with an open-addressed index over it.
#pragma once

#include "graph/CommitInfo.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvel {

class CommitInfoMap {
  public:
    CommitInfoMap() = default;
    CommitInfoMap(std::initializer_list<std::pair<std::string, CommitInfo>> entries);

    void reserve(std::size_t count);
    // Keeps the texts first given for a hash; answers whether these were added.
    bool emplace(std::string hash, CommitInfo info);
    const CommitInfo* find(std::string_view hash) const;
    std::size_t size() const { return entries_.size(); }

  private:
    struct Slot {
        std::uint32_t entry = 0; // index into entries_ plus one; 0 marks a free slot
        std::uint32_t hashBits = 0;
    };

    void rebuildIndex(std::size_t slotCount);
    std::size_t slotOf(std::string_view hash, std::size_t code) const;

    std::vector<std::pair<std::string, CommitInfo>> entries_;
    std::vector<Slot> slots_; // a power of two in size, at most half full
};

} // namespace orvel
