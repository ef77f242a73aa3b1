// Staging and committing against real repositories: awkward paths, the fall-back of a repository
// without commits, a refusing hook, amends, and messages that a shell would have interpreted.
#include "RealGitService.h"

#include "core/service/GitServiceError.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>

using namespace orvel;
using namespace std::string_literals;
using orvel::test::TempRepo;

namespace {

const std::string spaced = "with space.txt";
const std::string dashed = "-dash.txt";
const std::string latin1 = "caf\xe9.txt"; // not UTF-8

class StagingInRepository : public test::RepositoryTest {
  protected:
    std::string staged() const { return repo.git({"diff", "--cached", "--name-only", "-z"}); }
    // The message as stored in the commit object, bytes untouched.
    std::string lastMessage() const {
        const std::string object = repo.git({"cat-file", "commit", "HEAD"});
        return object.substr(object.find("\n\n") + 2);
    }

    NativeGitService& service = real.service;
};

} // namespace

TEST_F(StagingInRepository, AwkwardPathsStageUnstageAndDiscard) {
    repo.write("base.txt", "base\n");
    repo.commitAll("base");
    for (const auto& path : {spaced, dashed, latin1})
        repo.write(path, "new\n");

    test::await(service.stage(entry(), spaced));
    EXPECT_EQ(staged(), spaced + '\0');
    test::await(service.stageFiles(entry(), {dashed, latin1}));
    EXPECT_EQ(staged(), dashed + '\0' + latin1 + '\0' + spaced + '\0');
    test::await(service.unstage(entry(), dashed));
    EXPECT_EQ(staged(), latin1 + '\0' + spaced + '\0');
    test::await(service.unstageFiles(entry(), {spaced, latin1}));
    EXPECT_EQ(staged(), "");
    test::await(service.stageAll(entry()));
    EXPECT_EQ(staged(), dashed + '\0' + latin1 + '\0' + spaced + '\0');
    test::await(service.unstageAll(entry()));
    EXPECT_EQ(staged(), "");
    for (const auto& path : {spaced, dashed, latin1})
        EXPECT_EQ(repo.read(path), "new\n") << "unstaging must leave the file alone";

    // Committed, then changed in the index and in the work tree.
    repo.commitAll("awkward");
    for (const auto& path : {spaced, dashed, latin1}) {
        repo.write(path, "staged\n");
        repo.git({"add", "--", path});
        repo.write(path, "unstaged\n");
    }
    test::await(service.discardChanges(entry(), dashed, false));
    EXPECT_EQ(repo.read(dashed), "staged\n");
    test::await(service.discardChanges(entry(), latin1, true));
    EXPECT_EQ(repo.read(latin1), "new\n");
    EXPECT_EQ(staged(), dashed + '\0' + spaced + '\0');
}

TEST_F(StagingInRepository, DiscardingAnUntrackedFileFailsAndKeepsIt) {
    repo.commitAll("base");
    repo.write("loose.txt", "keep me\n");
    const GitServiceError error =
        test::serviceError([&] { test::await(service.discardChanges(entry(), "loose.txt", false)); });
    EXPECT_EQ(error.command(), "restore");
    EXPECT_NE(error.stderrText().find("did not match"), std::string::npos) << error.stderrText();
    EXPECT_EQ(repo.read("loose.txt"), "keep me\n");
}

TEST_F(StagingInRepository, UnstageWithoutCommitsRemovesFromTheIndex) {
    repo.write("a.txt", "a\n");
    repo.write("b.txt", "b\n");
    repo.write("-c.txt", "c\n");
    repo.git({"add", "-A"});
    test::await(service.unstage(entry(), "a.txt"));
    EXPECT_EQ(staged(), "-c.txt\0b.txt\0"s);
    test::await(service.unstageFiles(entry(), {"-c.txt"}));
    EXPECT_EQ(staged(), "b.txt\0"s);
    test::await(service.unstageAll(entry()));
    EXPECT_EQ(staged(), "");
    EXPECT_EQ(repo.read("a.txt"), "a\n");
}

TEST_F(StagingInRepository, RefusingHookLeavesIndexAndHistoryAsTheyWere) {
    const std::string before = repo.commitAll("base");
    repo.write("file.txt", "content\n");
    repo.git({"add", "file.txt"});
    const std::string hook = repo / ".git/hooks/pre-commit";
    test::writeFile(hook, "#!/bin/sh\necho 'refused by policy' >&2\nexit 1\n");
    ::chmod(hook.c_str(), 0700);
    const GitServiceError error =
        test::serviceError([&] { test::await(service.commit(entry(), "should not land")); });
    EXPECT_EQ(error.kind(), GitServiceError::Kind::commandFailed);
    EXPECT_EQ(error.command(), "commit");
    EXPECT_NE(error.stderrText().find("refused by policy"), std::string::npos);
    EXPECT_EQ(repo.head(), before);
    EXPECT_EQ(staged(), "file.txt\0"s);
}

TEST_F(StagingInRepository, CommitReadsTheNewCommitBackAndAnAmendWithNothingStagedReplacesTheMessage) {
    const std::string parent = repo.commitAll("base");
    repo.write("file.txt", "content\n");
    test::await(service.stage(entry(), "file.txt"));
    const CommitEntry made = test::await(service.commit(entry(), "Add the file\n\nWith a body."));
    EXPECT_EQ(made.hash, repo.head());
    EXPECT_EQ(made.parentHashes, std::vector<std::string>{parent});
    EXPECT_EQ(made.subject, "Add the file");
    EXPECT_EQ(made.body, "With a body.\n");
    EXPECT_EQ(made.authorName, "Orvel Test");
    EXPECT_EQ(made.refs, std::vector<std::string>{"HEAD -> main"});
    EXPECT_EQ(staged(), "");

    const CommitEntry amended = test::await(service.amendCommit(entry(), "second message"));
    EXPECT_NE(amended.hash, made.hash);
    EXPECT_EQ(amended.hash, repo.head());
    EXPECT_EQ(amended.subject, "second message");
    EXPECT_EQ(amended.parentHashes, std::vector<std::string>{parent});
    EXPECT_EQ(repo.git({"rev-parse", made.hash + "^{tree}"}), repo.git({"rev-parse", "HEAD^{tree}"}));
    EXPECT_EQ(lastMessage(), "second message\n");
}

TEST_F(StagingInRepository, MessagesArriveByteExactAndNothingIsExecuted) {
    repo.commitAll("base");
    repo.write("file.txt", "content\n");
    repo.git({"add", "file.txt"});
    const std::string message = "Quote \" and ' then $(touch pwned) and `touch pwned2` and ${HOME} \\n;\n\n"
                                "body with \xc3\xa9 and $(touch pwned3)";
    const CommitEntry made = test::await(service.commit(entry(), message));
    EXPECT_EQ(lastMessage(), message + "\n");
    EXPECT_EQ(made.subject, "Quote \" and ' then $(touch pwned) and `touch pwned2` and ${HOME} \\n;");
    for (const char* name : {"pwned", "pwned2", "pwned3"}) {
        EXPECT_FALSE(std::filesystem::exists(repo / name)) << name;
        EXPECT_FALSE(std::filesystem::exists(name)) << name;
    }
    const CommitEntry amended =
        test::await(service.amendCommit(entry(), "-m `touch pwned` \"$(touch pwned)\""));
    EXPECT_EQ(amended.subject, "-m `touch pwned` \"$(touch pwned)\"");
    EXPECT_FALSE(std::filesystem::exists(repo / "pwned"));
}
