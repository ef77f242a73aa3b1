// The recent repositories as a list model for the landing page: one row a path, newest first,
// shown by its folder name with the full path beneath.
#pragma once

#include <QAbstractListModel>
#include <QStringList>

namespace orvel {

class RecentRepositoriesModel final : public QAbstractListModel {
    Q_OBJECT

  public:
    enum Role { PathRole = Qt::UserRole + 1 };

    explicit RecentRepositoriesModel(QObject* parent = nullptr);

    void setPaths(const QStringList& paths);
    const QStringList& paths() const { return paths_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    // Display: the folder's name; PathRole and the tool tip: the whole path.
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    QStringList paths_;
};

} // namespace orvel
