// Blame, file history, blobs and resolved files against real repositories: blame of a path
// beginning with "-", history across a rename, blob bytes untouched, and an atomic write that
// leaves no temporary file behind, also when it fails.
#include "DatedCommits.h"
#include "RealGitService.h"

#include "core/commands/BlobCommands.h"
#include "core/service/GitServiceError.h"
#include "core/support/AtomicFile.h"
#include "support/Await.h"
#include "support/GitFixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sys/stat.h>
#include <tuple>

using namespace orvel;
using namespace std::string_literals;
using orvel::test::TempDir;
using orvel::test::TempRepo;

namespace {

std::vector<std::string> entriesOf(const std::string& directory) {
    std::vector<std::string> names;
    for (const auto& item : std::filesystem::directory_iterator(directory))
        names.push_back(item.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

class FilesInRepository : public test::RepositoryTest {
  protected:
    void commitAs(const std::string& author, const std::string& message, const std::string& date) {
        test::ScopedGitDates dates(date);
        repo.git({"add", "-A"});
        // The test main sets the author through the environment, which only --author overrides.
        repo.git({"commit", "-q", "--author", author + " <" + author + "@orvel.invalid>", "-m", message});
    }
};

} // namespace

TEST_F(FilesInRepository, BlameGivesEachLineItsLastCommit) {
    const std::string path = "-src dir/file one.txt";
    std::filesystem::create_directory(repo / "-src dir");
    repo.write(path, "alpha\nbeta\ngamma\ndelta\n");
    commitAs("Ann", "first", "2026-01-01T10:00:00Z");
    repo.write(path, "alpha\nBETA\ngamma\ndelta\nepsilon\n");
    commitAs("Bob", "second $(x)", "2026-01-02T10:00:00Z");
    repo.write(path, "alpha\nBETA\nGAMMA\ndelta\nepsilon\n\tzeta\n");
    commitAs("Cy", "third", "2026-01-03T10:00:00Z");

    // Each line with the commit that last changed it; Ann's and Bob's commits each own two runs.
    // The parser itself is checked against git's line-porcelain in its own test.
    using Line = std::tuple<int, std::string, std::string, std::string>;
    std::vector<Line> lines;
    std::set<std::string> hashes;
    for (const auto& run : test::await(real.service.blame(entry(), path))) {
        hashes.insert(run.hash);
        for (std::size_t i = 0; i < run.lines.size(); ++i)
            lines.emplace_back(run.finalLineNumber + static_cast<int>(i), run.lines[i], run.authorName,
                               run.summary);
    }
    EXPECT_EQ(lines, (std::vector<Line>{{1, "alpha", "Ann", "first"},
                                        {2, "BETA", "Bob", "second $(x)"},
                                        {3, "GAMMA", "Cy", "third"},
                                        {4, "delta", "Ann", "first"},
                                        {5, "epsilon", "Bob", "second $(x)"},
                                        {6, "\tzeta", "Cy", "third"}}));
    EXPECT_EQ(hashes.size(), 3u);

    repo.write("loose.txt", "x\n");
    EXPECT_THROW(test::await(real.service.blame(entry(), "loose.txt")), GitServiceError);
}

TEST_F(FilesInRepository, FileHistoryFollowsARename) {
    repo.write("old name.txt", "1\n2\n3\n4\n5\n6\n7\n8\n");
    commitAs("Ann", "add", "2026-01-01T10:00:00Z");
    repo.write("other.txt", "unrelated\n");
    commitAs("Ann", "unrelated", "2026-01-02T10:00:00Z");
    repo.write("old name.txt", "1\n2\n3\n4\n5\n6\n7\n8\n9\n");
    commitAs("Ann", "grow", "2026-01-03T10:00:00Z");
    repo.git({"mv", "--", "old name.txt", "-new name.txt"});
    commitAs("Ann", "rename", "2026-01-04T10:00:00Z");
    repo.write("-new name.txt", "1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n");
    commitAs("Ann", "grow again", "2026-01-05T10:00:00Z");

    const auto history = test::await(real.service.fileHistory(entry(), "-new name.txt", 100));
    std::vector<std::string> subjects;
    for (const auto& commit : history)
        subjects.push_back(commit.subject);
    EXPECT_EQ(subjects, (std::vector<std::string>{"grow again", "rename", "grow", "add"}));
    EXPECT_EQ(history.front().hash, repo.head());

    EXPECT_EQ(test::await(real.service.fileHistory(entry(), "-new name.txt", 2)).size(), 2u);
}

TEST_F(FilesInRepository, ReadBlobGivesTheBytesAsTheyAre) {
    const std::string bytes = "line\r\n\0binary\xff\xfe caf\xe9\n"s;
    repo.write("blob.bin", bytes);
    std::string hash = repo.git({"hash-object", "-w", "--", "blob.bin"});
    hash.pop_back();
    EXPECT_EQ(test::await(real.service.readBlob(entry(), " " + hash + "\t")), bytes);
    EXPECT_THROW(test::await(real.service.readBlob(entry(), std::string(40, '0'))), GitServiceError);
}

TEST_F(FilesInRepository, WriteResolvedFileReplacesAtomicallyAndStages) {
    std::filesystem::create_directory(repo / "-dir x");
    const std::string path = "-dir x/-conflicted $(x).txt";
    repo.write(path, "<<<<<<< ours\n");
    ::chmod((repo / path).c_str(), 0755);
    repo.write("keep.txt", "k\n");
    repo.commitAll("base");

    test::await(real.service.writeResolvedFile(entry(), path, "resolved \xc3\xa9\n"));
    EXPECT_EQ(repo.read(path), "resolved \xc3\xa9\n");
    EXPECT_EQ(entriesOf(repo / "-dir x"), std::vector<std::string>{"-conflicted $(x).txt"});
    EXPECT_EQ(std::filesystem::status(repo / path).permissions() & std::filesystem::perms::all,
              std::filesystem::perms(0755));
    EXPECT_EQ(repo.git({"diff", "--cached", "--name-only"}), "-dir x/-conflicted $(x).txt\n");

    test::await(real.service.writeResolvedFile(entry(), "/new file.txt", "new\n"));
    EXPECT_EQ(repo.read("new file.txt"), "new\n");
}

TEST_F(FilesInRepository, FailedWriteLeavesNoTemporaryFileAndStagesNothing) {
    std::filesystem::create_directory(repo / "taken");
    repo.write("taken/inside.txt", "x\n");
    const auto before = entriesOf(repo.path());
    // A directory stands where the file would go: the rename fails after the temporary was written.
    EXPECT_THROW(test::await(real.service.writeResolvedFile(entry(), "taken", "content\n")),
                 std::filesystem::filesystem_error);
    EXPECT_EQ(entriesOf(repo.path()), before);
    EXPECT_THROW(test::await(real.service.writeResolvedFile(entry(), "missing dir/f.txt", "c\n")),
                 std::filesystem::filesystem_error);
    EXPECT_EQ(repo.git({"status", "--porcelain=v1"}), "?? taken/\n");
}

TEST(AtomicWrite, TemporaryFileIsPrivateUntilItTakesTheTargetsMode) {
    TempDir root;
    const std::string file = root / "f.txt";
    replaceFileAtomically(file, "one\n");
    EXPECT_EQ(std::filesystem::status(file).permissions() & std::filesystem::perms::all,
              std::filesystem::perms(0644));
    ::chmod(file.c_str(), 0600);
    replaceFileAtomically(file, "two\n");
    EXPECT_EQ(test::readFile(file), "two\n");
    EXPECT_EQ(std::filesystem::status(file).permissions() & std::filesystem::perms::all,
              std::filesystem::perms(0600));
    EXPECT_EQ(entriesOf(root.path()), std::vector<std::string>{"f.txt"});
}
