#include "graph/ui/GraphCellCache.h"

#include <QHashFunctions>

namespace orvel {

namespace {

std::size_t bytesOf(const QPixmap& cell) {
    return static_cast<std::size_t>(cell.width()) * static_cast<std::size_t>(cell.height()) * 4;
}

} // namespace

std::size_t GraphCellCache::KeyHash::operator()(const Key& key) const noexcept {
    return qHashMulti(0, key.row, key.column, key.width, key.height, key.selected, key.devicePixelRatio);
}

const QPixmap* GraphCellCache::find(const Key& key) {
    const auto found = index_.find(key);
    if (found == index_.end())
        return nullptr;
    entries_.splice(entries_.begin(), entries_, found->second);
    return &found->second->second;
}

void GraphCellCache::insert(const Key& key, QPixmap cell) {
    if (const auto found = index_.find(key); found != index_.end()) {
        bytes_ -= bytesOf(found->second->second);
        entries_.erase(found->second);
        index_.erase(found);
    }
    bytes_ += bytesOf(cell);
    entries_.emplace_front(key, std::move(cell));
    index_.emplace(key, entries_.begin());
    while (bytes_ > byteLimit_ && entries_.size() > 1) {
        bytes_ -= bytesOf(entries_.back().second);
        index_.erase(entries_.back().first);
        entries_.pop_back();
    }
}

void GraphCellCache::clear() {
    entries_.clear();
    index_.clear();
    bytes_ = 0;
}

} // namespace orvel
