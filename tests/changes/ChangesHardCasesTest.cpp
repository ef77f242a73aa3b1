// The changes page's model on working trees that are easy to get wrong: a filter that hides part of
// the selection, a staged rename undone by Discard All and brought back by Edit > Undo, a
// repository of its own inside the working tree, and a submodule whose commit moved. All on real
// git, with the bytes on disk checked.
#include "changes/ChangesOnRealGit.h"
#include "changes/ChangesPaneViewModel.h"
#include "changes/FileTreeModel.h"
#include "changes/ui/ChangesPage.h"
#include "support/Await.h"
#include "support/Screenshot.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

using namespace orvel;

namespace {

class ChangesHardCases : public test::ChangesOnRealGit {
  protected:
    ChangesHardCases() {
        repo.write("alpha.txt", "alpha\n");
        repo.write("beta.txt", "beta\n");
        repo.commitAll("base");
    }

    const FileChange& unstagedRow(const std::string& path) {
        for (const FileChange& row : model.unstagedFiles())
            if (row.path == path)
                return row;
        ADD_FAILURE() << "no unstaged row " << path;
        static const FileChange none;
        return none;
    }

    // The names a file list shows, in list and in tree shape.
    static std::vector<std::string> shownNames(const std::vector<FileChange>& files,
                                               ChangesDisplayMode mode) {
        FileTreeModel shown;
        shown.setDisplayMode(mode);
        shown.setFiles(files);
        std::vector<std::string> names;
        for (int row = 0; row < shown.rowCount(); ++row) {
            const QModelIndex index = shown.index(row, 0);
            names.push_back(
                (index.data().toString() + " [" + index.data(FileTreeModel::KindRole).toString() + "]")
                    .toStdString());
        }
        return names;
    }

    ChangesPaneViewModel model{entry(), service, toasts};
};

} // namespace

TEST_F(ChangesHardCases, SelectedRowsHiddenByTheFilterAreLeftAlone) {
    repo.write("alpha.txt", "alpha changed\n");
    repo.write("beta.txt", "beta changed\n");
    test::await(model.refreshStatus());
    model.setSelectedFiles(false, model.unstagedFiles());
    model.toggleSearch();
    model.setSearchText("alpha");
    ASSERT_EQ(model.filteredUnstagedFiles().size(), 1u);
    EXPECT_EQ(model.selectedFiles(false).size(), 1u);

    test::await(model.stageSelected());
    EXPECT_EQ(repo.git({"diff", "--cached", "--name-only"}), "alpha.txt\n");

    // Unstaging the selection works the same way from the other list.
    repo.git({"add", "beta.txt"});
    test::await(model.refreshStatus());
    model.setSelectedFiles(true, model.stagedFiles());
    model.setSearchText("beta");
    test::await(model.unstageSelected());
    EXPECT_EQ(repo.git({"diff", "--cached", "--name-only"}), "alpha.txt\n");
}

TEST_F(ChangesHardCases, DiscardAllAfterAStagedRenameRestoresBothPaths) {
    // A rename alone; a rename, a copy and an added file each changed again after staging.
    const std::function<void()> setups[] = {
        [&] {
            repo.git({"mv", "alpha.txt", "renamed.txt"});
        },
        [&] {
            repo.git({"mv", "alpha.txt", "renamed.txt"});
            repo.write("renamed.txt", "alpha\nchanged after the rename\n");
            repo.write("copy.txt", "beta\n");
            repo.write("added.txt", "added\n");
            repo.git({"add", "-A"});
            repo.write("copy.txt", "beta, changed after staging\n");
            repo.write("added.txt", "added, changed after staging\n");
        },
    };
    for (const auto& setup : setups) {
        setup();
        test::await(model.refreshStatus());
        ASSERT_FALSE(model.stagedFiles().empty());
        // The index and what the work tree changes on it, for the undo to bring back.
        const auto staging = [&] {
            return repo.git({"ls-files", "--stage"}) + repo.git({"diff", "--no-renames"});
        };
        const std::string before = staging();

        test::await(model.discardAll());
        EXPECT_EQ(repo.read("alpha.txt"), "alpha\n");
        EXPECT_EQ(repo.read("beta.txt"), "beta\n");
        for (const char* path : {"renamed.txt", "copy.txt", "added.txt"})
            EXPECT_FALSE(std::filesystem::exists(repo / path)) << path;
        EXPECT_EQ(repo.git({"status", "--porcelain"}), "");
        EXPECT_EQ(toastText(), "");
        EXPECT_TRUE(model.stagedFiles().empty());
        EXPECT_TRUE(model.unstagedFiles().empty());

        // One undo brings every path back, staged as it was.
        const auto entries = test::await(service->undoHistory(entry()));
        ASSERT_EQ(entries.size(), 1u);
        test::await(service->undo(entry(), entries.front().id));
        EXPECT_EQ(staging(), before);
        repo.git({"reset", "-q", "--hard"});
    }
}

TEST_F(ChangesHardCases, NestedRepositoryIsNamedAndNeverDeleted) {
    test::git(repo.path(), {"init", "-q", "nested"});
    repo.write("nested/inside.txt", "not the parent's\n");
    test::await(model.refreshStatus());
    ASSERT_EQ(model.unstagedFiles().size(), 1u);
    const FileChange nested = unstagedRow("nested/");
    for (ChangesDisplayMode mode : {ChangesDisplayMode::list, ChangesDisplayMode::tree})
        EXPECT_EQ(shownNames(model.unstagedFiles(), mode), std::vector<std::string>{"nested [repository]"});

    const std::function<QCoro::Task<void>()> actions[] = {
        [&] { return model.discardFile(nested); },
        [&] { return model.deleteFile(nested); },
        [&] { return model.discardAll(); },
    };
    for (const auto& action : actions) {
        const std::size_t shown = toasts.toasts().size();
        test::await(action());
        EXPECT_NE(toastText(shown), "");
        EXPECT_TRUE(std::filesystem::is_directory(repo / "nested/.git"));
        EXPECT_EQ(repo.read("nested/inside.txt"), "not the parent's\n");
        EXPECT_EQ(model.unstagedFiles().size(), 1u);
    }
    // The two file actions name the refusal; Discard All counts it among its failures.
    const std::size_t shown = toasts.toasts().size();
    test::await(model.deleteFile(nested));
    EXPECT_EQ(toastText(shown),
              "Failed to delete file: nested/ is a nested repository; Orvel does not delete it\n");
}

TEST_F(ChangesHardCases, ModifiedSubmoduleIsOneSubmoduleRow) {
    test::TempRepo library;
    library.write("lib.txt", "one\n");
    library.commitAll("library one");
    repo.git({"-c", "protocol.file.allow=always", "submodule", "add", "-q", library.path(), "lib"});
    repo.git({"commit", "-q", "-m", "add the library"});
    test::git(repo / "lib", {"commit", "-q", "--allow-empty", "-m", "library two"});
    repo.write("lib/lib.txt", "dirty\n");
    repo.write("lib/scratch.txt", "untracked inside the submodule\n");
    test::await(model.refreshStatus());

    test::git(repo.path(), {"init", "-q", "tools/nested"});
    test::await(model.refreshStatus());
    ChangesPage page(model);
    test::saveScreenshot(page, "changes-submodule-and-nested-repository", {420, 300});

    ASSERT_EQ(model.unstagedFiles().size(), 2u);
    EXPECT_TRUE(unstagedRow("lib").isSubmodule);
    EXPECT_EQ(shownNames(model.unstagedFiles(), ChangesDisplayMode::list),
              (std::vector<std::string>{"lib [submodule]", "nested [repository]"}));

    // Staged, the row stays a submodule in the other list.
    repo.git({"add", "lib"});
    test::await(model.refreshStatus());
    ASSERT_EQ(model.stagedFiles().size(), 1u);
    EXPECT_TRUE(model.stagedFiles().front().isSubmodule);
}
