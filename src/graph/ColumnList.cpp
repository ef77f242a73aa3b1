#include "graph/ColumnList.h"

#include <algorithm>

namespace orvel {

ColumnList::ColumnList(std::initializer_list<int> columns) {
    if (columns.size() > 0)
        columns_ = std::make_unique<std::vector<int>>(columns);
}

ColumnList::ColumnList(const ColumnList& other) {
    if (!other.empty())
        columns_ = std::make_unique<std::vector<int>>(*other.columns_);
}

ColumnList& ColumnList::operator=(const ColumnList& other) {
    if (this != &other)
        columns_ = other.empty() ? nullptr : std::make_unique<std::vector<int>>(*other.columns_);
    return *this;
}

void ColumnList::push_back(int column) {
    if (!columns_)
        columns_ = std::make_unique<std::vector<int>>();
    columns_->push_back(column);
}

bool ColumnList::operator==(const ColumnList& other) const {
    return std::equal(begin(), end(), other.begin(), other.end());
}

} // namespace orvel
