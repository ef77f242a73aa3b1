// The rows of one panel of the merge editor as a Qt list model. A chooseable row is checkable;
// checking or unchecking it is only reported (lineToggled), since the choice belongs to the
// editor's model, which hands back new rows.
#pragma once

#include "merge/MergeLineRows.h"

#include <QAbstractListModel>

#include <vector>

namespace orvel {

class MergeLineModel final : public QAbstractListModel {
    Q_OBJECT

  public:
    enum Role { LineNumberRole = Qt::UserRole + 1, TintRole, FocusedRole, LanguageRole };

    using QAbstractListModel::QAbstractListModel;

    // Same row count: the rows change in place, so selection and scroll position stay.
    void setRows(std::vector<MergeLineRow> rows);
    const std::vector<MergeLineRow>& rows() const { return rows_; }
    // The first focused row, or -1.
    int firstFocusedRow() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  signals:
    void lineToggled(int row);

  private:
    std::vector<MergeLineRow> rows_;
};

} // namespace orvel
