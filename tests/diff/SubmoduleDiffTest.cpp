// A submodule row of the working tree shows the commit its folder moved to, not the folder's files:
// on a real repository with a real submodule, on both sides of the index, with the pane's words.
#include "diff/DiffDetailViewModel.h"
#include "diff/SubmoduleChange.h"
#include "diff/ui/DiffPane.h"

#include "changes/ChangesOnRealGit.h"
#include "core/parsers/DiffParser.h"
#include "support/Screenshot.h"
#include "support/Eventually.h"

#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

class SubmoduleDiff : public test::ChangesOnRealGit {
  protected:
    SubmoduleDiff() {
        library.write("lib.txt", "one\n");
        oldHash = library.commitAll("library one");
        repo.write("app.txt", "app\n");
        repo.commitAll("base");
        repo.git({"-c", "protocol.file.allow=always", "submodule", "add", "-q", library.path(), "lib"});
        repo.git({"commit", "-q", "-m", "add the library"});
        test::git(repo / "lib", {"commit", "-q", "--allow-empty", "-m", "library two"});
        newHash = test::git(repo / "lib", {"rev-parse", "HEAD"});
        newHash.pop_back();
    }

    void show(bool staged) {
        FileChange file;
        file.path = "lib";
        file.isSubmodule = true;
        file.status = staged ? FileStatusKind::tracked(TrackedStatus::modified, TrackedStatus::unmodified)
                             : FileStatusKind::tracked(TrackedStatus::unmodified, TrackedStatus::modified);
        model.showDiff(file, std::nullopt, false, staged);
        ASSERT_TRUE(test::eventually([&] { return model.content() != DiffDetailViewModel::Content::loading; }));
    }

    bool paneSays(const QString& text) const {
        for (const QLabel* label : pane.findChildren<QLabel*>())
            if (label->isVisibleTo(&pane) && label->text() == text)
                return true;
        return false;
    }

    test::TempRepo library;
    std::string oldHash, newHash;
    DiffDetailViewModel model{entry(), service};
    DiffPane pane{model};
};

} // namespace

TEST_F(SubmoduleDiff, ShowsTheCommitChangeAndWhetherItsTreeIsDirty) {
    const QString moved =
        QString::fromStdString("Submodule lib: " + oldHash.substr(0, 7) + " → " + newHash.substr(0, 7));
    pane.resize(900, 500);
    pane.show();
    const struct {
        const char* step;
        bool staged;
        SubmoduleChange change;
        QString title;
    } cases[] = {
        {"moved", false, {oldHash, newHash, false}, moved},
        {"dirty", false, {oldHash, newHash, true}, moved + " (dirty)"},
        {"staged", true, {oldHash, newHash, false}, moved},
    };
    for (const auto& c : cases) {
        if (c.step == std::string("dirty"))
            repo.write("lib/lib.txt", "changed inside the submodule\n");
        if (c.step == std::string("staged"))
            repo.git({"add", "lib"});
        show(c.staged);
        ASSERT_EQ(model.content(), DiffDetailViewModel::Content::submodule) << c.step;
        EXPECT_EQ(model.submoduleChange(), c.change) << c.step;
        EXPECT_TRUE(paneSays(c.title)) << c.step << ": " << c.title.toStdString();
        EXPECT_FALSE(paneSays("Untracked folder")) << c.step;
        if (c.change.isDirty)
            test::saveScreenshot(pane, "diff-submodule-dirty", {900, 500});
    }
}

// Read from git's own words: a new submodule has no old side, a removed one no new side.
TEST_F(SubmoduleDiff, ChangeIsReadFromTheDiffOfEachKind) {
    repo.git({"rm", "-q", "--cached", "lib"});
    const DiffResult removed = GitOutputParser::parseDiff(repo.git({"diff", "--cached"}));
    repo.git({"reset", "-q"});
    const std::string moved = repo.git({"diff", "--submodule=short"});
    repo.write("app.txt", "app changed\n");
    const std::string plain = repo.git({"diff", "--", "app.txt"});
    const struct {
        std::string text;
        std::optional<SubmoduleChange> change;
    } cases[] = {
        {moved, SubmoduleChange{oldHash, newHash, false}},
        {"diff --git a/lib b/lib\nnew file mode 160000\nindex 0000000..1234567\n--- /dev/null\n+++ b/lib\n"
         "@@ -0,0 +1 @@\n+Subproject commit " +
             newHash + "-dirty\n",
         SubmoduleChange{"", newHash, true}},
        {plain, std::nullopt},
    };
    for (const auto& c : cases) {
        const DiffResult diff = GitOutputParser::parseDiff(c.text);
        ASSERT_LE(diff.files.size(), 1u) << c.text;
        EXPECT_EQ(diff.files.empty() ? std::nullopt : submoduleChange(diff.files.front()), c.change)
            << c.text;
    }
    ASSERT_EQ(removed.files.size(), 1u);
    EXPECT_EQ(submoduleChange(removed.files.front()), (SubmoduleChange{oldHash, "", false}));
    EXPECT_EQ(shortHash(""), "0000000");
}
