#include "merge/ui/RebasePlanItemModel.h"

#include "merge/InteractiveRebaseViewModel.h"
#include "settings/LocalizationManager.h"

#include <QApplication>
#include <QMimeData>
#include <QStyle>

namespace orvel {

namespace {

const QString rowMimeType = QStringLiteral("application/x-orvel-rebase-row");

QString decoded(const std::string& bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

// What a commit row says after its action: the first line of its new message once reworded.
QString shownSubject(const RebaseTodoEntry& entry) {
    if (entry.action == RebaseAction::reword && entry.rewordMessage)
        return decoded(entry.rewordMessage->substr(0, entry.rewordMessage->find('\n')));
    return decoded(entry.subject);
}

} // namespace

RebasePlanItemModel::RebasePlanItemModel(RebasePlanModel& plan, QObject* parent)
    : QAbstractTableModel(parent), plan_(plan) {}

const RebaseTodoEntry* RebasePlanItemModel::entry(int row) const {
    if (row < 0 || row >= rowCount())
        return nullptr;
    return &plan_.entries()[static_cast<std::size_t>(row)];
}

void RebasePlanItemModel::showPredictionsOf(const InteractiveRebaseViewModel& model) {
    predictions_ = &model;
    // Only the mark changes: an editor open in another column must keep what the user is choosing.
    connect(&model, &InteractiveRebaseViewModel::predictionsChanged, this, [this] {
        if (rowCount() > 0)
            emit dataChanged(index(0, CommitColumn), index(rowCount() - 1, CommitColumn),
                             {Qt::DecorationRole, Qt::ToolTipRole, Qt::AccessibleTextRole});
    });
}

void RebasePlanItemModel::rowChanged(int row) {
    emit dataChanged(index(row, 0), index(row, ColumnCount - 1));
    emit planChanged();
}

void RebasePlanItemModel::setAction(int row, RebaseAction action) {
    if (const RebaseTodoEntry* changed = entry(row)) {
        plan_.setAction(changed->id, action);
        rowChanged(row);
    }
}

bool RebasePlanItemModel::moveEntry(int from, int to) {
    if (!entry(from) || !entry(to) || from == to)
        return false;
    beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
    plan_.move(static_cast<std::size_t>(from), static_cast<std::size_t>(to));
    endMoveRows();
    emit planChanged();
    return true;
}

void RebasePlanItemModel::addExec() {
    const int row = rowCount();
    beginInsertRows({}, row, row);
    plan_.addExec();
    endInsertRows();
    emit planChanged();
}

void RebasePlanItemModel::removeExec(int row) {
    const RebaseTodoEntry* removed = entry(row);
    if (!removed || !isExecStep(*removed))
        return;
    beginRemoveRows({}, row, row);
    plan_.removeExec(removed->id);
    endRemoveRows();
    emit planChanged();
}

void RebasePlanItemModel::beginReword(int row) {
    if (const RebaseTodoEntry* edited = entry(row))
        plan_.beginReword(edited->id);
}

void RebasePlanItemModel::saveReword(const std::string& message) {
    const auto id = plan_.rewordingEntryID();
    if (!id)
        return;
    plan_.setRewordText(message);
    plan_.saveReword();
    for (int row = 0; row < rowCount(); ++row)
        if (entry(row)->id == *id)
            rowChanged(row);
}

void RebasePlanItemModel::autosquash() {
    beginResetModel();
    plan_.autosquash();
    endResetModel();
    emit planChanged();
}

int RebasePlanItemModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(plan_.entries().size());
}

int RebasePlanItemModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant RebasePlanItemModel::data(const QModelIndex& index, int role) const {
    const RebaseTodoEntry* row = index.isValid() ? entry(index.row()) : nullptr;
    if (!row)
        return {};
    // A commit row given the exec action shows the command in place of its subject until it is
    // given another action.
    const bool runsCommand = row->action == RebaseAction::exec;
    const QString action = QString::fromLatin1(rawValue(row->action));
    const QString conflict = predictions_ ? predictions_->conflictText(row->id) : QString();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        if (index.column() == ActionColumn)
            return action;
        if (index.column() == CommitColumn)
            return decoded(row->hash);
        return runsCommand ? decoded(row->execCommand.value_or(std::string())) : shownSubject(*row);
    case Qt::DecorationRole:
        if (index.column() == CommitColumn && !conflict.isEmpty())
            return QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning);
        return {};
    case Qt::ToolTipRole: {
        QStringList lines;
        if (!conflict.isEmpty())
            lines << conflict;
        if (row->action == RebaseAction::reword && row->rewordMessage)
            lines << decoded(*row->rewordMessage);
        return lines.isEmpty() ? QVariant() : QVariant(lines.join(QStringLiteral("\n\n")));
    }
    case Qt::AccessibleTextRole:
        if (isExecStep(*row))
            return localized("Exec step: %1", row->execCommand.value_or(std::string()));
        if (!conflict.isEmpty())
            return localized("Commit %1: %2, action: %3", row->hash, shownSubject(*row), action) + ". " + conflict;
        return localized("Commit %1: %2, action: %3", row->hash, shownSubject(*row), action);
    case ActionRole:
        return static_cast<int>(row->action);
    default:
        return {};
    }
}

QVariant RebasePlanItemModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case ActionColumn:
        return localized("Action");
    case CommitColumn:
        return localized("Commit");
    default:
        return localized("Subject");
    }
}

bool RebasePlanItemModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const RebaseTodoEntry* row = index.isValid() ? entry(index.row()) : nullptr;
    if (!row || role != Qt::EditRole)
        return false;
    if (index.column() == ActionColumn && !isExecStep(*row)) {
        const auto action = rebaseActionFromRawValue(value.toString().toStdString());
        if (!action)
            return false;
        setAction(index.row(), *action);
        return true;
    }
    if (index.column() == SubjectColumn && row->action == RebaseAction::exec) {
        plan_.setExecCommand(row->id, value.toString().toStdString());
        rowChanged(index.row());
        return true;
    }
    return false;
}

Qt::ItemFlags RebasePlanItemModel::flags(const QModelIndex& index) const {
    const RebaseTodoEntry* row = index.isValid() ? entry(index.row()) : nullptr;
    if (!row)
        return Qt::ItemIsDropEnabled; // drops land between rows, never on one
    Qt::ItemFlags flags =
        Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
    if ((index.column() == ActionColumn && !isExecStep(*row)) ||
        (index.column() == SubjectColumn && row->action == RebaseAction::exec))
        flags |= Qt::ItemIsEditable;
    return flags;
}

Qt::DropActions RebasePlanItemModel::supportedDropActions() const {
    return Qt::MoveAction;
}

QStringList RebasePlanItemModel::mimeTypes() const {
    return {rowMimeType};
}

QMimeData* RebasePlanItemModel::mimeData(const QModelIndexList& indexes) const {
    if (indexes.isEmpty())
        return nullptr;
    auto* data = new QMimeData;
    data->setData(rowMimeType, QByteArray::number(indexes.first().row()));
    return data;
}

// The row is moved here rather than inserted and removed, so it keeps its identity; the view's
// own removal after a move finds nothing to remove (the model has no removeRows).
bool RebasePlanItemModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int,
                                       const QModelIndex& parent) {
    if (action != Qt::MoveAction || !data || !data->hasFormat(rowMimeType))
        return false;
    bool valid = false;
    const int from = data->data(rowMimeType).toInt(&valid);
    if (!valid)
        return false;
    if (row < 0)
        row = parent.isValid() ? parent.row() : rowCount();
    return moveEntry(from, row > from ? row - 1 : row);
}

} // namespace orvel
