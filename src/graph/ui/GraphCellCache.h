// The graph table's painted cells, kept as pixmaps so that a repaint of rows already seen (a
// selection change, a hover, a scroll back) copies pixels instead of stroking curves and shaping
// text again. Least recently used cells go first once the byte limit is reached.
#pragma once

#include <QPixmap>

#include <cstddef>
#include <list>
#include <unordered_map>

namespace orvel {

class GraphCellCache {
  public:
    struct Key {
        int row = 0;
        int column = 0;
        int width = 0;
        int height = 0;
        bool selected = false;
        qreal devicePixelRatio = 1;

        bool operator==(const Key&) const = default;
    };

    explicit GraphCellCache(std::size_t byteLimit) : byteLimit_(byteLimit) {}

    // The cell painted for `key`, or null; a hit becomes the most recently used.
    const QPixmap* find(const Key& key);
    void insert(const Key& key, QPixmap cell);
    void clear();

  private:
    struct KeyHash {
        std::size_t operator()(const Key& key) const noexcept;
    };
    using Entries = std::list<std::pair<Key, QPixmap>>;

    std::size_t byteLimit_;
    std::size_t bytes_ = 0;
    Entries entries_; // most recently used first
    std::unordered_map<Key, Entries::iterator, KeyHash> index_;
};

} // namespace orvel
