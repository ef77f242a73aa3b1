#include "content/RecentRepositoriesModel.h"

#include <QFileInfo>

namespace orvel {

RecentRepositoriesModel::RecentRepositoriesModel(QObject* parent) : QAbstractListModel(parent) {}

void RecentRepositoriesModel::setPaths(const QStringList& paths) {
    beginResetModel();
    paths_ = paths;
    endResetModel();
}

int RecentRepositoriesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(paths_.size());
}

QVariant RecentRepositoriesModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= paths_.size())
        return {};
    const QString& path = paths_.at(index.row());
    switch (role) {
    case Qt::DisplayRole: {
        const QString name = QFileInfo(path).fileName();
        return name.isEmpty() ? path : name;
    }
    case Qt::AccessibleTextRole:
        return QFileInfo(path).fileName() + QStringLiteral(", ") + path;
    case Qt::ToolTipRole:
    case PathRole:
        return path;
    default:
        return {};
    }
}

} // namespace orvel
