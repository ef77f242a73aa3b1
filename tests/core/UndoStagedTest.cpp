// The undo journal keeps what the index held for the paths it keeps: a discard or a hard reset
// brought back staged as it was, also after git's garbage collection, and the undo refused when
// the path was staged again since; the entry's bytes with their index part; the readers of what
// git lists of the index and of a tree.
#include "RealGitService.h"

#include "core/commands/UndoEntryFormat.h"
#include "core/parsers/StagedBlobParser.h"
#include "core/service/GitServiceError.h"
#include "support/Await.h"
#include "support/DrainQueue.h"
#include "support/GitFixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>

namespace orvel {
namespace {

namespace fs = std::filesystem;
using test::await;
using test::RealGitService;
using test::TempRepo;

// What an undo must put back: the index with its staged bytes, and the work tree's files.
struct State {
    std::string index;
    std::map<std::string, std::string> files;

    bool operator==(const State&) const = default;
};

void PrintTo(const State& state, std::ostream* out) {
    *out << state.index;
    for (const auto& [path, bytes] : state.files)
        *out << path << ": " << bytes << "\n";
}

State stateOf(const TempRepo& repo) {
    // The staged diff reads every staged blob: one pruned by the garbage collection fails it.
    State state{repo.git({"ls-files", "--stage"}) + repo.git({"diff", "--cached", "--no-renames"}), {}};
    for (const auto& item : fs::recursive_directory_iterator(repo.path()))
        if (const auto relative = fs::relative(item.path(), repo.path()).string();
            !relative.starts_with(".git") && item.is_regular_file())
            state.files[relative] = repo.read(relative);
    return state;
}

// A repository with two commits and, on top, a file staged as A and edited to B, a new file
// edited after adding, a file staged for deletion and a change staged and undone in the work tree.
void stageAndEdit(const TempRepo& repo) {
    repo.write("a.txt", "a in HEAD\n");
    repo.write("c.txt", "c in HEAD\n");
    repo.write("gone.txt", "gone in HEAD\n");
    repo.commitAll("base");
    repo.write("b.txt", "second\n");
    repo.commitAll("second");
    for (const auto& [path, staged, edited] :
         {std::tuple{"a.txt", "A\n", "B\n"}, std::tuple{"new.txt", "new A\n", "new B\n"},
          std::tuple{"c.txt", "C\n", "c in HEAD\n"}}) {
        repo.write(path, staged);
        repo.git({"add", "--", path});
        repo.write(path, edited);
    }
    repo.git({"rm", "-q", "--", "gone.txt"});
}

std::vector<UndoEntry> history(const TempRepo& repo) {
    RealGitService fresh;
    auto entries = await(fresh.service.undoHistory(RealGitService::repoAt(repo.path())));
    test::drainQueue(*fresh.runner);
    return entries;
}

void undo(const TempRepo& repo, const std::string& id) {
    RealGitService fresh;
    struct Drain {
        RealGitService& service;
        ~Drain() { test::drainQueue(*service.runner); }
    } drain{fresh};
    await(fresh.service.undo(RealGitService::repoAt(repo.path()), id));
}

// Each of `each` ended by a NUL, as git's -z lists and the journal's entries are.
std::string nulEnded(std::initializer_list<std::string_view> each) {
    std::string joined;
    for (std::string_view field : each)
        joined.append(field).push_back('\0');
    return joined;
}

TEST(UndoStaged, DiscardsAndHardResetsComeBackStagedAsTheyWere) {
    const std::vector<std::string> all{"a.txt", "c.txt", "gone.txt", "new.txt"};
    const struct {
        const char* name;
        std::function<QCoro::Task<void>(NativeGitService&, RepoEntry)> act;
        std::uint64_t bytes; // the files' bytes and the staged ones HEAD doesn't have
    } cases[] = {
        {"discard all",
         [&](NativeGitService& service, RepoEntry repo) -> QCoro::Task<void> {
             // As Discard All asks: every staged path unstaged, the new file removed, the rest restored.
             const auto failed =
                 co_await service.discardPaths(repo, {"a.txt", "c.txt", "gone.txt"}, {"new.txt"}, all);
             EXPECT_TRUE(failed.empty());
         },
         2 + 10 + 6 + 2 + 2 + 6},
        {"discard of the staged and edited file",
         [](NativeGitService& service, RepoEntry repo) {
             return service.discardChanges(repo, "a.txt", true);
         },
         4},
        {"discard of the new file",
         [](NativeGitService& service, RepoEntry repo) -> QCoro::Task<void> {
             EXPECT_TRUE((co_await service.discardPaths(repo, {}, {"new.txt"}, {"new.txt"})).empty());
         },
         12},
        {"discard of the file staged for deletion",
         [](NativeGitService& service, RepoEntry repo) {
             return service.discardChanges(repo, "gone.txt", true);
         },
         0},
        {"discard of the change staged only",
         [](NativeGitService& service, RepoEntry repo) {
             return service.discardChanges(repo, "c.txt", true);
         },
         12},
        {"hard reset",
         [](NativeGitService& service, RepoEntry repo) {
             return service.reset(repo, "HEAD", ResetMode::hard);
         },
         28},
        {"hard reset to the commit before",
         [](NativeGitService& service, RepoEntry repo) {
             return service.reset(repo, "HEAD~1", ResetMode::hard);
         },
         28},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        TempRepo repo;
        RealGitService real;
        stageAndEdit(repo);
        const State before = stateOf(repo);
        await(c.act(real.service, RealGitService::repoAt(repo.path())));
        test::drainQueue(*real.runner);
        ASSERT_NE(stateOf(repo), before);
        const auto entries = history(repo);
        ASSERT_EQ(entries.size(), 1u);
        EXPECT_EQ(entries.front().bytes, c.bytes);
        repo.git({"gc", "-q", "--prune=now"});
        undo(repo, entries.front().id);
        EXPECT_EQ(stateOf(repo), before);
        EXPECT_TRUE(history(repo).empty());
    }
}

TEST(UndoStaged, UndoRefusesAndChangesNothingWhenThePathWasStagedAgain) {
    TempRepo repo;
    RealGitService real;
    stageAndEdit(repo);
    await(real.service.discardChanges(RealGitService::repoAt(repo.path()), "a.txt", true));
    // Newer staging, with the work tree as the discard left it.
    repo.write("a.txt", "newer\n");
    repo.git({"add", "a.txt"});
    repo.write("a.txt", "a in HEAD\n");
    const State before = stateOf(repo);
    const auto entries = history(repo);
    ASSERT_EQ(entries.size(), 1u);
    try {
        undo(repo, entries.front().id);
        ADD_FAILURE() << "the undo went through";
    } catch (const GitServiceError& error) {
        EXPECT_NE(std::string(error.what()).find("\"a.txt\" was staged or unstaged after the discard"),
                  std::string::npos)
            << error.what();
    }
    EXPECT_EQ(stateOf(repo), before);
    EXPECT_EQ(history(repo), entries);
}

TEST(UndoStaged, AnEntryWithItsIndexPartReadsBackWholeAndOneWrittenWithoutItStillReads) {
    UndoEntry entry;
    entry.id = "00000000000000000042";
    entry.time = 1767268800;
    entry.files = {
        {"a b\n", "e69de29bb2d1d6434b8b29ae775ad8c2e48c5391", UndoFileMode::regular, std::string()}};
    entry.index = {{"a b\n", {"100755", "e69de29bb2d1d6434b8b29ae775ad8c2e48c5391"}, UndoStaged{}},
                   {"new", {}, std::nullopt}};
    const std::string bytes = formatUndoEntry(entry);
    EXPECT_EQ(parseUndoEntry(bytes, entry.id), entry);
    for (std::size_t size = 0; size < bytes.size(); ++size)
        EXPECT_EQ(parseUndoEntry(bytes.substr(0, size), entry.id), std::nullopt) << size;
    const std::string older = nulEnded({"orvel-undo 1", "discard", "", "1767268800", "0", "0", "0"});
    const auto read = parseUndoEntry(older, "1");
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->index.empty());
    EXPECT_EQ(parseUndoEntry(older + nulEnded({"0"}), "1"), std::nullopt);
    for (const char* staged : {"100644", "100644 ", " e69d", "100644 e69d x"}) {
        std::string garbled = bytes;
        garbled.replace(garbled.find("100755 "), 47, staged);
        EXPECT_EQ(parseUndoEntry(garbled, entry.id), std::nullopt) << staged;
    }
}

TEST(StagedBlobParser, ReadsWhatGitListsOfAConflictedIndexAndOfATree) {
    TempRepo repo;
    repo.divergeOnOneFile();
    repo.gitAllowingFailure({"merge", "-q", "topic"});
    repo.write("new\tline\n", "x");
    repo.git({"add", "--", "new\tline\n"});
    const auto records = GitOutputParser::parseIndexRecords(repo.git({"ls-files", "--stage", "-z"}));
    std::vector<std::pair<std::string, int>> read;
    for (const auto& record : records) {
        read.emplace_back(record.path, record.stage);
        EXPECT_EQ(
            record.blob,
            repo.git({"rev-parse", ":" + std::to_string(record.stage) + ":" + record.path}).substr(0, 40));
        EXPECT_EQ(record.mode, "100644");
    }
    EXPECT_EQ(read, (std::vector<std::pair<std::string, int>>{
                        {"file", 1}, {"file", 2}, {"file", 3}, {"new\tline\n", 0}, {"other", 0}}));
    EXPECT_EQ(GitOutputParser::parseTreeBlobSizes(repo.git({"ls-tree", "-l", "-z", "HEAD"})),
              (std::map<std::string, std::uint64_t>{{"file", 5}, {"other", 6}}));
    const std::string hash(40, '0');
    EXPECT_TRUE(GitOutputParser::parseIndexRecords(
                    nulEnded({"100644 abc 0\tx", "1006 " + hash + " 0\tx", "100644 " + hash + " 4\tx",
                              "100644 " + hash + " 0\t", "100644 " + hash + " 0 x"}))
                    .empty());
}

} // namespace
} // namespace orvel
