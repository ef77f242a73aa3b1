// Who ours and theirs are in the merge editor, read from real git stopped in a merge, a rebase, a
// cherry-pick and a revert, and from files git could have left half-written.
#include "merge/ConflictSideNames.h"
#include "merge/ConflictResolutionViewModel.h"

#include "core/RealGitService.h"
#include "merge/ConflictedMerge.h"

#include <QTest>

#include <gtest/gtest.h>

#include <ostream>

using namespace orvel;

namespace orvel {
void PrintTo(const ConflictSideNames& names, std::ostream* out) {
    *out << "ours \"" << names.ours << "\", theirs \"" << names.theirs << "\"";
}
} // namespace orvel

namespace {

class ConflictSideNamesTest : public test::RepositoryTest {
  protected:
    // The names the merge editor's model reads for the conflicted "file".
    ConflictSideNames namesOnLoad() {
        ConflictEntry conflict;
        conflict.path = "file";
        ConflictResolutionViewModel model(entry(), std::move(conflict), service);
        bool named = false;
        QObject::connect(&model, &ConflictResolutionViewModel::sideNamesChanged, &model,
                         [&named] { named = true; });
        model.load();
        EXPECT_TRUE(QTest::qWaitFor([&] { return named && !model.isLoading(); }, 20000));
        return model.sideNames();
    }

    std::shared_ptr<GitServiceProtocol> service{&real.service, [](GitServiceProtocol*) {}};
};

TEST_F(ConflictSideNamesTest, EachOperationNamesItsSides) {
    // A side is its name, or the short hash of a revision and the text after it.
    const struct {
        const char* operation;
        bool detached;
        const char* oursHashOf;
        const char* theirsHashOf;
        const char* theirs;
    } cases[] = {
        {"merge", false, nullptr, nullptr, "topic"},
        {"merge", true, "main", nullptr, "topic"},
        // The rebase replays topic's commit onto main.
        {"rebase", false, nullptr, "topic", " topic changes file"},
        {"cherry-pick", false, nullptr, "topic", " topic changes file"},
        {"revert", false, nullptr, "HEAD~1", " Revert \"main changes file\""},
    };
    repo.divergeOnOneFile();
    const std::string mainHead = repo.head();
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.operation) + (c.detached ? " into a detached HEAD" : ""));
        if (c.detached)
            repo.git({"checkout", "-q", "--detach", "main"});
        test::stopOnConflict(repo, c.operation);
        ASSERT_NE(repo.git({"ls-files", "--unmerged"}), "");
        const auto hashOf = [&](const char* revision) {
            return revision ? repo.rev(revision).substr(0, 7) : "";
        };
        EXPECT_EQ(namesOnLoad(), (ConflictSideNames{c.oursHashOf ? hashOf(c.oursHashOf) : "main",
                                                    hashOf(c.theirsHashOf) + c.theirs}));
        for (const char* operation : {"merge", "rebase", "cherry-pick", "revert"})
            repo.gitAllowingFailure({operation, "--abort"});
        repo.git({"checkout", "-q", "-f", "main"});
        repo.git({"reset", "-q", "--hard", mainHead});
    }
}

TEST_F(ConflictSideNamesTest, FilesGitLeftIncompleteStillGiveNames) {
    struct Case {
        const char* name;
        SideFiles files;
        ConflictSideNames expected;
    };
    const std::string hash(40, 'a');
    const Case cases[] = {
        {"nothing at all", {}, {}},
        {"a merge without its message",
         {{"HEAD", "ref: refs/heads/main\n"}, {"MERGE_HEAD", hash + "\n"}},
         {"main", "aaaaaaa"}},
        {"a message with one quote",
         {{"MERGE_HEAD", hash}, {"MERGE_MSG", "Merge branch 'x"}},
         {"", "aaaaaaa"}},
        {"a remote branch merged",
         {{"MERGE_HEAD", hash}, {"MERGE_MSG", "Merge remote-tracking branch 'origin/x' into y\n"}},
         {"", "origin/x"}},
        {"a rebase onto a commit no branch names",
         {{"rebase-merge/onto", hash}, {"REBASE_HEAD", "bbbbbbbbbb"}},
         {"aaaaaaa", "bbbbbbb"}},
        {"a rebase with an empty onto",
         {{"rebase-merge/onto", ""}, {"HEAD", "ref: refs/tags/v1"}},
         {"refs/tags/v1", ""}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(conflictSideNames(c.files, {}), c.expected);
    }
}

} // namespace
