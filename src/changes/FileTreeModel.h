// The item model of a list of changed files, flat or as a directory tree, with a filter text and,
// when flat, an order by path. The changes page and the history's file list show it; a row's
// file is read back with file().
#pragma once

#include "changes/FileTree.h"

#include <QAbstractItemModel>

#include <unordered_map>
#include <vector>

namespace orvel {

class FileTreeModel final : public QAbstractItemModel {
    Q_OBJECT

  public:
    enum Role {
        // The status letter of a file ("M", "A", "D", "R", "?", "U"); nothing on a directory.
        StatusCodeRole = Qt::UserRole + 1,
        // In the flat list, the directory of a file's path, shown beside its name; else empty.
        DirectoryRole,
        // "submodule" or "repository" for a row that is a repository of its own; else empty.
        KindRole,
    };

    explicit FileTreeModel(QObject* parent = nullptr);

    void setFiles(std::vector<FileChange> files);
    void setDisplayMode(ChangesDisplayMode mode);
    void setFilterText(const QString& text);
    void setSortOrder(FileChangesSortOrder order);

    ChangesDisplayMode displayMode() const { return mode_; }
    FileChangesSortOrder sortOrder() const { return order_; }
    const QString& filterText() const { return filter_; }
    // The files that pass the filter.
    int shownFileCount() const { return shownFileCount_; }

    // The node of a row, or null for an invalid index; a directory has no file.
    const FileTreeNode* node(const QModelIndex& index) const;
    const FileChange* file(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

  private:
    struct Location {
        const FileTreeNode* parent;
        int row;
    };

    void rebuild();
    void indexLevel(const std::vector<FileTreeNode>& nodes, const FileTreeNode* parent);
    const std::vector<FileTreeNode>& childrenOf(const QModelIndex& parent) const;

    std::vector<FileChange> files_;
    ChangesDisplayMode mode_ = ChangesDisplayMode::list;
    FileChangesSortOrder order_ = FileChangesSortOrder::ascend;
    QString filter_;
    int shownFileCount_ = 0;
    std::vector<FileTreeNode> roots_;
    // The parent and row of every node below the roots.
    std::unordered_map<const FileTreeNode*, Location> locations_;
};

} // namespace orvel
