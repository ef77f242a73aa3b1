// The commit form's flow on real git: one commit a press however fast the presses come, no push
// while a merge is under way, and git's prepared message in an empty form when a merge, a pick or a
// revert stops.
#include "changes/ChangesOnRealGit.h"
#include "changes/ChangesPaneViewModel.h"
#include "core/support/Text.h"
#include "support/Await.h"

#include <gtest/gtest.h>

#include <functional>

using namespace orvel;

namespace {

class CommitFlow : public test::ChangesOnRealGit {
  protected:
    // How often HEAD moved by the given kind of reflog entry ("commit", "commit (amend)", ...).
    int headMoves(const std::string& kind) const {
        int count = 0;
        const std::string reflog = repo.git({"reflog", "--format=%gs", "HEAD"});
        for (const auto line : splitLines(reflog))
            if (line.starts_with(kind + ": "))
                ++count;
        return count;
    }

    ChangesPaneViewModel model{entry(), service, toasts};
};

} // namespace

TEST_F(CommitFlow, APressWhileACommitRunsDoesNothing) {
    const struct {
        bool amend;
        const char* reflogKind;
    } cases[] = {{false, "commit"}, {true, "commit (amend)"}};
    repo.write("file.txt", "one\n");
    repo.commitAll("base");
    int round = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reflogKind);
        repo.write("file.txt", "change " + std::to_string(++round) + "\n");
        repo.git({"add", "file.txt"});
        test::await(model.refreshStatus());
        const int movesBefore = headMoves(c.reflogKind);
        model.setAmend(c.amend);
        model.setCommitSubject("Change the file");

        auto first = model.commit();
        EXPECT_TRUE(model.isCommitting());
        EXPECT_FALSE(model.canCommit());
        auto second = model.commit();
        test::await(std::move(first));
        test::await(std::move(second));

        EXPECT_EQ(headMoves(c.reflogKind), movesBefore + 1);
        EXPECT_FALSE(model.isCommitting());
    }
    // No press failed; the second success counts as a repeat of the first toast.
    EXPECT_EQ(toastText(), "Committed successfully\n");
    EXPECT_EQ(toasts.toasts().back().repeatCount, 1);
    EXPECT_EQ(repo.git({"rev-list", "--count", "HEAD"}), "2\n");
}

TEST_F(CommitFlow, DuringAMergePushIsOffAndTheCommitGoesAhead) {
    repo.divergeOnOneFile();
    test::await(model.refreshStatus());
    model.setCommitAndPush(true);
    ASSERT_TRUE(model.isCommitAndPush());

    repo.gitAllowingFailure({"merge", "topic"});
    test::await(model.refreshStatus());
    EXPECT_EQ(model.repoState(), RepositoryState::merging);
    EXPECT_FALSE(model.canPush());
    EXPECT_FALSE(model.isCommitAndPush());
    model.setCommitAndPush(true);
    EXPECT_FALSE(model.isCommitAndPush());
    EXPECT_EQ(model.commitButtonTitle(), "Commit");

    // The prepared message is offered once: a form emptied by hand stays empty.
    EXPECT_EQ(model.commitSubject(), "Merge branch 'topic'");
    model.setCommitSubject("");
    repo.write("file", "merged\n");
    repo.git({"add", "file"});
    test::await(model.refreshStatus());
    EXPECT_EQ(model.commitSubject(), "");

    model.setCommitSubject("Merge the topic");
    test::await(model.commit());
    EXPECT_EQ(toastText(), "Committed successfully\n");
    EXPECT_EQ(repo.git({"log", "-1", "--format=%s %P"}),
              "Merge the topic " + repo.rev("main@{1}") + " " + repo.rev("topic") + "\n");
    EXPECT_EQ(model.repoState(), RepositoryState::clean);
}

TEST_F(CommitFlow, AStopFillsAnEmptyFormWithGitsPreparedMessage) {
    const struct {
        const char* name;
        std::vector<std::string> stop;
        QString typed;
        QString subject;
        std::function<QString(const test::TempRepo&)> description;
    } cases[] = {
        {"merge", {"merge", "topic"}, "", "Merge branch 'topic'", {}},
        {"pick", {"cherry-pick", "topic"}, "", "topic changes file", {}},
        {"revert",
         {"revert", "--no-edit", "main~1"},
         "",
         "Revert \"base\"",
         [](const test::TempRepo& stopped) {
             return QString::fromStdString("This reverts commit " + stopped.rev("main~1") + ".");
         }},
        {"merge after typing", {"merge", "topic"}, "My own words", "My own words", {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        test::TempRepo stopped;
        stopped.divergeOnOneFile();
        RepoEntry stoppedEntry;
        stoppedEntry.path = stopped.path();
        ChangesPaneViewModel form(stoppedEntry, service, toasts);
        test::await(form.refreshStatus());
        form.setCommitSubject(c.typed);
        ASSERT_NE(stopped.gitAllowingFailure(c.stop).exitCode, 0);
        test::await(form.refreshStatus());
        ASSERT_NE(form.repoState(), RepositoryState::clean);
        EXPECT_EQ(form.commitSubject(), c.subject);
        EXPECT_EQ(form.commitDescription(), c.description ? c.description(stopped) : QString());
    }
}
