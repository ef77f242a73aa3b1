// Building the directory tree of changed files, and the filter and order of the flat list, on
// tables of paths; then the item model over both shapes.
#include "changes/FileTreeModel.h"

#include <gtest/gtest.h>

using namespace orvel;

namespace {

std::vector<FileChange> changes(const std::vector<std::string>& paths) {
    std::vector<FileChange> files;
    for (const auto& path : paths)
        files.push_back({.path = path, .status = FileStatusKind::tracked(TrackedStatus::modified, {})});
    return files;
}

// One line a node, indented by depth: "dir/" for a directory, the id for a file.
void render(const std::vector<FileTreeNode>& nodes, int depth, std::string& out) {
    for (const auto& node : nodes) {
        out += std::string(static_cast<std::size_t>(depth) * 2, ' ');
        out += node.isDirectory() ? node.name + "/"
                                  : node.id + (node.file->path == node.id ? "" : " (wrong file)");
        out += "\n";
        render(node.children, depth + 1, out);
    }
}

std::string tree(const std::vector<std::string>& paths) {
    std::string out;
    render(buildFileTree(changes(paths)), 0, out);
    return out;
}

std::vector<std::string> pathsOf(const std::vector<FileChange>& files) {
    std::vector<std::string> paths;
    for (const auto& file : files)
        paths.push_back(file.path);
    return paths;
}

} // namespace

TEST(FileTree, BuildsNestedLevelsWithDirectoriesFirstAndNoCompaction) {
    const struct {
        std::vector<std::string> paths;
        std::string expected;
    } cases[] = {
        {{}, ""},
        {{"src/b.cpp", "src/a.cpp"}, "src/\n  src/a.cpp\n  src/b.cpp\n"},
        // A file at the root comes after every directory, even one whose name sorts later.
        {{"README", "zeta/x"}, "zeta/\n  zeta/x\nREADME\n"},
        // A chain of single-child directories keeps every level.
        {{"a/b/c/d.txt"}, "a/\n  b/\n    c/\n      a/b/c/d.txt\n"},
        {{"lib/z.h", "lib/sub/y.h", "B", "a"}, "lib/\n  sub/\n    lib/sub/y.h\n  lib/z.h\nB\na\n"},
        // A path that needs an earlier file's name as a directory replaces that file.
        {{"x", "x/y"}, "x/\n  x/y\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(tree(c.paths), c.expected) << testing::PrintToString(c.paths);
}

TEST(FileTree, FiltersIgnoringCaseAndOrdersTheFlatListByPath) {
    const auto files = changes({"src/Main.cpp", "docs/guide.md", "src/main.h", "README"});
    EXPECT_EQ(pathsOf(filterFileChanges(files, QStringLiteral("MAIN"))),
              (std::vector<std::string>{"src/Main.cpp", "src/main.h"}));
    EXPECT_EQ(pathsOf(filterFileChanges(files, QString())).size(), 4u);
    EXPECT_TRUE(filterFileChanges(files, QStringLiteral("nothing")).empty());

    auto sorted = files;
    sortFileChanges(sorted, FileChangesSortOrder::ascend);
    EXPECT_EQ(pathsOf(sorted),
              (std::vector<std::string>{"README", "docs/guide.md", "src/Main.cpp", "src/main.h"}));
    sortFileChanges(sorted, FileChangesSortOrder::descend);
    EXPECT_EQ(pathsOf(sorted),
              (std::vector<std::string>{"src/main.h", "src/Main.cpp", "docs/guide.md", "README"}));
}

TEST(FileTreeModel, ShowsTheFilteredFilesFlatOrAsATree) {
    FileTreeModel model;
    model.setFiles(changes({"src/b.cpp", "src/a.cpp", "top.txt"}));
    ASSERT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.index(0, 0).data().toString(), QStringLiteral("a.cpp"));
    EXPECT_EQ(model.index(0, 0).data(FileTreeModel::DirectoryRole).toString(), QStringLiteral("src"));
    EXPECT_EQ(model.index(0, 0).data(FileTreeModel::StatusCodeRole).toString(), QStringLiteral("M"));

    model.setDisplayMode(ChangesDisplayMode::tree);
    ASSERT_EQ(model.rowCount(), 2);
    const QModelIndex directory = model.index(0, 0);
    EXPECT_EQ(model.file(directory), nullptr);
    ASSERT_EQ(model.rowCount(directory), 2);
    const QModelIndex leaf = model.index(1, 0, directory);
    ASSERT_NE(model.file(leaf), nullptr);
    EXPECT_EQ(model.file(leaf)->path, "src/b.cpp");
    EXPECT_EQ(model.parent(leaf), directory);
    EXPECT_FALSE(model.parent(directory).isValid());

    model.setFilterText(QStringLiteral("top"));
    EXPECT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.shownFileCount(), 1);

    // A parent at any depth answers its own row.
    model.setFilterText(QString());
    model.setFiles(changes({"a/x/1.txt", "b/y/2.txt"}));
    const QModelIndex b = model.index(1, 0);
    const QModelIndex y = model.index(0, 0, b);
    const QModelIndex two = model.index(0, 0, y);
    EXPECT_EQ(model.parent(two), y);
    EXPECT_EQ(model.parent(y), b);
    EXPECT_EQ(model.parent(y).row(), 1);
    EXPECT_FALSE(model.parent(b).isValid());
}
