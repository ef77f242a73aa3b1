// The undo journal on real repositories: every destructive operation of the service brought back
// byte for byte and ref for ref by a service made afresh (as after a restart), also after git's
// garbage collection; a merge or rebase stopped on a conflict journalled by the step that ends it;
// the refusals that protect newer work; the bound; the entry's bytes.
#include "RealGitService.h"

#include "core/commands/UndoEntryFormat.h"
#include "core/service/GitServiceError.h"
#include "support/Await.h"
#include "support/DrainQueue.h"
#include "support/GitFixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <random>
#include <sstream>
#include <sys/stat.h>

namespace orvel {
namespace {

namespace fs = std::filesystem;
using test::await;
using test::RealGitService;
using test::TempRepo;

std::vector<std::string> sortedLines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    std::sort(lines.begin(), lines.end());
    return lines;
}

// Everything an undo must put back: the work tree's files with their executable bit, its links
// with their targets, the refs, the checked-out branch, the stashes (as a set: a stash comes back
// on top) and the remote's refs.
struct Snapshot {
    std::map<std::string, std::string> files;
    std::string refs;
    std::string head;
    std::vector<std::string> stashes;
    std::string remoteRefs;

    bool operator==(const Snapshot&) const = default;
};

void PrintTo(const Snapshot& snapshot, std::ostream* out) {
    for (const auto& [path, bytes] : snapshot.files)
        *out << path << " (" << bytes.size() << " bytes)\n";
    *out << snapshot.refs << snapshot.head << "\n" << snapshot.remoteRefs;
}

Snapshot snapshot(const TempRepo& repo, const TempRepo* remote = nullptr) {
    Snapshot result;
    for (const auto& item : fs::recursive_directory_iterator(repo.path())) {
        const std::string relative = fs::relative(item.path(), repo.path()).string();
        if (relative.starts_with(".git"))
            continue;
        if (item.is_symlink())
            result.files[relative] = "l:" + fs::read_symlink(item.path()).string();
        if (item.is_symlink() || !item.is_regular_file())
            continue;
        const bool executable = (fs::status(item.path()).permissions() & fs::perms::owner_exec) != fs::perms::none;
        result.files[relative] = (executable ? "x:" : "-:") + repo.read(relative);
    }
    result.refs = repo.git({"for-each-ref", "--format=%(refname) %(objectname)", "refs/heads", "refs/remotes",
                            "refs/tags"});
    result.head = repo.git({"rev-parse", "--symbolic-full-name", "HEAD"});
    result.stashes = sortedLines(repo.gitAllowingFailure({"stash", "list", "--format=%H"}).out);
    if (remote)
        result.remoteRefs = remote->git({"for-each-ref", "--format=%(refname) %(objectname)"});
    return result;
}

class UndoJournalTest : public test::RepositoryTest {
  protected:
    UndoJournalTest() {
        repo.write("a.txt", "alpha\r\nno newline at the end");
        repo.write("run.sh", "#!/bin/sh\necho run\n");
        fs::permissions(repo / "run.sh", fs::perms(0755));
        fs::create_symlink("a.txt", repo / "to-a");
        repo.commitAll("base");
    }

    // The journal as a service made afresh reads it.
    std::vector<UndoEntry> history() {
        RealGitService fresh;
        auto entries = await(fresh.service.undoHistory(entry()));
        test::drainQueue(*fresh.runner);
        return entries;
    }

    void undoNewest() {
        const auto entries = history();
        ASSERT_FALSE(entries.empty());
        RealGitService fresh;
        await(fresh.service.undo(entry(), entries.front().id));
        test::drainQueue(*fresh.runner);
    }

    std::string keptRefs() { return repo.git({"for-each-ref", "--format=%(refname)", "refs/orvel/"}); }

    // A second branch "topic" with a commit of its own, and one more on "main" beside it.
    void diverge() {
        repo.git({"checkout", "-q", "-b", "topic"});
        repo.write("topic.txt", "topic\n");
        repo.commitAll("topic work");
        repo.git({"checkout", "-q", "main"});
        repo.write("main.txt", "main\n");
        repo.commitAll("main work");
    }

    // A remote "origin" whose "main" is one commit ahead of the local one, which has a commit of
    // its own beside it when `diverged`.
    void behindOrigin(bool diverged) {
        repo.write("pulled.txt", "pulled\n");
        repo.commitAll("pulled");
        repo.git({"push", "-q", "-u", "origin", "main"});
        repo.git({"reset", "-q", "--hard", "HEAD~1"});
        if (diverged) {
            repo.write("main.txt", "main\n");
            repo.commitAll("main work");
        }
    }

    // Puts the repository back at the commit `base` with nothing else around, also on `remote`.
    void startAgain(const std::string& base, const TempRepo& remote) {
        repo.git({"reset", "-q", "--hard", base});
        repo.git({"clean", "-qfdx"});
        repo.gitAllowingFailure({"stash", "clear"});
        repo.gitAllowingFailure({"branch", "-D", "topic"});
        for (const char* branch : {"main", "topic"}) {
            remote.gitAllowingFailure({"update-ref", "-d", std::string("refs/heads/") + branch});
            repo.gitAllowingFailure({"update-ref", "-d", std::string("refs/remotes/origin/") + branch});
        }
    }
};

TEST_F(UndoJournalTest, EveryDestructiveOperationIsBroughtBackAfterARestartAndAGarbageCollection) {
    TempRepo remote(TempRepo::Kind::bare);
    repo.git({"remote", "add", "origin", remote.path()});
    NativeGitService& service = real.service;
    const struct {
        const char* name;
        UndoAction action;
        std::function<void()> setup;
        std::function<QCoro::Task<void>()> act;
    } cases[] = {
        {"discard one file", UndoAction::discard, [&] { repo.write("a.txt", "edited\r\n\0bytes"); },
         [&] { return service.discardChanges(entry(), "a.txt", false); }},
        {"discard lines", UndoAction::discard, [&] { repo.write("a.txt", "alpha\r\nedited\nand added\n"); },
         [&]() -> QCoro::Task<void> {
             const DiffResult diff = co_await service.diff(entry(), DiffContext::unstaged(), std::nullopt);
             HunkLines chosen{diff.files.at(0).hunks.at(0), {}};
             for (std::size_t i = 0; i < chosen.hunk.lines.size(); ++i)
                 if (chosen.hunk.lines[i].type == DiffLineType::addition)
                     chosen.lines.push_back(int(i));
             FileChange file;
             file.path = "a.txt";
             co_await service.discardLines(entry(), file, {chosen});
         }},
        {"discard all", UndoAction::discard,
         [&] {
             repo.write("a.txt", "edited");
             fs::remove(repo / "run.sh");
             repo.write("new dir/-u.bin", std::string("\0\xff\n", 3));
         },
         [&]() -> QCoro::Task<void> {
             const auto failed =
                 co_await service.discardPaths(entry(), {"a.txt", "run.sh"}, {"new dir/-u.bin", "missing"});
             EXPECT_EQ(failed.size(), 1u); // "missing" was never there
         }},
        {"discard of links and of an untracked folder", UndoAction::discard,
         [&] {
             fs::remove(repo / "to-a");
             fs::create_symlink("run.sh", repo / "to-a");
             fs::create_symlink("no such file", repo / "dangling");
             repo.write("new dir/sub/deep.txt", "deep\n");
             repo.write("new dir/tool", "#!/bin/sh\n");
             fs::permissions(repo / "new dir/tool", fs::perms(0755));
             fs::create_symlink("../../a.txt", repo / "new dir/sub/up");
         },
         [&]() -> QCoro::Task<void> {
             const auto failed = co_await service.discardPaths(entry(), {"to-a"}, {"dangling", "new dir"});
             EXPECT_TRUE(failed.empty());
         }},
        {"hard reset over local changes", UndoAction::hardReset,
         [&] {
             repo.write("b.txt", "second\n");
             repo.commitAll("second");
             repo.write("a.txt", "uncommitted");
             repo.write("b.txt", "staged");
             repo.git({"add", "b.txt"});
         },
         [&] { return service.reset(entry(), "HEAD~1", ResetMode::hard); }},
        {"the discard of a new branch", UndoAction::hardReset, [&] { repo.write("run.sh", "changed"); },
         [&] { return service.reset(entry(), "HEAD", ResetMode::hard); }},
        {"delete branch", UndoAction::deleteBranch, [&] { diverge(); },
         [&] { return service.deleteBranch(entry(), "topic", true); }},
        {"drop stash", UndoAction::dropStash,
         [&] {
             for (const char* text : {"first", "second"}) {
                 repo.write("a.txt", text);
                 repo.git({"stash", "push", "-q", "-m", text});
             }
         },
         [&] { return service.stashDrop(entry(), 1); }},
        {"amend", UndoAction::amend, [&] { repo.write("a.txt", "amended in"); },
         [&]() -> QCoro::Task<void> {
             co_await service.stageAll(entry());
             co_await service.amendCommit(entry(), "base, reworded");
         }},
        {"merge", UndoAction::merge, [&] { diverge(); },
         [&]() -> QCoro::Task<void> { co_await service.merge(entry(), "topic"); }},
        {"rebase", UndoAction::rebase, [&] { diverge(); },
         [&]() -> QCoro::Task<void> { co_await service.rebase(entry(), "topic"); }},
        {"pull by fast-forward", UndoAction::pull, [&] { behindOrigin(false); },
         [&]() -> QCoro::Task<void> { co_await service.pull(entry(), "origin", PullStrategy::fastForwardOnly); }},
        {"pull by merge", UndoAction::pull, [&] { behindOrigin(true); },
         [&]() -> QCoro::Task<void> { co_await service.pull(entry(), "origin", PullStrategy::merge); }},
        {"pull by rebase", UndoAction::pull, [&] { behindOrigin(true); },
         [&]() -> QCoro::Task<void> { co_await service.pull(entry(), "origin", PullStrategy::rebase); }},
        {"force push", UndoAction::forcePush,
         [&] {
             repo.git({"push", "-q", "-u", "origin", "main"});
             repo.git({"commit", "-q", "--amend", "-m", "rewritten"});
         },
         [&] { return service.forcePush(entry(), "origin"); }},
        {"delete remote branch", UndoAction::deleteRemoteBranch,
         [&] {
             diverge();
             repo.git({"push", "-q", "origin", "main", "topic"});
         },
         [&] { return service.deleteRemoteBranch(entry(), "origin", "topic"); }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string base = repo.head();
        c.setup();
        const Snapshot before = snapshot(repo, &remote);
        await(c.act());
        ASSERT_NE(snapshot(repo, &remote), before);
        const auto entries = history();
        ASSERT_EQ(entries.size(), 1u);
        EXPECT_EQ(entries.front().action, c.action);
        // The commits the journal keeps stay out of the graph, and its refs out of the names.
        for (const GraphCommit& commit : await(service.commitGraph(entry(), 100))) {
            EXPECT_EQ(repo.gitAllowingFailure({"merge-base", "--is-ancestor", commit.hash, "HEAD"}).exitCode == 0 ||
                          !repo.git({"for-each-ref", "--contains", commit.hash, "refs/heads", "refs/remotes",
                                     "refs/stash"})
                               .empty(),
                      true)
                << commit.subject;
            for (const GraphRef& ref : commit.refs)
                EXPECT_EQ(ref.name.find("orvel"), std::string::npos);
        }

        repo.git({"gc", "-q", "--prune=now"});
        undoNewest();
        EXPECT_EQ(snapshot(repo, &remote), before);
        EXPECT_TRUE(history().empty());
        EXPECT_EQ(keptRefs(), "");

        // The next case starts from the same commit with nothing else around.
        startAgain(base, remote);
    }
}

TEST_F(UndoJournalTest, AMergeOrRebaseStoppedOnAConflictIsJournalledByTheStepThatEndsIt) {
    TempRepo remote(TempRepo::Kind::bare);
    repo.git({"remote", "add", "origin", remote.path()});
    NativeGitService& service = real.service;
    auto resolve = [&] {
        repo.write("a.txt", "resolved\n");
        repo.git({"add", "a.txt"});
    };
    auto commit = [&]() -> QCoro::Task<void> {
        resolve();
        co_await service.commit(entry(), "merged");
    };
    auto resume = [&]() -> QCoro::Task<void> {
        resolve();
        const InteractiveRebaseResult result = co_await service.rebaseContinue(entry());
        EXPECT_TRUE(std::holds_alternative<rebase::Success>(result));
    };
    auto rebase = [&]() -> QCoro::Task<void> { co_await service.rebase(entry(), "topic"); };
    const struct {
        const char* name;
        UndoAction action;
        std::function<QCoro::Task<void>()> start;
        std::function<QCoro::Task<void>()> end;
    } cases[] = {
        {"merge, then commit", UndoAction::merge,
         [&]() -> QCoro::Task<void> { co_await service.merge(entry(), "topic"); }, commit},
        {"rebase, then continue", UndoAction::rebase, rebase, resume},
        {"rebase, then skip", UndoAction::rebase, rebase,
         [&]() -> QCoro::Task<void> { co_await service.rebaseSkip(entry()); }},
        {"interactive rebase, then continue", UndoAction::rebase,
         [&]() -> QCoro::Task<void> {
             auto todo = co_await service.rebaseTodoList(entry(), "topic");
             co_await service.interactiveRebase(entry(), RebasePlan{"topic", std::move(todo)});
         },
         resume},
        {"pull by merge, then commit", UndoAction::pull,
         [&]() -> QCoro::Task<void> { co_await service.pull(entry(), "origin", PullStrategy::merge); }, commit},
        {"pull by rebase, then continue", UndoAction::pull,
         [&]() -> QCoro::Task<void> { co_await service.pull(entry(), "origin", PullStrategy::rebase); }, resume},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string base = repo.head();
        // "topic", which is also origin's "main", and the local "main" change a.txt each its way.
        repo.git({"checkout", "-q", "-b", "topic"});
        repo.write("a.txt", "theirs\n");
        repo.commitAll("theirs");
        repo.git({"push", "-q", "origin", "topic:main"});
        repo.git({"checkout", "-q", "main"});
        repo.git({"branch", "-q", "--set-upstream-to=origin/main"});
        repo.write("a.txt", "ours\n");
        repo.commitAll("ours");
        const Snapshot before = snapshot(repo);

        await(c.start());
        ASSERT_NE(repo.gitAllowingFailure({"diff", "--name-only", "--diff-filter=U"}).out, "");
        EXPECT_TRUE(history().empty());
        await(c.end());
        ASSERT_EQ(repo.read("a.txt"), std::string(c.name).ends_with("skip") ? "theirs\n" : "resolved\n");
        const auto entries = history();
        ASSERT_EQ(entries.size(), 1u);
        EXPECT_EQ(entries.front().action, c.action);
        undoNewest();
        EXPECT_EQ(snapshot(repo), before);
        EXPECT_TRUE(history().empty());
        startAgain(base, remote);
    }
}

TEST_F(UndoJournalTest, UndoRefusesAndChangesNothingWhenNewerWorkIsInTheWay) {
    const struct {
        const char* name;
        std::function<void()> act;
        std::function<void()> newerWork;
        const char* refusal;
    } cases[] = {
        {"a discarded file edited since",
         [&] {
             repo.write("a.txt", "lost");
             await(real.service.discardChanges(entry(), "a.txt", false));
         },
         [&] { repo.write("a.txt", "newer"); }, "was changed after the discard"},
        {"a deleted branch's name taken since",
         [&] {
             repo.git({"branch", "topic"});
             await(real.service.deleteBranch(entry(), "topic", false));
         },
         [&] {
             repo.write("c.txt", "c");
             repo.commitAll("newer");
             repo.git({"branch", "topic"});
         },
         "exists again"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        c.act();
        c.newerWork();
        const Snapshot before = snapshot(repo);
        const auto entries = history();
        ASSERT_EQ(entries.size(), 1u);
        RealGitService fresh;
        try {
            await(fresh.service.undo(entry(), entries.front().id));
            ADD_FAILURE() << "the undo went through";
        } catch (const GitServiceError& error) {
            EXPECT_NE(std::string(error.what()).find(c.refusal), std::string::npos) << error.what();
        }
        test::drainQueue(*fresh.runner);
        EXPECT_EQ(snapshot(repo), before);
        EXPECT_EQ(history(), entries);
        // Clear the journal for the next case.
        repo.git({"reset", "-q", "--hard", "HEAD"});
        fs::remove_all(fs::path(repo.path()) / ".git/orvel");
    }
}

TEST_F(UndoJournalTest, TheBoundDropsTheOldestEntriesWithTheirRefs) {
    const struct {
        UndoLimits limits;
        std::vector<std::string> kept; // newest first
    } cases[] = {
        {{2, 1u << 20}, {"3.txt", "2.txt"}},
        // 10 bytes a file: the newest stays even alone over the bound.
        {{50, 15}, {"3.txt"}},
        {{50, 5}, {"3.txt"}},
    };
    for (const auto& c : cases) {
        fs::remove_all(fs::path(repo.path()) / ".git/orvel");
        for (const std::string& ref : sortedLines(keptRefs()))
            repo.git({"update-ref", "-d", ref});
        real.service.setUndoLimits(c.limits);
        for (const char* name : {"1.txt", "2.txt", "3.txt"}) {
            repo.write(name, "0123456789");
            const auto failed = await(real.service.discardPaths(entry(), {}, {name}));
            ASSERT_TRUE(failed.empty());
        }
        std::vector<std::string> kept;
        for (const UndoEntry& each : history()) {
            kept.push_back(each.files.front().path);
            EXPECT_NE(keptRefs().find(each.id), std::string::npos);
        }
        EXPECT_EQ(kept, c.kept);
        EXPECT_EQ(sortedLines(keptRefs()).size(), c.kept.size());
    }
    // No entries at all turns the journal off.
    real.service.setUndoLimits({0, 1});
    repo.write("4.txt", "x");
    await(real.service.discardPaths(entry(), {}, {"4.txt"}));
    EXPECT_EQ(history().front().files.front().path, "3.txt");
}

TEST_F(UndoJournalTest, TheJournalIsPrivateAndADiscardOfAHundredMegabytesComesBackWhole) {
    std::string large(100u << 20, '\0');
    std::mt19937 random(7);
    std::generate(large.begin(), large.end(), [&random] { return static_cast<char>(random()); });
    repo.write("large.bin", "small");
    repo.commitAll("small");
    repo.write("large.bin", large);
    await(real.service.discardChanges(entry(), "large.bin", false));
    ASSERT_EQ(repo.read("large.bin"), "small");

    const fs::path folder = fs::path(repo.path()) / ".git/orvel";
    for (const fs::path& each : {folder, folder / "undo"})
        EXPECT_EQ(fs::status(each).permissions() & fs::perms::all, fs::perms::owner_all) << each;
    for (const auto& item : fs::directory_iterator(folder / "undo"))
        EXPECT_EQ(fs::status(item).permissions() & fs::perms::all, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(history().front().bytes, large.size());

    undoNewest();
    EXPECT_TRUE(repo.read("large.bin") == large);
}

TEST(UndoEntryFormat, AnEntryReadsBackWholeAndNothingLessIsAnEntry) {
    UndoEntry entry;
    entry.id = "00000000000000000042";
    entry.action = UndoAction::forcePush;
    entry.subject = "origin?\n";
    entry.time = 1767268800;
    entry.bytes = 12;
    entry.files = {{"dir/a b\n", "e69de29bb2d1d6434b8b29ae775ad8c2e48c5391", UndoFileMode::executable, std::string()},
                   {"link", "e69de29bb2d1d6434b8b29ae775ad8c2e48c5391", UndoFileMode::link, std::nullopt},
                   {"?", "", UndoFileMode::regular, std::nullopt}};
    entry.refs = {{"refs/remotes/origin/main", "1111111111111111111111111111111111111111", std::nullopt},
                  {"refs/heads/x", "", std::string("2222222222222222222222222222222222222222")}};
    const std::string bytes = formatUndoEntry(entry);
    EXPECT_EQ(parseUndoEntry(bytes, entry.id), entry);
    // A write cut short anywhere is no entry; nor is one with bytes after its end.
    for (std::size_t size = 0; size < bytes.size(); ++size)
        EXPECT_EQ(parseUndoEntry(bytes.substr(0, size), entry.id), std::nullopt) << size;
    EXPECT_EQ(parseUndoEntry(bytes + "x", entry.id), std::nullopt);
    const auto fields = [](std::initializer_list<std::string_view> each) {
        std::string joined;
        for (std::string_view field : each)
            joined.append(field).push_back('\0');
        return joined;
    };
    for (const std::string& junk : {fields({"orvel-undo 1", "discard", "", "1", "0", "99999999999"}),
                                    fields({"orvel-undo 1", "nothing", "", "1", "0", "0", "0"}),
                                    fields({"orvel-undo 1", "discard", "", "1", "0", "-1", "0"}),
                                    fields({"orvel-undo 1", "discard", "", "1", "0", "1", "p", "", "y", "?", "0"})})
        EXPECT_EQ(parseUndoEntry(junk, "1"), std::nullopt);
}

} // namespace
} // namespace orvel
