// Who ours and theirs are in the merge editor, read from real git stopped in a merge, a rebase, a
// cherry-pick and a revert, and from files git could have left half-written.
#include "merge/ConflictSideNames.h"
#include "merge/ConflictResolutionViewModel.h"

#include "core/RealGitService.h"

#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>

using namespace orvel;

namespace orvel {
void PrintTo(const ConflictSideNames& names, std::ostream* out) {
    *out << "ours \"" << names.ours << "\", theirs \"" << names.theirs << "\"";
}
} // namespace orvel

namespace {

std::string shortHash(const test::TempRepo& repo, const std::string& revision) {
    return repo.rev(revision).substr(0, 7);
}

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
    struct Case {
        const char* name;
        std::function<void(const test::TempRepo&)> stop;
        std::function<ConflictSideNames(const test::TempRepo&)> expected;
    };
    const Case cases[] = {
        {"merge",
         [](const test::TempRepo& r) {
             r.gitAllowingFailure({"merge", "topic"});
         },
         [](const test::TempRepo&) {
             return ConflictSideNames{"main", "topic"};
         }},
        {"merge into a detached HEAD",
         [](const test::TempRepo& r) {
             r.git({"checkout", "-q", "--detach", "main"});
             r.gitAllowingFailure({"merge", "topic"});
         },
         [](const test::TempRepo& r) {
             return ConflictSideNames{shortHash(r, "main"), "topic"};
         }},
        // The rebase replays topic's commit onto main.
        {"rebase",
         [](const test::TempRepo& r) {
             r.git({"checkout", "-q", "topic"});
             r.gitAllowingFailure({"rebase", "main"});
         },
         [](const test::TempRepo& r) {
             return ConflictSideNames{"main", shortHash(r, "topic") + " topic changes file"};
         }},
        {"cherry-pick",
         [](const test::TempRepo& r) {
             r.gitAllowingFailure({"cherry-pick", "topic"});
         },
         [](const test::TempRepo& r) {
             return ConflictSideNames{"main", shortHash(r, "topic") + " topic changes file"};
         }},
        {"revert",
         [](const test::TempRepo& r) {
             r.write("file", "main again\n");
             r.commitAll("main changes file again");
             r.gitAllowingFailure({"revert", "--no-edit", "HEAD~1"});
         },
         [](const test::TempRepo& r) {
             return ConflictSideNames{"main", shortHash(r, "HEAD~1") + " Revert \"main changes file\""};
         }},
    };
    repo.divergeOnOneFile();
    const std::string mainHead = repo.head();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        c.stop(repo);
        ASSERT_NE(repo.git({"ls-files", "--unmerged"}), "");
        EXPECT_EQ(namesOnLoad(), c.expected(repo));
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
