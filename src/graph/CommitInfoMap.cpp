#include "graph/CommitInfoMap.h"

#include <functional>

namespace orvel {

namespace {

std::size_t hashCode(std::string_view hash) {
    return std::hash<std::string_view>{}(hash);
}

} // namespace

CommitInfoMap::CommitInfoMap(std::initializer_list<std::pair<std::string, CommitInfo>> entries) {
    reserve(entries.size());
    for (const auto& [hash, info] : entries)
        emplace(hash, info);
}

void CommitInfoMap::reserve(std::size_t count) {
    entries_.reserve(count);
    if (count * 2 > slots_.size()) {
        std::size_t slotCount = 16;
        while (slotCount < count * 2)
            slotCount *= 2;
        rebuildIndex(slotCount);
    }
}

// The slot that holds `hash`, or the free slot where it would go.
std::size_t CommitInfoMap::slotOf(std::string_view hash, std::size_t code) const {
    const std::size_t mask = slots_.size() - 1;
    const auto bits = static_cast<std::uint32_t>(code >> 32);
    for (std::size_t slot = code & mask;; slot = (slot + 1) & mask) {
        const Slot& candidate = slots_[slot];
        if (candidate.entry == 0 ||
            (candidate.hashBits == bits && entries_[candidate.entry - 1].first == hash))
            return slot;
    }
}

void CommitInfoMap::rebuildIndex(std::size_t slotCount) {
    slots_.assign(slotCount, Slot{});
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const std::size_t code = hashCode(entries_[i].first);
        slots_[slotOf(entries_[i].first, code)] = {static_cast<std::uint32_t>(i + 1),
                                                   static_cast<std::uint32_t>(code >> 32)};
    }
}

bool CommitInfoMap::emplace(std::string hash, CommitInfo info) {
    if ((entries_.size() + 1) * 2 > slots_.size())
        rebuildIndex(slots_.empty() ? 16 : slots_.size() * 2);
    const std::size_t code = hashCode(hash);
    const std::size_t slot = slotOf(hash, code);
    if (slots_[slot].entry != 0)
        return false;
    entries_.emplace_back(std::move(hash), std::move(info));
    slots_[slot] = {static_cast<std::uint32_t>(entries_.size()), static_cast<std::uint32_t>(code >> 32)};
    return true;
}

const CommitInfo* CommitInfoMap::find(std::string_view hash) const {
    if (slots_.empty())
        return nullptr;
    const Slot& slot = slots_[slotOf(hash, hashCode(hash))];
    return slot.entry == 0 ? nullptr : &entries_[slot.entry - 1].second;
}

} // namespace orvel
