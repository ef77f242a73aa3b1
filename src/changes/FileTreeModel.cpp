#include "changes/FileTreeModel.h"

#include "changes/StatusRows.h"
#include "settings/LocalizationManager.h"

namespace orvel {

namespace {

QChar statusCode(const FileChange& file) {
    switch (file.status.kind) {
    case FileStatusKind::Case::untracked:
        return QLatin1Char('?');
    case FileStatusKind::Case::ignored:
        return QLatin1Char('!');
    case FileStatusKind::Case::unmerged:
        return QLatin1Char('U');
    case FileStatusKind::Case::tracked:
        break;
    }
    const TrackedStatus status = file.displayStatus.value_or(
        file.status.index != TrackedStatus::unmodified ? file.status.index : file.status.worktree);
    return QLatin1Char(codeOf(status));
}

// A nested repository's path ends in a slash: its name is the folder's.
std::string_view withoutTrailingSlash(const std::string& path) {
    std::string_view view = path;
    if (view.ends_with('/'))
        view.remove_suffix(1);
    return view;
}

QString directoryOf(const std::string& path) {
    const std::string_view view = withoutTrailingSlash(path);
    const auto slash = view.rfind('/');
    return slash == std::string_view::npos ? QString()
                                           : QString::fromUtf8(view.data(), static_cast<qsizetype>(slash));
}

std::string lastComponent(const std::string& path) {
    const std::string_view view = withoutTrailingSlash(path);
    const auto slash = view.rfind('/');
    return std::string(slash == std::string_view::npos ? view : view.substr(slash + 1));
}

QString kindOf(const FileChange& file) {
    if (file.isSubmodule)
        return localized("submodule");
    if (isNestedRepository(file))
        return localized("repository");
    return {};
}

} // namespace

FileTreeModel::FileTreeModel(QObject* parent) : QAbstractItemModel(parent) {}

void FileTreeModel::setFiles(std::vector<FileChange> files) {
    if (files == files_)
        return;
    files_ = std::move(files);
    rebuild();
}

void FileTreeModel::setDisplayMode(ChangesDisplayMode mode) {
    if (mode == mode_)
        return;
    mode_ = mode;
    rebuild();
}

void FileTreeModel::setFilterText(const QString& text) {
    if (text == filter_)
        return;
    filter_ = text;
    rebuild();
}

void FileTreeModel::setSortOrder(FileChangesSortOrder order) {
    if (order == order_)
        return;
    order_ = order;
    rebuild();
}

void FileTreeModel::rebuild() {
    beginResetModel();
    std::vector<FileChange> shown = filterFileChanges(files_, filter_);
    shownFileCount_ = static_cast<int>(shown.size());
    roots_.clear();
    if (mode_ == ChangesDisplayMode::tree) {
        roots_ = buildFileTree(shown);
    } else {
        sortFileChanges(shown, order_);
        roots_.reserve(shown.size());
        for (FileChange& file : shown) {
            FileTreeNode leaf{file.path, lastComponent(file.path), {}, std::move(file)};
            roots_.push_back(std::move(leaf));
        }
    }
    locations_.clear();
    indexLevel(roots_, nullptr);
    endResetModel();
}

void FileTreeModel::indexLevel(const std::vector<FileTreeNode>& nodes, const FileTreeNode* parent) {
    for (std::size_t row = 0; row < nodes.size(); ++row) {
        // A root needs no entry: its row is its place among the roots, so a flat list makes none.
        if (parent)
            locations_[&nodes[row]] = {parent, static_cast<int>(row)};
        indexLevel(nodes[row].children, &nodes[row]);
    }
}

const std::vector<FileTreeNode>& FileTreeModel::childrenOf(const QModelIndex& parent) const {
    if (const FileTreeNode* parentNode = node(parent))
        return parentNode->children;
    return roots_;
}

const FileTreeNode* FileTreeModel::node(const QModelIndex& index) const {
    return index.isValid() ? static_cast<const FileTreeNode*>(index.internalPointer()) : nullptr;
}

const FileChange* FileTreeModel::file(const QModelIndex& index) const {
    const FileTreeNode* found = node(index);
    return found && found->file ? &*found->file : nullptr;
}

QModelIndex FileTreeModel::index(int row, int column, const QModelIndex& parent) const {
    const auto& nodes = childrenOf(parent);
    if (column != 0 || row < 0 || row >= static_cast<int>(nodes.size()))
        return {};
    return createIndex(row, 0, const_cast<FileTreeNode*>(&nodes[static_cast<std::size_t>(row)]));
}

QModelIndex FileTreeModel::parent(const QModelIndex& child) const {
    const auto found = locations_.find(node(child));
    if (found == locations_.end())
        return {};
    const FileTreeNode* parentNode = found->second.parent;
    const auto parentFound = locations_.find(parentNode);
    const int row = parentFound == locations_.end() ? static_cast<int>(parentNode - roots_.data())
                                                    : parentFound->second.row;
    return createIndex(row, 0, const_cast<FileTreeNode*>(parentNode));
}

int FileTreeModel::rowCount(const QModelIndex& parent) const {
    if (parent.column() > 0)
        return 0;
    return static_cast<int>(childrenOf(parent).size());
}

int FileTreeModel::columnCount(const QModelIndex&) const {
    return 1;
}

QVariant FileTreeModel::data(const QModelIndex& index, int role) const {
    const FileTreeNode* shown = node(index);
    if (!shown)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromUtf8(shown->name);
    case Qt::ToolTipRole:
        return QString::fromUtf8(shown->id);
    case Qt::AccessibleTextRole:
        return shown->file
                   ? localized("%1, status %2", QString::fromUtf8(shown->id), statusCode(*shown->file))
                   : localized("Folder %1", QString::fromUtf8(shown->id));
    case StatusCodeRole:
        return shown->file ? QVariant(QString(statusCode(*shown->file))) : QVariant();
    case DirectoryRole:
        return mode_ == ChangesDisplayMode::list && shown->file ? directoryOf(shown->file->path) : QString();
    case KindRole:
        return shown->file ? kindOf(*shown->file) : QString();
    default:
        return {};
    }
}

} // namespace orvel
