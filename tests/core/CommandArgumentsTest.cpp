// The exact argument list of every command, one table per commands file and one row per variant
// of an operation, through the recording executor: a changed flag, a swapped word or a missing
// "--" fails here before any repository could show it. Commands whose checks decide what runs
// (push, addRemote, the default branch, init, signing) have their rows beside those checks.
#include "core/commands/BlobCommands.h"
#include "core/commands/BranchCommands.h"
#include "core/commands/ConfigCommands.h"
#include "core/commands/ConflictSideCommands.h"
#include "core/commands/DiffCommands.h"
#include "core/commands/FileHistoryCommands.h"
#include "core/commands/HistoryCommands.h"
#include "core/commands/HistoryEditCommands.h"
#include "core/commands/InteractiveRebaseCommands.h"
#include "core/commands/MergeCommands.h"
#include "core/commands/RemoteCommands.h"
#include "core/commands/RepositoryCommands.h"
#include "core/commands/StagingCommands.h"
#include "core/commands/StashCommands.h"
#include "core/commands/StatusCommands.h"
#include "core/commands/TagCommands.h"
#include "core/service/GitServiceError.h"
#include "support/RecordingExecutor.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <system_error>

using namespace orvel;
using namespace std::string_literals;
using test::RecordingExecutor;
using Args = GitExecutorProtocol::Arguments;

namespace {

// git's answer to one call: its output, or a failure (`fails`).
using Reply = std::optional<std::string>;
constexpr std::nullopt_t fails = std::nullopt;

using Run = std::function<void(RecordingExecutor&)>;

struct Row {
    Run run;
    std::vector<Args> asked;
    std::vector<Reply> replies = {};
    std::string repoPath = "/r";
};

// Runs `command` in the repository "/r" with `values` behind it.
template <typename Command, typename... Values>
Run call(Command command, Values... values) {
    return [=](RecordingExecutor& git) { command(git, "/r", values...); };
}

void expectArguments(const std::vector<Row>& table) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        const Row& row = table[i];
        SCOPED_TRACE("row " + std::to_string(i + 1));
        RecordingExecutor git;
        for (const Reply& reply : row.replies)
            reply ? git.reply(*reply) : git.fail("scripted");
        row.run(git);
        EXPECT_EQ(git.argumentLists(), row.asked);
        for (const auto& call : git.calls())
            EXPECT_EQ(call.repoPath, row.repoPath);
    }
}

const std::string graphLog = "--format=%H%x1f%P%x1f%aN%x1f%aE%x1f%aI%x1f%s%x1f%D%x1e";
const std::string historyLog =
    "--format=%x01%H%x00%h%x00%P%x00%aN%x00%aE%x00%aI%x00%cN%x00%cE%x00%cI%x00%s%x00%b%x00%D%x00%G?%x00"
    "%(trailers:key=Co-Authored-By,valueonly,separator=%x1E)";
const Args conflictQuery{"status", "--porcelain=v2", "-uall", "-z"};
const Args verifyHead{"rev-parse", "--verify", "HEAD"};
const std::string unmerged = "u UU N... 100644 100644 100644 100644 "s + std::string(40, 'a') + " " +
                             std::string(40, 'b') + " " + std::string(40, 'c') + " f\0"s;

// One commit as the history format prints it, for the read-back after a commit.
const std::string readBack = "\x01"s + std::string(40, 'c') + "\0ccccccc\0\0A\0a@x\0"s +
                             "2026-01-01T00:00:00Z\0A\0a@x\0"s + "2026-01-01T00:00:00Z\0s\0\0\0N\0\n"s;

} // namespace

TEST(CommandArguments, RepositoryAndStatusCommands) {
    expectArguments({
        {call(RepositoryCommands::open),
         {{"rev-parse", "--git-dir", "--git-common-dir", "--is-bare-repository"},
          {"rev-parse", "HEAD"},
          {"symbolic-ref", "--short", "HEAD"}},
         {".git\n.git\nfalse\n"}},
        {call(RepositoryCommands::currentBranch), {{"symbolic-ref", "--short", "HEAD"}}},
        {call(RepositoryCommands::defaultBranch),
         {{"symbolic-ref", "refs/remotes/origin/HEAD"}, {"branch", "--list", "--format=%(refname:short)"}},
         {fails}},
        {[](auto& git) { RepositoryCommands::clone(git, "https://example.invalid/r.git", "/abs/target"); },
         {{"clone", "--", "https://example.invalid/r.git", "/abs/target"}},
         {},
         "/"},
        {call(StatusCommands::status),
         {{"status", "--porcelain=v2", "--branch", "--show-stash", "-uall", "-z"}}},
    });
}

TEST(CommandArguments, StagingCommands) {
    expectArguments({
        {call(StagingCommands::stage, "-rf"), {{"add", "--", "-rf"}}},
        {call(StagingCommands::stageFiles, Args{"a b", "-x"}), {{"add", "--", "a b", "-x"}}},
        {call(StagingCommands::stageFiles, Args{}), {}},
        {call(StagingCommands::stageAll), {{"add", "-A"}}},
        {call(StagingCommands::unstage, "-f"), {verifyHead, {"reset", "HEAD", "--", "-f"}}},
        {call(StagingCommands::unstage, "-f"), {verifyHead, {"rm", "--cached", "--", "-f"}}, {fails}},
        {call(StagingCommands::unstage, "f"),
         {verifyHead, {"reset", "HEAD", "--", "f"}, {"rm", "--cached", "--", "f"}},
         {"", fails}},
        {call(StagingCommands::unstageFiles, Args{"a", "-b"}),
         {verifyHead, {"reset", "HEAD", "--", "a", "-b"}}},
        {call(StagingCommands::unstageFiles, Args{"a", "b"}),
         {verifyHead, {"rm", "--cached", "--", "a", "b"}},
         {fails}},
        {call(StagingCommands::unstageFiles, Args{}), {}},
        {call(StagingCommands::unstageAll), {verifyHead, {"reset", "HEAD"}}},
        {call(StagingCommands::unstageAll), {verifyHead, {"rm", "--cached", "-r", "."}}, {fails}},
        {call(StagingCommands::discardChanges, "-p", false), {{"restore", "--worktree", "--", "-p"}}},
        {call(StagingCommands::discardChanges, "f", true),
         {{"restore", "--staged", "--worktree", "--", "f"}}},
        {call(StagingCommands::commit, "-m $(x)", false),
         {{"commit", "-m", "-m $(x)"}, {"log", "-1", historyLog}},
         {"", readBack}},
        {call(StagingCommands::amendCommit, "m", false),
         {{"commit", "--amend", "-m", "m"}, {"log", "-1", historyLog}},
         {"", readBack}},
    });
}

TEST(CommandArguments, ConfigCommands) {
    using namespace ConfigCommands;
    const auto read = [](std::optional<std::string> expected) {
        return [expected](RecordingExecutor& git) {
            EXPECT_EQ(get(git, "/r", "user.name", GitConfigScope::global), expected);
        };
    };
    expectArguments({
        {read(" Ada \t"), {{"config", "--global", "user.name"}}, {"\n Ada \t\n\n"}},
        {read(std::nullopt), {{"config", "--global", "user.name"}}, {"\n"}},
        {read(std::nullopt), {{"config", "--global", "user.name"}}, {fails}},
        {[](auto& git) { set(git, "/r", "user.email", "-n \"x\"\ny", GitConfigScope::local); },
         {{"config", "--local", "user.email", "-n \"x\"\ny"}}},
        {[](auto& git) { unset(git, "/r", "core.sshCommand", GitConfigScope::system); },
         {{"config", "--system", "--unset", "core.sshCommand"}}},
        {[](auto& git) {
             EXPECT_THROW(unset(git, "/r", "user.name", GitConfigScope::global), GitServiceError);
         },
         {{"config", "--global", "--unset", "user.name"}},
         {fails}},
    });
    // Only git's refusal reads as an unset key; a git that cannot be started is an error.
    RecordingExecutor git;
    git.fail(std::make_exception_ptr(std::system_error(ENOENT, std::generic_category(), "no git")));
    EXPECT_THROW(get(git, "/r", "user.name", GitConfigScope::global), std::system_error);
}

TEST(CommandArguments, BranchCommands) {
    expectArguments({
        {call(BranchCommands::branches),
         {{"branch", "-a", "--format",
           "%(refname:short)%00%(refname)%00%(objectname)%00%(HEAD)%00%(upstream:short)%00"
           "%(upstream:remotename)%00%(upstream:track,nobracket)%00%(worktreepath)%00%(contents:subject)%00"
           "%(committerdate:iso-strict)%00"}}},
        {call(BranchCommands::createBranch, "a/b", std::nullopt), {{"branch", "--", "a/b"}}},
        {call(BranchCommands::createBranch, "a", "v1"s), {{"branch", "--", "a", "v1"}}},
        {call(BranchCommands::checkoutBranch, "a"), {{"checkout", "a"}}},
        {call(BranchCommands::checkoutNewBranch, "a", "v1"), {{"checkout", "-b", "a", "v1"}}},
        {call(BranchCommands::deleteBranch, "a", false), {{"branch", "-d", "--", "a"}}},
        {call(BranchCommands::deleteBranch, "a", true), {{"branch", "-D", "--", "a"}}},
        {call(BranchCommands::renameBranch, "a", "b"), {{"branch", "-m", "--", "a", "b"}}},
        {call(BranchCommands::deleteRemoteBranch, "origin", "a/b"),
         {{"push", "origin", "--delete", "--", "a/b"}}},
        {[](auto& git) {
             EXPECT_EQ(BranchCommands::mergedBranches(git, "/r", "main"),
                       (Args{"feature/x", "topic", "main-old"}));
         },
         {{"branch", "--merged", "main", "--format=%(refname:short)"}},
         {"  feature/x \n\nmain\n\t\ntopic\nmain-old\n"}},
    });
}

TEST(CommandArguments, MergeCommands) {
    RepoEntry repo;
    repo.path = "/r";
    expectArguments({
        {call(MergeCommands::merge, "a"), {{"merge", "--", "a"}}, {"Already up to date!\n"}},
        {[](auto& git) {
             EXPECT_TRUE(std::holds_alternative<merge::FastForward>(MergeCommands::merge(git, "/r", "a")));
         },
         {{"merge", "--", "a"}, {"rev-parse", "HEAD"}},
         {"Updating\nFast-forward\n", "abc\n"}},
        {[](auto& git) {
             EXPECT_TRUE(std::holds_alternative<Conflicted>(MergeCommands::merge(git, "/r", "a")));
         },
         {{"merge", "--", "a"}, conflictQuery},
         {fails, unmerged}},
        {[](auto& git) {
             EXPECT_TRUE(
                 std::holds_alternative<merge::FastForward>(MergeCommands::fastForwardMerge(git, "/r", "a")));
         },
         {{"merge", "--ff-only", "--", "a"}, {"rev-parse", "HEAD"}}},
        {call(MergeCommands::rebase, "a"), {{"rebase", "--", "a"}}},
        {call(MergeCommands::rebase, "a"), {{"rebase", "--", "a"}, conflictQuery}, {fails, unmerged}},
        {[&](auto& git) { MergeCommands::rebaseContinue(git, repo); }, {{"rebase", "--continue"}}},
        {[&](auto& git) { MergeCommands::rebaseSkip(git, repo); }, {{"rebase", "--skip"}}},
        {call(MergeCommands::abortMerge), {{"merge", "--abort"}}},
        {call(MergeCommands::abortRebase), {{"rebase", "--abort"}}},
        {call(MergeCommands::abortCherryPick), {{"cherry-pick", "--abort"}}},
        {call(MergeCommands::abortRevert), {{"revert", "--abort"}}},
        {call(InteractiveRebaseCommands::rebaseTodoList, "main"),
         {{"log", "--oneline", "--reverse", "main..HEAD"}}},
    });
}

TEST(CommandArguments, RemoteCommands) {
    const std::vector<std::pair<PullStrategy, Args>> pulls{
        {PullStrategy::merge, {"pull", "--no-rebase", "--", "origin"}},
        {PullStrategy::rebase, {"pull", "--rebase", "--", "origin"}},
        {PullStrategy::fastForwardOnly, {"pull", "--ff-only", "--", "origin"}},
        {PullStrategy::useConfig, {"pull", "--", "origin"}}};
    std::vector<Row> table{
        {call(RemoteCommands::listRemotes), {{"remote", "-v"}}},
        {call(RemoteCommands::removeRemote, "o"), {{"remote", "remove", "--", "o"}}},
        {call(RemoteCommands::fetch, "o", false), {{"fetch", "--", "o"}}},
        {call(RemoteCommands::fetch, "o", true), {{"fetch", "--prune", "--", "o"}}},
        {call(RemoteCommands::pull, "o", PullStrategy::useConfig),
         {{"pull", "--", "o"}},
         {"Already up to date.\n"}},
        {[](auto& git) {
             EXPECT_TRUE(std::holds_alternative<Conflicted>(
                 RemoteCommands::pull(git, "/r", "o", PullStrategy::merge)));
         },
         {{"pull", "--no-rebase", "--", "o"}, conflictQuery},
         {fails, unmerged}},
        {call(RemoteCommands::pushBranch, "a/b", "o"), {{"push", "-u", "--", "o", "a/b"}}},
        {call(RemoteCommands::forcePush, "o"), {{"push", "--force-with-lease", "--", "o", "HEAD"}}},
    };
    for (const auto& [strategyOf, pull] : pulls)
        table.push_back(
            {[strategy = strategyOf](auto& git) { RemoteCommands::pull(git, "/r", "origin", strategy); },
             {pull, {"rev-parse", "HEAD"}}});
    expectArguments(table);
}

TEST(CommandArguments, StashCommands) {
    expectArguments({
        {call(StashCommands::stashSave, std::nullopt, false), {{"stash", "push"}}},
        {call(StashCommands::stashSave, "-m $(x)"s, true),
         {{"stash", "push", "--include-untracked", "-m", "-m $(x)"}}},
        {call(StashCommands::stashSave, ""s, false), {{"stash", "push", "-m", ""}}},
        {call(StashCommands::stashPop), {{"stash", "pop"}}},
        {call(StashCommands::stashPop), {{"stash", "pop"}, conflictQuery}, {fails, unmerged}},
        {call(StashCommands::stashApply, 3), {{"stash", "apply", "stash@{3}"}}},
        {call(StashCommands::stashDrop, 2), {{"stash", "drop", "stash@{2}"}}},
        {call(StashCommands::stashList), {{"stash", "list", "--format=%gd%x00%H%x00%P%x00%gs%x00%aI"}}},
        {call(StashCommands::stashFile, "-a b"),
         {{"status", "--porcelain=v1", "--", "-a b"}, {"stash", "push", "--", "-a b"}},
         {" M -a b\n"}},
        {call(StashCommands::stashFile, "n"),
         {{"status", "--porcelain=v1", "--", "n"}, {"stash", "push", "--include-untracked", "--", "n"}},
         {"  ?? n\n"}},
        {call(StashCommands::stashFile, "n"),
         {{"status", "--porcelain=v1", "--", "n"}, {"stash", "push", "--", "n"}},
         {fails}},
    });
}

TEST(CommandArguments, TagCommands) {
    expectArguments({
        {call(TagCommands::listTags),
         {{"tag", "-l", "--format",
           "%(refname:short)%00%(objectname)%00%(*objectname)%00%(objecttype)%00%(taggername)%00%("
           "taggeremail)%00"
           "%(taggerdate:iso-strict)%00%(contents:subject)%00%(contents:signature)%00"}}},
        {call(TagCommands::createTag, "v1", std::nullopt, "m"s, false),
         {{"tag", "-a", "-m", "m", "--", "v1"}}},
        {call(TagCommands::createTag, "v1", "abc"s, "m"s, true),
         {{"tag", "-s", "-m", "m", "--", "v1", "abc"}}},
        {call(TagCommands::createTag, "v1", "abc"s, std::nullopt, true), {{"tag", "--", "v1", "abc"}}},
        {call(TagCommands::createTag, "v1", std::nullopt, ""s, false), {{"tag", "-a", "-m", "", "--", "v1"}}},
        {call(TagCommands::pushTag, "v1", "o"), {{"push", "--", "o", "v1"}}},
        {call(TagCommands::deleteTag, "v1"), {{"tag", "-d", "--", "v1"}}},
        {call(TagCommands::checkoutTag, "v1"), {{"checkout", "tags/v1"}}},
        {call(TagCommands::tagDetail, "v1"), {{"show", "--no-patch", "tags/v1"}}},
    });
}

TEST(CommandArguments, HistoryEditConflictSideFileAndBlobCommands) {
    std::vector<Row> table{
        {call(HistoryEditCommands::cherryPick, "abc"), {{"cherry-pick", "abc"}}},
        {call(HistoryEditCommands::cherryPick, "abc"),
         {{"cherry-pick", "abc"}, conflictQuery},
         {fails, unmerged}},
        {call(HistoryEditCommands::revert, "abc"), {{"revert", "--no-edit", "abc"}}},
        {call(ConflictSideCommands::resolveUsingOurs, "-a b"),
         {{"checkout", "--ours", "--", "-a b"}, {"add", "--", "-a b"}}},
        {call(ConflictSideCommands::resolveUsingTheirs, "-a"),
         {{"checkout", "--theirs", "--", "-a"}, {"add", "--", "-a"}}},
        {call(FileHistoryCommands::blame, "-x y"), {{"blame", "--porcelain", "--", "-x y"}}},
        {call(FileHistoryCommands::fileHistory, "-x y", 100),
         {{"log", "--follow", "-n", "100", historyLog, "--", "-x y"}}},
        {call(BlobCommands::readBlob, " abc "), {{"cat-file", "blob", "abc"}}},
    };
    for (const auto& [modeOf, flag] :
         std::vector<std::pair<ResetMode, std::string>>{{ResetMode::soft, "--soft"},
                                                        {ResetMode::mixed, "--mixed"},
                                                        {ResetMode::hard, "--hard"},
                                                        {ResetMode::merge, "--merge"},
                                                        {ResetMode::keep, "--keep"}})
        table.push_back({[mode = modeOf](auto& git) { HistoryEditCommands::reset(git, "/r", "abc", mode); },
                         {{"reset", flag, "abc"}}});
    expectArguments(table);
}

TEST(CommandArguments, DiffAndHistoryCommands) {
    const auto diff = [](DiffContext context, std::optional<int> lines = std::nullopt) {
        return [=](RecordingExecutor& git) { DiffCommands::diff(git, "/r", context, lines); };
    };
    expectArguments({
        {diff(DiffContext::unstaged()), {{"diff"}}},
        {diff(DiffContext::staged(), 5), {{"diff", "--cached", "-U5"}}},
        {diff(DiffContext::commit("abc")), {{"show", "--format=", "abc"}}},
        {diff(DiffContext::commit("abc", 1), 0),
         {{"log", "--format=%P", "-1", "abc"}, {"diff", "p2", "abc", "-U0"}},
         {" p1  p2\n"}},
        {diff(DiffContext::commit("abc", 0)),
         {{"log", "--format=%P", "-1", "abc"}, {"diff", "abc^", "abc"}},
         {"\n"}},
        {diff(DiffContext::stash("s")), {{"stash", "show", "-p", "s"}}},
        {diff(DiffContext::commitRange("a", "b"), 3), {{"diff", "a", "b", "-U3"}}},
        {call(DiffCommands::commitDiff, "abc", std::nullopt),
         {{"show", "--format=", "-m", "--first-parent", "abc"}}},
        {call(DiffCommands::commitDiff, "abc", 7),
         {{"show", "--format=", "-m", "--first-parent", "abc", "-U7"}}},
        {call(DiffCommands::commitFileChanges, "abc"),
         {{"diff-tree", "--root", "--no-commit-id", "-r", "--name-status", "--diff-merges=first-parent", "abc"}}},
        {[](auto& git) {
             EXPECT_EQ(HistoryCommands::remoteNames(git, "/r"),
                       (RemoteNameSet{"fork", "origin", "upstream"}));
         },
         {{"remote"}},
         {"origin\n\n  upstream\t\nfork\n"}},
        {call(HistoryCommands::commitGraph, 200, RemoteNameSet{}),
         {{"log", "--exclude=refs/orvel/*", "--all", "--decorate-refs-exclude=refs/orvel/*", "--topo-order", "-n", "200", graphLog}}},
        {call(HistoryCommands::streamCommitGraph, 4000, std::size_t{2000}, RemoteNameSet{},
              std::function<void(std::vector<GraphCommit>)>()),
         {{"log", "--exclude=refs/orvel/*", "--all", "--decorate-refs-exclude=refs/orvel/*", "--topo-order", "--skip=4000", graphLog}}},
        {call(HistoryCommands::commitDetails, std::string("-p")),
         {{"log", "-n", "1", historyLog, "--end-of-options", "-p"}},
         {"\x01"s + std::string(40, 'a') + "\0aaaaaaa\0\0A\0a@x\0"s + "2026-01-01T00:00:00+00:00\0C\0c@x\0"s +
          "2026-01-01T00:00:00+00:00\0subject\0body\0\0N\0"s}},
        {call(HistoryCommands::resolveCommit, std::string("-v1")),
         {{"rev-parse", "--verify", "--quiet", "--end-of-options", "-v1^{commit}"}}},
        {call(HistoryCommands::commitHistory, 30), {{"log", "-n", "30", historyLog}}},
    });
}
