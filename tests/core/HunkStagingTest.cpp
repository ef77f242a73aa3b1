// Hunk staging: the one-hunk patch cut from git's text, the private patch file and its removal on
// every path, the re-read and patch of chosen lines, and stage, unstage and discard against real
// repositories.
#include "RealGitService.h"

#include "core/commands/HunkPatch.h"
#include "core/parsers/DiffParser.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/GitServiceError.h"
#include "core/service/NativeGitService.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/PrivateTemporaryDirectory.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>

namespace orvel {
namespace {

namespace fs = std::filesystem;
using HunkCommands::extractHunkPatch;
using HunkCommands::hunkHeaderMatches;
using test::await;
using Arguments = GitExecutorProtocol::Arguments;

using test::RealGitService;

const std::string notFound =
    "Failed to parse git apply: target hunk not found \u2014 file may have changed since "
    "you viewed the diff";

DiffHunk numbers(int oldStart, int oldCount, int newStart, int newCount) {
    DiffHunk hunk;
    hunk.oldStart = oldStart;
    hunk.oldCount = oldCount;
    hunk.newStart = newStart;
    hunk.newCount = newCount;
    return hunk;
}

// `git diff --cached -M` of a renamed file with two hunks, one changed line of each holding "@@".
constexpr std::string_view renamedTwoHunks =
    "diff --git a/r.txt b/moved.txt\nsimilarity index 72%\nrename from r.txt\nrename to moved.txt\n"
    "index 569fb63..7341c6b 100644\n--- a/r.txt\n+++ b/moved.txt\n"
    "@@ -1,5 +1,5 @@\n row 1\n-row 2\n+row 2 @@ -1 +1 @@ changed\n row 3\n row 4\n row 5\n"
    "@@ -15,6 +15,6 @@ row 14\n row 15\n row 16\n row 17\n-row 18\n+@@ row 18 changed\n row 19\n row 20\n";

constexpr std::string_view patchHeader =
    "diff --git a/r.txt b/moved.txt\nindex 569fb63..7341c6b 100644\n--- a/r.txt\n+++ b/moved.txt\n";

TEST(HunkPatch, HeaderMatchesOnTheFourNumbersOnly) {
    EXPECT_TRUE(hunkHeaderMatches("@@ -1 +1 @@", numbers(1, 1, 1, 1)));
    EXPECT_TRUE(hunkHeaderMatches("@@ -15,6 +15,6 @@ row 14", numbers(15, 6, 15, 6)));
    EXPECT_TRUE(hunkHeaderMatches("@@ -0,0 +1,3 @@", numbers(0, 0, 1, 3)));
    EXPECT_TRUE(hunkHeaderMatches("@@\t-2,3 +2,4\t@@", numbers(2, 3, 2, 4)));
    EXPECT_FALSE(hunkHeaderMatches("@@ -15,6 +15,7 @@", numbers(15, 6, 15, 6)));
    EXPECT_FALSE(hunkHeaderMatches("@@ -1 +1 @@", numbers(1, 0, 1, 1)));
    EXPECT_FALSE(hunkHeaderMatches("@@ +1 -1 @@", numbers(1, 1, 1, 1)));
    EXPECT_FALSE(hunkHeaderMatches("@@ -x,1 +1 @@", numbers(0, 1, 1, 1)));
    EXPECT_FALSE(hunkHeaderMatches("@@ -1,y +1 @@", numbers(1, 1, 1, 1)));
    EXPECT_FALSE(hunkHeaderMatches("@@ -1 @@", numbers(1, 1, 1, 1)));
    EXPECT_FALSE(hunkHeaderMatches("no header", numbers(0, 0, 0, 0)));
}

TEST(HunkPatch, CutsTheTargetHunkWithTheFileHeaderOnly) {
    // Not the similarity and rename lines; "@@" inside changed lines doesn't end the hunk.
    EXPECT_EQ(extractHunkPatch(renamedTwoHunks, numbers(1, 5, 1, 5)),
              std::string(patchHeader) + "@@ -1,5 +1,5 @@\n row 1\n-row 2\n+row 2 @@ -1 +1 @@ changed\n"
                                         " row 3\n row 4\n row 5\n");
    // The last hunk takes the empty piece after the final newline along: two newlines at the end.
    EXPECT_EQ(extractHunkPatch(renamedTwoHunks, numbers(15, 6, 15, 6)),
              std::string(patchHeader) + "@@ -15,6 +15,6 @@ row 14\n row 15\n row 16\n row 17\n-row 18\n"
                                         "+@@ row 18 changed\n row 19\n row 20\n\n");
    EXPECT_EQ(extractHunkPatch(renamedTwoHunks, numbers(15, 6, 15, 7)), "");
    EXPECT_EQ(extractHunkPatch("", numbers(0, 0, 0, 0)), "");
}

// Answers the re-read with `rawDiff` and looks at the patch file while `apply` runs.
class ApplyWatchingExecutor final : public GitExecutorProtocol {
  public:
    std::string execute(const Arguments& arguments, const std::string&) override {
        calls.push_back(arguments);
        if (arguments.front() != "apply")
            return rawDiff;
        struct stat info {};
        ::stat(arguments.back().c_str(), &info);
        patchMode = info.st_mode & 07777;
        patch = test::readFile(arguments.back());
        if (rejectApply)
            throw GitServiceError::commandFailed("apply", "error: patch failed: r.txt:1");
        return {};
    }
    std::string executeWithEnvironment(const Arguments& arguments, const std::string& repoPath,
                                       const Environment&) override {
        return execute(arguments, repoPath);
    }
    std::string resolvedGitPath() override { return "/usr/bin/git"; }
    std::string gitVersion() override { return "git version 2.39.5"; }
    void setGitPathOverride(const std::optional<std::string>&) override {}

    std::string rawDiff{renamedTwoHunks};
    bool rejectApply = false;
    std::vector<Arguments> calls;
    std::string patch;
    unsigned patchMode = 0;
};

class HunkArguments : public test::PrivateTemporaryDirectoryTest {
  protected:
    std::shared_ptr<ApplyWatchingExecutor> git = std::make_shared<ApplyWatchingExecutor>();
    NativeGitService service{git, std::make_shared<GitOpRunner>(2)};
    RepoEntry repo = RealGitService::repoAt("/repo");

    // Only the hunk commands' own runs are recorded.
    HunkArguments() { service.setUndoLimits({0, 0}); }
};

TEST_F(HunkArguments, EachActionReReadsThenAppliesAPrivatePatchFile) {
    await(service.stageHunk(repo, "-r.txt", numbers(1, 5, 1, 5)));
    await(service.unstageHunk(repo, "-r.txt", numbers(1, 5, 1, 5)));
    await(service.discardHunk(repo, "-r.txt", numbers(15, 6, 15, 6)));
    ASSERT_EQ(git->calls.size(), 6u);
    const std::vector<Arguments> rereads{git->calls[0], git->calls[2], git->calls[4]};
    EXPECT_EQ(rereads,
              (std::vector<Arguments>{
                  {"diff", "--", "-r.txt"}, {"diff", "--cached", "--", "-r.txt"}, {"diff", "--", "-r.txt"}}));
    const Arguments applies[] = {{"apply", "--cached", "--whitespace=nowarn"},
                                 {"apply", "--cached", "--reverse", "--whitespace=nowarn"},
                                 {"apply", "--reverse", "--whitespace=nowarn"}};
    for (int i = 0; i < 3; ++i) {
        Arguments apply = git->calls[2 * i + 1];
        const std::string patchPath = apply.back();
        apply.pop_back();
        EXPECT_EQ(apply, applies[i]);
        EXPECT_TRUE(patchPath.starts_with(tmp.path() + "/orvel_hunk_")) << patchPath;
        EXPECT_TRUE(patchPath.ends_with(".patch"));
        EXPECT_EQ(
            QUuid::fromString(QString::fromStdString(patchPath.substr(tmp.path().size() + 12, 36))).version(),
            QUuid::Random);
    }
    EXPECT_EQ(git->patch, extractHunkPatch(renamedTwoHunks, numbers(15, 6, 15, 6)));
    EXPECT_EQ(git->patchMode, 0600u);
    EXPECT_TRUE(tmpIsEmpty());
}

TEST_F(HunkArguments, NoPatchFileOutlivesAFailure) {
    const GitServiceError missing =
        test::serviceError([&] { await(service.stageHunk(repo, "r.txt", numbers(2, 5, 2, 5))); });
    EXPECT_EQ(missing.kind(), GitServiceError::Kind::parseFailed);
    EXPECT_EQ(missing.description(), notFound);
    EXPECT_EQ(git->calls.size(), 1u);

    git->rejectApply = true;
    EXPECT_THROW(await(service.discardHunk(repo, "r.txt", numbers(1, 5, 1, 5))), GitServiceError);
    EXPECT_EQ(git->calls.size(), 3u);
    EXPECT_TRUE(tmpIsEmpty());
}

// Lines re-read a rename with both of its paths behind "--", and write a patch that changes the
// new file in place, with only the chosen line changed and exact counts.
TEST_F(HunkArguments, LineActionsReReadBothPathsAndPatchTheNewFileInPlace) {
    const FileDiff shown = GitOutputParser::parseDiff(std::string(renamedTwoHunks)).files.at(0);
    FileChange file;
    file.path = "-moved.txt";
    file.originalPath = "-r.txt";
    const std::vector<HunkLines> added{{shown.hunks[0], {2}}};
    await(service.stageLines(repo, file, added));
    await(service.unstageLines(repo, file, added));
    await(service.discardLines(repo, file, added));
    ASSERT_EQ(git->calls.size(), 6u);
    const auto reread = [](Arguments arguments) {
        for (const char* each : {"--src-prefix=a/", "--dst-prefix=b/", "--", "-moved.txt", "-r.txt"})
            arguments.push_back(each);
        return arguments;
    };
    EXPECT_EQ(git->calls[0], reread({"diff"}));
    EXPECT_EQ(git->calls[2], reread({"diff", "--cached"}));
    EXPECT_EQ(git->calls[5].at(1), "--reverse");
    // Reversed, the chosen addition is taken out and the deletion beside it is left out.
    EXPECT_EQ(git->patch, "diff --git b/moved.txt b/moved.txt\n--- b/moved.txt\n+++ b/moved.txt\n"
                          "@@ -1,4 +1,5 @@\n row 1\n+row 2 @@ -1 +1 @@ changed\n row 3\n row 4\n row 5\n");
    EXPECT_TRUE(tmpIsEmpty());
}

class HunkStaging : public test::PrivateTemporaryDirectoryTest {
  protected:
    static std::string rows(int from, int to, const std::string& prefix = "row ") {
        std::string text;
        for (int n = from; n <= to; ++n)
            text += prefix + std::to_string(n) + "\n";
        return text;
    }
    RepoEntry entry() const { return RealGitService::repoAt(repo.path()); }
    DiffResult diff(DiffContext context) { return await(service.diff(entry(), context, std::nullopt)); }

    // Commits `path` with twenty rows, then changes row 2 and row 18: two hunks in the working tree.
    void twoChanges(const std::string& path) {
        repo.write(path, rows(1, 20));
        repo.commitAll("rows");
        repo.write(path, rows(1, 1) + "row two\n" + rows(3, 17) + "row eighteen\n" + rows(19, 20));
    }

    test::TempRepo repo;
    RealGitService real;
    NativeGitService& service = real.service;
};

TEST_F(HunkStaging, OfTwoHunksOnlyTheTargetIsStagedOrDiscarded) {
    twoChanges("r.txt");
    const auto hunks = diff(DiffContext::unstaged()).files.at(0).hunks;
    ASSERT_EQ(hunks.size(), 2u);
    await(service.stageHunk(entry(), "r.txt", hunks[1]));

    const auto staged = diff(DiffContext::staged()).files.at(0);
    ASSERT_EQ(staged.hunks.size(), 1u);
    EXPECT_EQ(std::tie(staged.hunks[0].oldStart, staged.hunks[0].oldCount),
              std::tie(hunks[1].oldStart, hunks[1].oldCount));
    const auto unstaged = diff(DiffContext::unstaged()).files.at(0);
    ASSERT_EQ(unstaged.hunks.size(), 1u);
    EXPECT_EQ(unstaged.hunks[0].oldStart, hunks[0].oldStart);

    // Discarding the other one reverts it in the work tree and leaves the staged one alone.
    await(service.discardHunk(entry(), "r.txt", unstaged.hunks[0]));
    EXPECT_EQ(repo.read("r.txt"), rows(1, 17) + "row eighteen\n" + rows(19, 20));
    EXPECT_TRUE(diff(DiffContext::unstaged()).files.empty());
    EXPECT_EQ(diff(DiffContext::staged()).files.at(0).hunks.size(), 1u);
    EXPECT_TRUE(tmpIsEmpty());
}

TEST_F(HunkStaging, UnstageFindsOnlyHunksOfTheStagedDiff) {
    twoChanges("r.txt");
    repo.git({"add", "r.txt"});
    repo.write("r.txt", "on top\n" + repo.read("r.txt"));
    const auto unstagedHunk = diff(DiffContext::unstaged()).files.at(0).hunks.at(0);
    EXPECT_THROW(await(service.unstageHunk(entry(), "r.txt", unstagedHunk)), GitServiceError);
    EXPECT_TRUE(tmpIsEmpty());

    const auto stagedHunks = diff(DiffContext::staged()).files.at(0).hunks;
    ASSERT_EQ(stagedHunks.size(), 2u);
    await(service.unstageHunk(entry(), "r.txt", stagedHunks[0]));
    const auto left = diff(DiffContext::staged()).files.at(0).hunks;
    ASSERT_EQ(left.size(), 1u);
    EXPECT_EQ(left[0].oldStart, stagedHunks[1].oldStart);
    EXPECT_EQ(repo.read("r.txt").substr(0, 7), "on top\n");
    EXPECT_TRUE(tmpIsEmpty());
}

TEST_F(HunkStaging, AwkwardPathsWork) {
    for (const std::string path :
         {"dir with space/file b.txt", "-lead.txt", "caf\xe9.txt", "quote\"$(x).txt"}) {
        SCOPED_TRACE(path);
        twoChanges(path);
        await(service.stageHunk(entry(), path, diff(DiffContext::unstaged()).files.at(0).hunks.at(0)));
        EXPECT_EQ(repo.git({"diff", "--cached", "--numstat", "--", path}).substr(0, 4), "1\t1\t");
        await(service.discardHunk(entry(), path, diff(DiffContext::unstaged()).files.at(0).hunks.at(0)));
        await(service.unstageHunk(entry(), path, diff(DiffContext::staged()).files.at(0).hunks.at(0)));
        EXPECT_EQ(repo.read(path), rows(1, 1) + "row two\n" + rows(3, 20));
        repo.git({"checkout", "-q", "--", path});
        EXPECT_TRUE(tmpIsEmpty());
    }
}

} // namespace
} // namespace orvel
