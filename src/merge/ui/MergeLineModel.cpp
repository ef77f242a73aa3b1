#include "merge/ui/MergeLineModel.h"

#include "settings/LocalizationManager.h"

#include <algorithm>

namespace orvel {

void MergeLineModel::setRows(std::vector<MergeLineRow> rows) {
    if (rows.size() != rows_.size()) {
        beginResetModel();
        rows_ = std::move(rows);
        endResetModel();
        return;
    }
    rows_ = std::move(rows);
    if (!rows_.empty())
        emit dataChanged(index(0), index(static_cast<int>(rows_.size()) - 1));
}

int MergeLineModel::firstFocusedRow() const {
    const auto found =
        std::find_if(rows_.begin(), rows_.end(), [](const MergeLineRow& row) { return row.isFocused; });
    return found == rows_.end() ? -1 : static_cast<int>(found - rows_.begin());
}

int MergeLineModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant MergeLineModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const MergeLineRow& row = rows_[static_cast<std::size_t>(index.row())];
    const QString text = QString::fromUtf8(row.text.data(), static_cast<qsizetype>(row.text.size()));
    switch (role) {
    case Qt::DisplayRole:
        return text;
    case Qt::CheckStateRole:
        if (!row.isOn)
            return {};
        return *row.isOn ? Qt::Checked : Qt::Unchecked;
    case Qt::AccessibleTextRole:
        if (!row.isOn)
            return localized("Line %1: %2", row.lineNumber, text);
        return *row.isOn ? localized("Line %1: %2, included", row.lineNumber, text)
                         : localized("Line %1: %2, left out", row.lineNumber, text);
    case LineNumberRole:
        return row.lineNumber;
    case TintRole:
        return static_cast<int>(row.accentTint);
    case FocusedRole:
        return row.isFocused;
    case LanguageRole:
        return row.language;
    default:
        return {};
    }
}

bool MergeLineModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || !index.isValid() || index.row() >= rowCount())
        return false;
    const MergeLineRow& row = rows_[static_cast<std::size_t>(index.row())];
    if (!row.isOn || (value.value<Qt::CheckState>() == Qt::Checked) == *row.isOn)
        return false;
    emit lineToggled(index.row());
    return true;
}

Qt::ItemFlags MergeLineModel::flags(const QModelIndex& index) const {
    if (!index.isValid() || index.row() >= rowCount())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (rows_[static_cast<std::size_t>(index.row())].isOn)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

} // namespace orvel
