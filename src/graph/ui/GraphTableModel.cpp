#include "graph/ui/GraphTableModel.h"

#include "graph/RepoGraphPaneViewModel.h"
#include "settings/LocalizationManager.h"

#include <QStringList>

namespace orvel {

namespace {

QString text(std::string_view bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

} // namespace

GraphTableModel::GraphTableModel(const RepoGraphPaneViewModel& model, QObject* parent)
    : QAbstractTableModel(parent), model_(model), shownRows_(static_cast<int>(model.commits().size())) {}

int GraphTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shownRows_;
}

int GraphTableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columnCount_;
}

QVariant GraphTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || static_cast<std::size_t>(index.row()) >= model_.commits().size())
        return {};
    const int row = index.row();
    if (role == Qt::AccessibleTextRole)
        return accessibleText(index.row());
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    switch (index.column()) {
    case messageColumn:
        return text(model_.subjectAt(row));
    case authorColumn:
        return text(model_.authorAt(row));
    case hashColumn:
        if (model_.isWorkingTreeRow(row))
            return {};
        return role == Qt::ToolTipRole ? text(model_.hashAt(row)) : text(model_.hashAt(row).substr(0, 7));
    case dateColumn:
        return text(model_.dateTextAt(row));
    default:
        return {};
    }
}

// A row reads as "subject, author, date, refs".
QString GraphTableModel::accessibleText(int row) const {
    QStringList parts{text(model_.subjectAt(row)), text(model_.authorAt(row)), text(model_.dateTextAt(row))};
    QStringList refs;
    for (const auto& placed : model_.refsByRow()[static_cast<std::size_t>(row)]) {
        if (placed.opacity >= 1.0)
            refs << text(placed.ref->name);
    }
    if (!refs.isEmpty())
        parts << refs.join(QLatin1Char(' '));
    return parts.join(QStringLiteral(", "));
}

QVariant GraphTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    // The tooltip gives the whole title of a column too narrow to show it.
    if (orientation != Qt::Horizontal || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    switch (section) {
    case graphColumn:
        return localized("Graph");
    case refsColumn:
        return localized("Branch / Tag");
    case messageColumn:
        return localized("Commit Message");
    case authorColumn:
        return localized("Author");
    case hashColumn:
        return localized("Hash");
    case dateColumn:
        return localized("Date");
    default:
        return {};
    }
}

// A reload with as many rows as before (a refresh that found the same history, new counts of the
// working tree) repaints them in place, keeping the view's scroll position and selection.
void GraphTableModel::reload() {
    const int rows = static_cast<int>(model_.commits().size());
    if (rows == shownRows_) {
        highlightsChanged();
        return;
    }
    beginResetModel();
    shownRows_ = rows;
    endResetModel();
}

void GraphTableModel::append(int first) {
    const int rows = static_cast<int>(model_.commits().size());
    if (first != shownRows_ || rows <= first) {
        reload();
        return;
    }
    beginInsertRows({}, first, rows - 1);
    shownRows_ = rows;
    endInsertRows();
    // Pills of the rows above may fade on into the new ones, and are repainted with them.
    highlightsChanged();
}

void GraphTableModel::highlightsChanged() {
    if (shownRows_ > 0)
        emit dataChanged(index(0, 0), index(shownRows_ - 1, columnCount_ - 1));
}

} // namespace orvel
