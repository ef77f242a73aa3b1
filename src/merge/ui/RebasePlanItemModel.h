// The plan of an interactive rebase as a Qt table model: one row per step, its action, the commit
// and its subject (or an exec row's command). Rows are moved by internal drag and drop or by the
// sheet's keyboard moves; every change goes through the plan and is announced to the views.
#pragma once

#include "merge/RebasePlanModel.h"

#include <QAbstractTableModel>

namespace orvel {

class InteractiveRebaseViewModel;

class RebasePlanItemModel final : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { ActionColumn, CommitColumn, SubjectColumn, ColumnCount };
    enum Role { ActionRole = Qt::UserRole + 1 };

    explicit RebasePlanItemModel(RebasePlanModel& plan, QObject* parent = nullptr);

    RebasePlanModel& plan() const { return plan_; }
    // Marks the rows `model` predicts will stop on a conflict, with the files in their tooltips.
    void showPredictionsOf(const InteractiveRebaseViewModel& model);
    const RebaseTodoEntry* entry(int row) const;

    void setAction(int row, RebaseAction action);
    // Moves the row at `from` so that it ends at `to`.
    bool moveEntry(int from, int to);
    void addExec();
    void removeExec(int row);
    // Starts and ends editing a row's message; the text is the whole new message.
    void beginReword(int row);
    void saveReword(const std::string& message);
    void autosquash();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    Qt::DropActions supportedDropActions() const override;
    QStringList mimeTypes() const override;
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

  signals:
    // Rows, actions or the plan's ability to start changed.
    void planChanged();

  private:
    void rowChanged(int row);

    RebasePlanModel& plan_;
    const InteractiveRebaseViewModel* predictions_ = nullptr;
};

} // namespace orvel
