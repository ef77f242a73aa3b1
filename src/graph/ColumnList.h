// A short list of graph columns with value semantics that takes the room of one pointer, so that
// the many lanes that carry no list stay small: a layout of a long history makes millions of them.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <vector>

namespace orvel {

class ColumnList {
  public:
    ColumnList() = default;
    ColumnList(std::initializer_list<int> columns);
    ColumnList(const ColumnList& other);
    ColumnList& operator=(const ColumnList& other);
    ColumnList(ColumnList&&) noexcept = default;
    ColumnList& operator=(ColumnList&&) noexcept = default;

    void push_back(int column);

    bool empty() const { return !columns_ || columns_->empty(); }
    std::size_t size() const { return columns_ ? columns_->size() : 0; }
    int operator[](std::size_t i) const { return (*columns_)[i]; }
    const int* begin() const { return columns_ ? columns_->data() : nullptr; }
    const int* end() const { return columns_ ? columns_->data() + columns_->size() : nullptr; }
    std::vector<int> toVector() const { return columns_ ? *columns_ : std::vector<int>{}; }

    bool operator==(const ColumnList& other) const;

  private:
    std::unique_ptr<std::vector<int>> columns_; // absent while empty
};

} // namespace orvel
