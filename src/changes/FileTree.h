// How a list of changed files is shown: flat or as a directory tree, filtered by a text and, when
// flat, ordered by path. Pure functions, shared by the changes page and the history's file list.
#pragma once

#include "core/records/FileChange.h"

#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace orvel {

enum class ChangesDisplayMode { list, tree };

// The order of the history's flat file list, by path.
enum class FileChangesSortOrder { ascend, descend };

struct FileTreeNode {
    std::string id;   // the path from the root, components joined by "/"
    std::string name; // the last component
    std::vector<FileTreeNode> children;
    std::optional<FileChange> file; // present on a leaf only

    bool isDirectory() const { return !file; }
    bool operator==(const FileTreeNode&) const = default;
};

// The directory tree of `files`: on each level directories first, then files, each kind by name in
// byte order. Directories with a single child stay as they are: the tree shows every level.
std::vector<FileTreeNode> buildFileTree(const std::vector<FileChange>& files);

// The files whose path contains `text`, ignoring case; an empty text keeps every file.
std::vector<FileChange> filterFileChanges(const std::vector<FileChange>& files, const QString& text);

void sortFileChanges(std::vector<FileChange>& files, FileChangesSortOrder order);

} // namespace orvel
