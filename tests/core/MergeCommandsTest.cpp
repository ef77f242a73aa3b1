// Merge and rebase commands: the rebase-stop reader over its state files, and what real
// repositories do with each outcome.
#include "RealGitService.h"

#include "core/commands/MergeCommands.h"
#include "core/commands/RebaseStop.h"
#include "core/commands/RepositoryCommands.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/GitServiceError.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/RecordingExecutor.h"
#include "support/ScopedEnvironment.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <functional>

using namespace orvel;
using test::RecordingExecutor;
using test::TempDir;
using test::TempRepo;
using Args = std::vector<std::string>;

namespace {

const Args conflictQuery{"status", "--porcelain=v2", "-uall", "-z"};

// One unmerged record as "status --porcelain=v2 -z" prints it.
std::string unmergedRecord(const std::string& code, const std::string& path) {
    const std::string blob(40, 'a');
    return "u " + code + " N... 100644 100644 100644 100644 " + blob + " " + blob + " " + blob + " " + path +
           '\0';
}

std::vector<std::pair<std::string, ConflictType>> pathsAndTypes(const std::vector<ConflictEntry>& files) {
    std::vector<std::pair<std::string, ConflictType>> result;
    for (const ConflictEntry& file : files)
        result.emplace_back(file.path, file.conflictType);
    return result;
}

} // namespace

namespace {

class RebaseStopFiles : public ::testing::Test {
  protected:
    TempDir dir;
    RecordingExecutor git;

    void writeState(const std::string& name, const std::string& content) {
        std::filesystem::create_directories(dir / "git/rebase-merge");
        test::writeFile(dir / ("git/rebase-merge/" + name), content);
    }
    RepoEntry repo() const {
        RepoEntry entry;
        entry.path = dir.path();
        entry.gitDirPath = dir / "git";
        return entry;
    }
};

} // namespace

TEST_F(RebaseStopFiles, ConflictStopWithStepsAndHash) {
    writeState("msgnum", " 2\n");
    writeState("end", "3\n");
    writeState("stopped-sha", "0123abcd\n\n");
    git.reply(unmergedRecord("UD", "gone.txt"));
    const InteractiveRebaseResult result = readRebaseStop(git, repo());
    ASSERT_TRUE(std::holds_alternative<RebaseStop>(result));
    const RebaseStop& stop = std::get<RebaseStop>(result);
    EXPECT_EQ(stop.stoppedAtHash, "0123abcd");
    EXPECT_EQ(stop.currentStep, 2);
    EXPECT_EQ(stop.totalSteps, 3);
    EXPECT_EQ(pathsAndTypes(stop.files),
              (std::vector<std::pair<std::string, ConflictType>>{{"gone.txt", ConflictType::deletedByThem}}));
    EXPECT_EQ(git.argumentLists(), (std::vector<Args>{conflictQuery}));
    EXPECT_EQ(git.calls()[0].repoPath, dir.path());
}

TEST_F(RebaseStopFiles, UnreadableFilesAFailedQueryOrNoGitDirectoryStillGiveAStop) {
    writeState("end", "three\n");
    git.fail("status");
    const InteractiveRebaseResult result = readRebaseStop(git, repo());
    ASSERT_TRUE(std::holds_alternative<rebase::EditStop>(result));
    const auto& stop = std::get<rebase::EditStop>(result);
    EXPECT_EQ(std::tie(stop.hash, stop.currentStep, stop.totalSteps), std::make_tuple("", 0, 0));

    // Without a git directory in the entry, the work tree's ".git" is read.
    std::filesystem::create_directories(dir / ".git/rebase-merge");
    test::writeFile(dir / ".git/rebase-merge/msgnum", "4");
    RepoEntry withoutGitDirectory;
    withoutGitDirectory.path = dir.path();
    const InteractiveRebaseResult fromDotGit = readRebaseStop(git, withoutGitDirectory);
    ASSERT_TRUE(std::holds_alternative<rebase::EditStop>(fromDotGit));
    EXPECT_EQ(std::get<rebase::EditStop>(fromDotGit).currentStep, 4);
}

TEST_F(RebaseStopFiles, NoRebaseInProgressIsAnError) {
    const GitServiceError error = test::serviceError([&] { readRebaseStop(git, repo()); });
    EXPECT_EQ(error.kind(), GitServiceError::Kind::commandFailed);
    EXPECT_EQ(error.description(), "git rebase failed: Rebase failed unexpectedly");
    EXPECT_TRUE(git.calls().empty());
}

namespace {

class MergesInRealRepository : public ::testing::Test {
  protected:
    InMemoryUserDefaults defaults;
    SubprocessExecutor git{std::nullopt, defaults};
    TempRepo repo;

    RepoEntry entry() { return RepositoryCommands::open(git, repo.path()); }
    bool exists(const std::string& relative) const { return std::filesystem::exists(repo / relative); }
};

} // namespace

TEST_F(MergesInRealRepository, MergeBlockedByLocalChangesIsAnErrorAndChangesNothing) {
    repo.divergeOnOneFile();
    const std::string head = repo.head();
    repo.write("file", "uncommitted\n");
    const GitServiceError blocked =
        test::serviceError([&] { MergeCommands::merge(git, repo.path(), "topic"); });
    EXPECT_EQ(blocked.kind(), GitServiceError::Kind::commandFailed);
    EXPECT_EQ(blocked.command(), "merge");
    EXPECT_NE(blocked.stderrText().find("would be overwritten by merge"), std::string::npos)
        << blocked.stderrText();
    EXPECT_EQ(repo.read("file"), "uncommitted\n");
    EXPECT_EQ(repo.head(), head);
    EXPECT_FALSE(exists(".git/MERGE_HEAD"));
}

TEST_F(MergesInRealRepository, RebaseConflictThenContinueWithUnresolvedFiles) {
    repo.divergeOnOneFile();
    repo.git({"checkout", "-q", "topic"});
    repo.write("more", "more\n");
    repo.commitAll("topic adds more");
    const std::string firstTopic = repo.rev("HEAD^");

    const RebaseResult started = MergeCommands::rebase(git, repo.path(), "main");
    ASSERT_TRUE(std::holds_alternative<RebaseStop>(started));
    EXPECT_EQ(pathsAndTypes(std::get<RebaseStop>(started).files),
              (std::vector<std::pair<std::string, ConflictType>>{{"file", ConflictType::bothModified}}));
    EXPECT_EQ(std::get<RebaseStop>(started).currentStep, 0);

    const InteractiveRebaseResult again = MergeCommands::rebaseContinue(git, entry());
    ASSERT_TRUE(std::holds_alternative<RebaseStop>(again));
    const RebaseStop& stop = std::get<RebaseStop>(again);
    EXPECT_FALSE(stop.stoppedAtHash.empty());
    EXPECT_TRUE(firstTopic.starts_with(stop.stoppedAtHash)) << stop.stoppedAtHash;
    EXPECT_EQ(stop.currentStep, 1);
    EXPECT_EQ(stop.totalSteps, 2);
    ASSERT_EQ(stop.files.size(), 1u);
    EXPECT_EQ(stop.files[0].path, "file");

    repo.write("file", "resolved\n");
    repo.git({"add", "file"});
    // As when started from a desktop menu: no terminal type, no editor anywhere. git would open
    // an editor on the resolved step's message; it must keep the message and finish.
    const test::ScopedEnvironment noTerm("TERM", std::nullopt), noEditor("EDITOR", std::nullopt),
        noVisual("VISUAL", std::nullopt), noGitEditor("GIT_EDITOR", std::nullopt);
    const InteractiveRebaseResult finished = MergeCommands::rebaseContinue(git, entry());
    EXPECT_TRUE(std::holds_alternative<rebase::Success>(finished));
    EXPECT_FALSE(exists(".git/rebase-merge"));
    EXPECT_EQ(repo.git({"log", "--format=%s", "-3"}),
              "topic adds more\ntopic changes file\nmain changes file\n");
}

TEST_F(MergesInRealRepository, SkipOfTheLastStepEndsTheRebaseAndThenNothingContinues) {
    repo.divergeOnOneFile();
    const std::string mainHead = repo.head();
    repo.git({"checkout", "-q", "topic"});
    const std::string topicHead = repo.head();
    ASSERT_TRUE(std::holds_alternative<RebaseStop>(MergeCommands::rebase(git, repo.path(), "main")));
    EXPECT_TRUE(std::holds_alternative<rebase::Success>(MergeCommands::rebaseSkip(git, entry())));
    EXPECT_EQ(repo.head(), mainHead);
    EXPECT_EQ(repo.git({"symbolic-ref", "--short", "HEAD"}), "topic\n");
    EXPECT_FALSE(exists(".git/rebase-merge"));

    // A rebase stopped, then aborted: continue, skip and abort have nothing to work on.
    repo.git({"reset", "-q", "--hard", topicHead});
    ASSERT_TRUE(std::holds_alternative<RebaseStop>(MergeCommands::rebase(git, repo.path(), "main")));
    MergeCommands::abortRebase(git, repo.path());
    EXPECT_EQ(repo.head(), topicHead);
    EXPECT_FALSE(exists(".git/rebase-merge"));
    const GitServiceError error = test::serviceError([&] { MergeCommands::rebaseContinue(git, entry()); });
    EXPECT_EQ(error.command(), "rebase");
    EXPECT_EQ(error.stderrText(), "Rebase failed unexpectedly");
    EXPECT_EQ(test::serviceError([&] { MergeCommands::rebaseSkip(git, entry()); }).stderrText(),
              "Rebase failed unexpectedly");
    EXPECT_EQ(test::serviceError([&] { MergeCommands::abortRebase(git, repo.path()); }).command(), "rebase");
}
