#include "changes/FileTree.h"

#include <algorithm>
#include <map>
#include <memory>
#include <numeric>
#include <string_view>

namespace orvel {

namespace {

// The building form of the tree: a file of the input, or a directory of named entries in key
// order. Files are copied once, into the finished nodes.
struct TreeEntry {
    const FileChange* file = nullptr;
    std::map<std::string, std::unique_ptr<TreeEntry>> children;
};

// A nested repository's path ends in a slash; it is a leaf named after its folder.
std::vector<std::string_view> pathComponents(std::string_view path) {
    if (path.size() > 1 && path.ends_with('/'))
        path.remove_suffix(1);
    std::vector<std::string_view> components;
    std::size_t start = 0;
    while (true) {
        const auto slash = path.find('/', start);
        components.push_back(path.substr(start, slash == std::string_view::npos ? path.npos : slash - start));
        if (slash == std::string_view::npos)
            return components;
        start = slash + 1;
    }
}

void sortLevel(std::vector<FileTreeNode>& nodes) {
    std::stable_sort(nodes.begin(), nodes.end(), [](const FileTreeNode& left, const FileTreeNode& right) {
        if (left.isDirectory() != right.isDirectory())
            return left.isDirectory();
        return left.name < right.name;
    });
}

std::vector<FileTreeNode> toNodes(const std::map<std::string, std::unique_ptr<TreeEntry>>& entries,
                                  const std::string& parentID) {
    std::vector<FileTreeNode> nodes;
    nodes.reserve(entries.size());
    for (const auto& [name, entry] : entries) {
        FileTreeNode node;
        node.id = parentID.empty() ? name : parentID + "/" + name;
        node.name = name;
        if (entry->file)
            node.file = *entry->file;
        else
            node.children = toNodes(entry->children, node.id);
        nodes.push_back(std::move(node));
    }
    sortLevel(nodes);
    return nodes;
}

} // namespace

std::vector<FileTreeNode> buildFileTree(const std::vector<FileChange>& files) {
    TreeEntry root;
    for (const FileChange& file : files) {
        const auto components = pathComponents(file.path);
        TreeEntry* directory = &root;
        for (std::size_t i = 0; i + 1 < components.size(); ++i) {
            auto& slot = directory->children[std::string(components[i])];
            // A file standing where a directory is needed gives way to the directory.
            if (!slot || slot->file)
                slot = std::make_unique<TreeEntry>();
            directory = slot.get();
        }
        auto& leaf = directory->children[std::string(components.back())];
        leaf = std::make_unique<TreeEntry>();
        leaf->file = &file;
    }
    return toNodes(root.children, {});
}

std::vector<FileChange> filterFileChanges(const std::vector<FileChange>& files, const QString& text) {
    if (text.isEmpty())
        return files;
    std::vector<FileChange> kept;
    std::copy_if(files.begin(), files.end(), std::back_inserter(kept), [&text](const FileChange& file) {
        return QString::fromUtf8(file.path).contains(text, Qt::CaseInsensitive);
    });
    return kept;
}

void sortFileChanges(std::vector<FileChange>& files, FileChangesSortOrder order) {
    // The positions are sorted and each record then moves once: cheaper than moving whole records
    // at every step of the sort.
    std::vector<std::size_t> positions(files.size());
    std::iota(positions.begin(), positions.end(), std::size_t{0});
    std::stable_sort(positions.begin(), positions.end(),
                     [&files, order](std::size_t left, std::size_t right) {
                         return order == FileChangesSortOrder::ascend ? files[left].path < files[right].path
                                                                      : files[right].path < files[left].path;
                     });
    std::vector<FileChange> sorted;
    sorted.reserve(files.size());
    for (const std::size_t position : positions)
        sorted.push_back(std::move(files[position]));
    files = std::move(sorted);
}

} // namespace orvel
