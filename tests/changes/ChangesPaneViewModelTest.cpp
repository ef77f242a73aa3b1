// The changes page's model: the split of a real status into the two lists, the commit form's
// rules, rows that move at once and come back when git refuses, and the file work of discarding
// and ignoring on real repositories.
#include "changes/ChangesPaneViewModel.h"
#include "changes/ChangesOnRealGit.h"
#include "changes/CommitMessage.h"
#include "changes/StatusRows.h"
#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"
#include "support/Await.h"
#include "notices/ToastManager.h"

#include <gtest/gtest.h>

using namespace orvel;

namespace {

std::string describe(const std::vector<FileChange>& rows, bool staged) {
    std::string out;
    for (const FileChange& row : rows) {
        out +=
            rowID(row, staged) + " " + (row.displayStatus ? std::string(1, codeOf(*row.displayStatus)) : "-");
        if (row.originalPath)
            out += " from " + *row.originalPath;
        out += "\n";
    }
    return out;
}

class ChangesModelOnRealGit : public test::ChangesOnRealGit {
  protected:
    ChangesModelOnRealGit() {
        repo.write("both.txt", "one\n");
        repo.write("old-name.txt", "a file that will be renamed\n");
        repo.write("gone.txt", "deleted soon\n");
        repo.commitAll("base");
    }

    ChangesPaneViewModel& model() { return model_; }

    ChangesPaneViewModel model_{entry(), service, toasts};
};

} // namespace

TEST_F(ChangesModelOnRealGit, StatusSplitsIntoStagedAndUnstagedRows) {
    repo.write("both.txt", "two\n");
    repo.git({"add", "both.txt"});
    repo.write("both.txt", "three\n");
    repo.git({"mv", "old-name.txt", "new-name.txt"});
    repo.git({"rm", "-q", "gone.txt"});
    repo.write("fresh.txt", "untracked\n");
    test::await(model().refreshStatus());
    EXPECT_EQ(describe(model().stagedFiles(), true),
              "staged:both.txt M\nstaged:gone.txt D\nstaged:new-name.txt R from old-name.txt\n");
    EXPECT_EQ(describe(model().unstagedFiles(), false), "both.txt M\nfresh.txt -\n");
    EXPECT_EQ(model().stagedAdditions(), 1);
    EXPECT_EQ(model().stagedDeletions(), 2);

    // The filter keeps the rows whose path contains the text, in any case; turning it off keeps all.
    model().toggleSearch();
    model().setSearchText("BOTH");
    EXPECT_EQ(model().filteredStagedFiles().size(), 1u);
    EXPECT_EQ(model().filteredUnstagedFiles().size(), 1u);
    model().toggleSearch();
    EXPECT_EQ(model().filteredUnstagedFiles().size(), 2u);
}

TEST_F(ChangesModelOnRealGit, DiscardRemovesAddedFilesAndRestoresTrackedOnes) {
    repo.write("intent.txt", "added with intent\n");
    repo.git({"add", "-N", "intent.txt"});
    test::await(model().refreshStatus());
    ASSERT_EQ(model().unstagedFiles().size(), 1u);
    test::await(model().discardFile(model().unstagedFiles().front()));
    EXPECT_FALSE(std::filesystem::exists(repo / "intent.txt"));
    EXPECT_EQ(repo.git({"status", "--porcelain"}), "");
    // Deleting an untracked file goes through the undo journal, which brings it back.
    repo.write("notes/draft.txt", "only here\n");
    test::await(model().refreshStatus());
    test::await(model().deleteFile(model().unstagedFiles().front()));
    EXPECT_FALSE(std::filesystem::exists(repo / "notes/draft.txt"));
    const auto entries = test::await(service->undoHistory(entry()));
    ASSERT_EQ(entries.size(), 2u);
    test::await(service->undo(entry(), entries.front().id));
    EXPECT_EQ(repo.read("notes/draft.txt"), "only here\n");

    repo.write("both.txt", "changed\n");
    repo.write("added.txt", "staged new file\n");
    repo.git({"add", "added.txt"});
    repo.write("scratch.txt", "untracked\n");
    test::await(model().refreshStatus());
    test::await(model().discardAll());
    EXPECT_EQ(repo.read("both.txt"), "one\n");
    EXPECT_FALSE(std::filesystem::exists(repo / "added.txt"));
    EXPECT_FALSE(std::filesystem::exists(repo / "scratch.txt"));
    EXPECT_TRUE(model().stagedFiles().empty());
    EXPECT_TRUE(model().unstagedFiles().empty());
    EXPECT_FALSE(model().isDiscardingAll());
    EXPECT_TRUE(toasts.toasts().empty());
}

TEST_F(ChangesModelOnRealGit, IgnoreAppendsTheExactPathOnALineOfItsOwn) {
    const struct {
        std::optional<std::string> before;
        std::string after;
    } cases[] = {
        {std::nullopt, "build dir/out.o\n"},
        {"*.log", "*.log\nbuild dir/out.o\n"},
        {"*.log\n", "*.log\nbuild dir/out.o\n"},
    };
    for (const auto& c : cases) {
        std::filesystem::remove(repo / ".gitignore");
        if (c.before)
            repo.write(".gitignore", *c.before);
        repo.write("build dir/out.o", "x");
        test::await(model().refreshStatus());
        FileChange file;
        file.path = "build dir/out.o";
        test::await(model().ignoreFile(file));
        EXPECT_EQ(repo.read(".gitignore"), c.after);
        for (const FileChange& row : model().unstagedFiles())
            EXPECT_NE(row.path, "build dir/out.o");
    }
}

TEST(CommitForm, ButtonTitleAndWhatCanBeCommitted) {
    const struct {
        bool amend, push;
        const char* title;
    } titles[] = {{false, false, "Commit"},
                  {false, true, "Commit and Push"},
                  {true, false, "Amend Previous Commit"},
                  {true, true, "Amend and Push"}};
    for (const auto& c : titles)
        EXPECT_EQ(commitButtonTitle(c.amend, c.push), QString::fromUtf8(c.title));

    const struct {
        QString subject, description;
        std::optional<std::string> message;
    } messages[] = {
        {" \n\t", "body", std::nullopt},
        {"  Fix the parser \n", "", "Fix the parser"},
        {"Subject", "\n\n  \n", "Subject"},
        {"Subject", "\n First line\nsecond\n\n", "Subject\n\nFirst line\nsecond"},
    };
    for (const auto& c : messages)
        EXPECT_EQ(composeCommitMessage(c.subject, c.description), c.message) << c.subject.toStdString();

    auto service = std::make_shared<MockGitService>();
    ToastManager toasts;
    ChangesPaneViewModel model(service->repository, service, toasts);
    model.setCommitSubject(QString(73, QLatin1Char('x')));
    // Nothing staged: only an amend may go ahead.
    EXPECT_FALSE(model.canCommit());
    model.setAmend(true);
    EXPECT_TRUE(model.canCommit());
    model.setCommitSubject("   ");
    EXPECT_FALSE(model.canCommit());
    test::await(model.commit());
    EXPECT_TRUE(toasts.toasts().empty());
}

namespace {

// Refuses to stage, as git does for a path it cannot add.
class RefusingStage : public MockGitService {
  public:
    QCoro::Task<void> stage(RepoEntry, std::string, std::stop_token) override {
        throw GitServiceError::commandFailed("add", "fatal: pathspec did not match");
        co_return;
    }
};

} // namespace

TEST(ChangesRows, MoveAtOnceAndComeBackWhenGitRefuses) {
    auto service = std::make_shared<RefusingStage>();
    FileChange changed;
    changed.path = "src/a.cpp";
    changed.status = FileStatusKind::tracked(TrackedStatus::unmodified, TrackedStatus::modified);
    service->workingTree.files = {changed};
    ToastManager toasts;
    ChangesPaneViewModel model(service->repository, service, toasts);
    test::await(model.refreshStatus());
    ASSERT_EQ(model.unstagedFiles().size(), 1u);

    std::vector<std::pair<std::size_t, std::size_t>> seen; // staged, unstaged at each change
    QObject::connect(&model, &ChangesPaneViewModel::listsChanged,
                     [&] { seen.emplace_back(model.stagedFiles().size(), model.unstagedFiles().size()); });
    test::await(model.stageFile(model.unstagedFiles().front()));
    // The row moves before git answers; the status read after the refusal puts it back.
    const std::vector<std::pair<std::size_t, std::size_t>> expected{{1, 0}, {0, 1}};
    EXPECT_EQ(seen, expected);
    ASSERT_EQ(toasts.toasts().size(), 1u);
    EXPECT_TRUE(toasts.toasts().front().message.startsWith("Stage failed: "));

    // A status read that finds the same lists changes nothing that a view would redraw.
    seen.clear();
    test::await(model.refreshStatus());
    EXPECT_TRUE(seen.empty());
}
