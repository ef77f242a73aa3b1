// The diff operations: results on real repositories, with each file's counts checked against
// git's own numstat.
#include "RealGitService.h"

#include "core/service/GitServiceError.h"
#include "core/service/NativeGitService.h"
#include "support/Await.h"
#include "support/GitFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <stdexcept>
#include <sys/stat.h>

namespace orvel {
namespace {

using test::await;

TEST(DiffContextCoding, TaggedValuesRoundTrip) {
    const DiffContext contexts[] = {DiffContext::unstaged(),    DiffContext::staged(),
                                    DiffContext::commit("abc"), DiffContext::commit("abc", 1),
                                    DiffContext::stash("s"),    DiffContext::commitRange("a", "b")};
    for (const auto& context : contexts)
        EXPECT_EQ(diffContextFromJson(toJson(context)), context) << describe(context);
    const QJsonObject commit = toJson(DiffContext::commit("abc", 1));
    EXPECT_EQ(commit["commit"].toObject()["hash"].toString(), "abc");
    EXPECT_EQ(commit["commit"].toObject()["parentIndex"].toInt(), 1);
    EXPECT_EQ(toJson(DiffContext::commitRange("a", "b"))["commitRange"].toObject()["to"].toString(), "b");
    EXPECT_EQ(diffContextFromJson(QJsonObject{{"rebase", QJsonObject{}}}), std::nullopt);
    EXPECT_EQ(diffContextFromJson(QJsonObject{{"stash", QJsonObject{}}}), std::nullopt);
}

// A repository whose history holds every kind of change the parser must read.
class DiffHistory : public test::RepositoryTest {
  protected:
    void SetUp() override {
        repo.git({"config", "diff.renames", "copies"});
        repo.write("a.txt", "one\ntwo\nthree\n");
        repo.write("dash.txt", "-- dashed\n++ plussed\nplain\n");
        repo.write("bin.dat", std::string("x\0y", 3));
        repo.write("nonl.txt", "no newline");
        repo.write("dir with space/file b.txt", numbered(1, 30));
        repo.write(nonUtf8, "raw\n");
        repo.write("-lead.txt", "x\n");
        commits.push_back(repo.commitAll("all kinds of files"));

        repo.git({"mv", "a.txt", "renamed.txt"});
        repo.write("dash.txt", "++ plussed\n++ added\n-- added too\nplain\n");
        repo.write("bin.dat", std::string("x\1y", 3));
        repo.write("nonl.txt", "no newline changed");
        ::chmod((repo / nonUtf8).c_str(), 0755);
        repo.write("copy.txt", repo.read("dir with space/file b.txt"));
        repo.write("dir with space/file b.txt",
                   numbered(1, 3) + "inserted\n" + numbered(4, 25) + numbered(27, 30));
        repo.git({"rm", "-q", "--", "-lead.txt"});
        commits.push_back(repo.commitAll("rename, copy, mode, binary, delete"));

        std::filesystem::create_symlink("renamed.txt", repo / "link");
        repo.write(nonUtf8, "raw\ncooked\n");
        commits.push_back(repo.commitAll("a symlink"));

        std::filesystem::remove(repo / "link");
        repo.write("link", "now a file\n");
        repo.write("nonl.txt", "no newline changed\nand now one\n");
        commits.push_back(repo.commitAll("a type change"));
    }

    static std::string numbered(int from, int to) {
        std::string text;
        for (int n = from; n <= to; ++n)
            text += "line " + std::to_string(n) + "\n";
        return text;
    }

    // git's own counts: one entry a file pair, "-" for a binary side.
    struct Count {
        std::string additions, deletions;
    };
    std::vector<Count> numstat(const std::string& hash) const {
        const std::string text = repo.git({"show", "--numstat", "-z", "--format=", hash});
        std::vector<Count> counts;
        std::size_t at = 0;
        while (at < text.size()) {
            const auto tab1 = text.find('\t', at), tab2 = text.find('\t', tab1 + 1);
            counts.push_back({text.substr(at, tab1 - at), text.substr(tab1 + 1, tab2 - tab1 - 1)});
            at = text.find('\0', tab2) + 1;
            if (at == tab2 + 2) // a rename or copy: the two paths follow as records of their own
                at = text.find('\0', text.find('\0', at) + 1) + 1;
        }
        return counts;
    }

    DiffResult shown(const std::string& hash) {
        return await(service.diff(entry(), DiffContext::commit(hash), std::nullopt));
    }
    const std::string nonUtf8 = "caf\xe9.txt";
    std::vector<std::string> commits;
    NativeGitService& service = real.service;
};

TEST_F(DiffHistory, EveryFileCountsWhatNumstatCounts) {
    for (const auto& hash : commits) {
        SCOPED_TRACE(hash);
        const DiffResult diff = shown(hash);
        const auto counts = numstat(hash);
        std::size_t next = 0;
        for (std::size_t i = 0; i < diff.files.size(); ++i, ++next) {
            ASSERT_LT(next, counts.size());
            FileDiff file = diff.files[i];
            // A type change is one pair for numstat and two patches (deleted, then added) in the text.
            if (file.status == DiffStatus::deleted && i + 1 < diff.files.size() &&
                diff.files[i + 1].status == DiffStatus::added && diff.files[i + 1].newPath == file.oldPath) {
                file.additions += diff.files[++i].additions;
            }
            if (counts[next].additions == "-") {
                EXPECT_TRUE(file.isBinary) << file.newPath;
                EXPECT_TRUE(file.hunks.empty());
                continue;
            }
            EXPECT_EQ(std::to_string(file.additions), counts[next].additions) << file.newPath;
            EXPECT_EQ(std::to_string(file.deletions), counts[next].deletions) << file.newPath;
        }
        EXPECT_EQ(next, counts.size());
        const DiffResult firstParent = await(service.commitDiff(entry(), hash, std::nullopt));
        EXPECT_EQ(firstParent.files.size(), diff.files.size());
    }
}

TEST_F(DiffHistory, KindsOfChangeAreRecognised) {
    const DiffResult diff = shown(commits[1]);
    auto find = [&](DiffStatus status) -> const FileDiff& {
        for (const auto& file : diff.files) {
            if (file.status == status)
                return file;
        }
        throw std::runtime_error("no file of that status");
    };
    EXPECT_EQ(find(DiffStatus::renamed).oldPath, "a.txt");
    EXPECT_EQ(find(DiffStatus::renamed).newPath, "renamed.txt");
    EXPECT_EQ(find(DiffStatus::copied).newPath, "copy.txt");
    EXPECT_EQ(find(DiffStatus::deleted).oldPath, "-lead.txt");
    EXPECT_EQ(find(DiffStatus::typeChanged).hunks.size(), 0u);

    const DiffResult later = shown(commits[2]);
    const auto symlink = std::find_if(later.files.begin(), later.files.end(),
                                      [](const FileDiff& file) { return file.newPath == "link"; });
    ASSERT_NE(symlink, later.files.end());
    EXPECT_EQ(symlink->status, DiffStatus::added);
}

TEST_F(DiffHistory, FileChangesOfACommitAndGitsFailures) {
    const auto root = await(service.commitFileChanges(entry(), commits[0]));
    EXPECT_EQ(root.size(), 7u);
    for (const auto& change : root)
        EXPECT_EQ(change.status, FileStatusKind::tracked(TrackedStatus::added, TrackedStatus::unmodified));

    const auto changes = await(service.commitFileChanges(entry(), commits[1]));
    auto statusOf = [&](const std::string& path) {
        for (const auto& change : changes) {
            if (change.path == path)
                return change.status.index;
        }
        return TrackedStatus::unmodified;
    };
    EXPECT_EQ(statusOf("-lead.txt"), TrackedStatus::deleted);
    // diff-tree detects no renames unless asked, whatever diff.renames says.
    EXPECT_EQ(statusOf("renamed.txt"), TrackedStatus::added);
    EXPECT_EQ(statusOf("a.txt"), TrackedStatus::deleted);
    EXPECT_EQ(statusOf("dir with space/file b.txt"), TrackedStatus::modified);
    EXPECT_EQ(statusOf("bin.dat"), TrackedStatus::modified);

    EXPECT_THROW(await(service.diff(entry(), DiffContext::commit("no-such-commit"), std::nullopt)),
                 GitServiceError);
    EXPECT_THROW(await(service.commitFileChanges(entry(), std::string(40, '0'))), GitServiceError);
}

// A merge lists what it brought against its first parent, each file once, as its diff shows it:
// a clean merge of a side branch, and a merge whose conflict in a file both sides changed was
// resolved by hand.
class MergeFileChanges : public test::RepositoryTest {};

TEST_F(MergeFileChanges, AMergeListsItsFilesAgainstTheFirstParent) {
    repo.write("shared.txt", "base\n");
    repo.commitAll("base");
    repo.git({"checkout", "-q", "-b", "side"});
    repo.write("side.txt", "side\n");
    repo.write("shared.txt", "side\n");
    repo.commitAll("side work");
    repo.git({"checkout", "-q", "main"});
    repo.write("main.txt", "main\n");
    repo.commitAll("main work");
    repo.git({"merge", "-q", "--no-ff", "-m", "clean merge", "side"});
    const std::string clean = repo.head();

    repo.git({"checkout", "-q", "side"});
    repo.write("shared.txt", "side again\n");
    repo.commitAll("side again");
    repo.git({"checkout", "-q", "main"});
    repo.write("shared.txt", "main again\n");
    repo.commitAll("main again");
    EXPECT_NE(repo.gitAllowingFailure({"merge", "-q", "side"}).exitCode, 0);
    repo.write("shared.txt", "resolved\n");
    repo.commitAll("resolved merge");
    const std::string resolved = repo.head();

    const struct {
        std::string hash;
        std::vector<std::string> paths;
    } cases[] = {{clean, {"shared.txt", "side.txt"}}, {resolved, {"shared.txt"}}};
    for (const auto& merge : cases) {
        SCOPED_TRACE(merge.hash);
        std::vector<std::string> paths;
        for (const auto& change : await(real.service.commitFileChanges(entry(), merge.hash)))
            paths.push_back(change.path);
        EXPECT_EQ(paths, merge.paths);
        std::vector<std::string> diffPaths;
        for (const auto& file : await(real.service.commitDiff(entry(), merge.hash, std::nullopt)).files)
            diffPaths.push_back(file.newPath);
        EXPECT_EQ(diffPaths, paths);
    }
}

TEST_F(DiffHistory, WorkingTreeIndexStashAndRange) {
    repo.write("dash.txt", "changed in the index\n");
    repo.git({"add", "dash.txt"});
    repo.write("renamed.txt", "one\ntwo\nthree\nfour\n");

    const DiffResult unstaged = await(service.diff(entry(), DiffContext::unstaged(), std::nullopt));
    ASSERT_EQ(unstaged.files.size(), 1u);
    EXPECT_EQ(unstaged.files[0].newPath, "renamed.txt");
    EXPECT_EQ(unstaged.files[0].additions, 1);
    const DiffResult staged = await(service.diff(entry(), DiffContext::staged(), std::nullopt));
    ASSERT_EQ(staged.files.size(), 1u);
    EXPECT_EQ(staged.files[0].newPath, "dash.txt");
    EXPECT_EQ(staged.files[0].additions, 1);
    EXPECT_EQ(staged.files[0].deletions, 4);

    repo.git({"stash", "push", "-q"});
    const std::string stash = repo.rev("stash@{0}");
    const DiffResult stashed = await(service.diff(entry(), DiffContext::stash(stash), std::nullopt));
    ASSERT_EQ(stashed.files.size(), 2u);
    EXPECT_TRUE(await(service.diff(entry(), DiffContext::unstaged(), std::nullopt)).files.empty());

    const DiffResult range =
        await(service.diff(entry(), DiffContext::commitRange(commits[1], commits[3]), std::nullopt));
    std::set<std::string> paths;
    for (const auto& file : range.files)
        paths.insert(file.newPath.empty() ? file.oldPath : file.newPath);
    // A quoted path keeps its quotes, so its "b/" stays too: nothing is unquoted.
    EXPECT_EQ(paths, (std::set<std::string>{"link", "nonl.txt", "\"b/caf\\351.txt\""}));
}

TEST_F(DiffHistory, MergeCommitAgainstEitherParent) {
    repo.git({"checkout", "-q", "-b", "side", commits[0]});
    repo.write("side.txt", "from the side\n");
    repo.commitAll("side");
    repo.git({"checkout", "-q", "main"});
    repo.git({"merge", "-q", "--no-ff", "-m", "merge side", "side"});
    const std::string merge = repo.head();

    const DiffResult first = await(service.diff(entry(), DiffContext::commit(merge, 0), std::nullopt));
    ASSERT_EQ(first.files.size(), 1u);
    EXPECT_EQ(first.files[0].newPath, "side.txt");
    const DiffResult second = await(service.diff(entry(), DiffContext::commit(merge, 1), std::nullopt));
    EXPECT_GT(second.files.size(), 3u);
    // Past the last parent the commit is shown against "<hash>^", its first parent.
    EXPECT_EQ(await(service.diff(entry(), DiffContext::commit(merge, 2), std::nullopt)).files.size(), 1u);
}

} // namespace
} // namespace orvel
