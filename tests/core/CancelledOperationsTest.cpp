// A caller's stop token that is triggered before the call reaches every queued operation: each one
// fails with OperationCancelled and runs no git command of its own (the signing look-up of a
// commit or a tag may still be asked).
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "support/Await.h"
#include "support/RecordingExecutor.h"

#include <gtest/gtest.h>

#include <functional>

using namespace orvel;
using test::await;

TEST(CancelledOperations, FailBeforeAnyCommandRuns) {
    using S = NativeGitService;
    using R = const RepoEntry&;
    using T = std::stop_token;
    const std::vector<std::pair<const char*, std::function<void(S&, R, T)>>> operations{
        {"open", [](S& s, R r, T t) { await(s.open(r.path, t)); }},
        {"status", [](S& s, R r, T t) { await(s.status(r, t)); }},
        {"stage", [](S& s, R r, T t) { await(s.stage(r, "f", t)); }},
        {"stageFiles", [](S& s, R r, T t) { await(s.stageFiles(r, {"f"}, t)); }},
        {"stageAll", [](S& s, R r, T t) { await(s.stageAll(r, t)); }},
        {"unstage", [](S& s, R r, T t) { await(s.unstage(r, "f", t)); }},
        {"unstageFiles", [](S& s, R r, T t) { await(s.unstageFiles(r, {"f"}, t)); }},
        {"unstageAll", [](S& s, R r, T t) { await(s.unstageAll(r, t)); }},
        {"stageHunk", [](S& s, R r, T t) { await(s.stageHunk(r, "f", {}, t)); }},
        {"unstageHunk", [](S& s, R r, T t) { await(s.unstageHunk(r, "f", {}, t)); }},
        {"discardHunk", [](S& s, R r, T t) { await(s.discardHunk(r, "f", {}, t)); }},
        {"discardChanges", [](S& s, R r, T t) { await(s.discardChanges(r, "f", true, t)); }},
        {"commit", [](S& s, R r, T t) { await(s.commit(r, "m", t)); }},
        {"amendCommit", [](S& s, R r, T t) { await(s.amendCommit(r, "m", t)); }},
        {"commitHistory", [](S& s, R r, T t) { await(s.commitHistory(r, 10, t)); }},
        {"commitGraph", [](S& s, R r, T t) { await(s.commitGraph(r, 10, t)); }},
        {"diff", [](S& s, R r, T t) { await(s.diff(r, DiffContext::unstaged(), {}, t)); }},
        {"commitDiff", [](S& s, R r, T t) { await(s.commitDiff(r, "c", {}, t)); }},
        {"commitFileChanges", [](S& s, R r, T t) { await(s.commitFileChanges(r, "c", t)); }},
        {"blame", [](S& s, R r, T t) { await(s.blame(r, "f", t)); }},
        {"branches", [](S& s, R r, T t) { await(s.branches(r, t)); }},
        {"createBranch", [](S& s, R r, T t) { await(s.createBranch(r, "b", {}, t)); }},
        {"checkoutBranch", [](S& s, R r, T t) { await(s.checkoutBranch(r, "b", t)); }},
        {"checkoutNewBranch", [](S& s, R r, T t) { await(s.checkoutNewBranch(r, "b", "main", t)); }},
        {"deleteBranch", [](S& s, R r, T t) { await(s.deleteBranch(r, "b", false, t)); }},
        {"renameBranch", [](S& s, R r, T t) { await(s.renameBranch(r, "a", "b", t)); }},
        {"deleteRemoteBranch", [](S& s, R r, T t) { await(s.deleteRemoteBranch(r, "origin", "b", t)); }},
        {"merge", [](S& s, R r, T t) { await(s.merge(r, "b", t)); }},
        {"fastForwardMerge", [](S& s, R r, T t) { await(s.fastForwardMerge(r, "b", t)); }},
        {"rebase", [](S& s, R r, T t) { await(s.rebase(r, "b", t)); }},
        {"rebaseTodoList", [](S& s, R r, T t) { await(s.rebaseTodoList(r, "b", t)); }},
        {"interactiveRebase",
         [](S& s, R r, T t) {
             await(s.interactiveRebase(r, RebasePlan{"b", {}}, t));
         }},
        {"pushBranch", [](S& s, R r, T t) { await(s.pushBranch(r, "b", "origin", t)); }},
        {"tagDetail", [](S& s, R r, T t) { await(s.tagDetail(r, "v1", t)); }},
        {"listRemotes", [](S& s, R r, T t) { await(s.listRemotes(r, t)); }},
        {"addRemote", [](S& s, R r, T t) { await(s.addRemote(r, "o", "/srv/o.git", t)); }},
        {"removeRemote", [](S& s, R r, T t) { await(s.removeRemote(r, "o", t)); }},
        {"fetch", [](S& s, R r, T t) { await(s.fetch(r, "origin", true, t)); }},
        {"pull", [](S& s, R r, T t) { await(s.pull(r, "origin", PullStrategy::merge, t)); }},
        {"push", [](S& s, R r, T t) { await(s.push(r, "origin", t)); }},
        {"forcePush", [](S& s, R r, T t) { await(s.forcePush(r, "origin", t)); }},
        {"cherryPick", [](S& s, R r, T t) { await(s.cherryPick(r, "c", t)); }},
        {"revert", [](S& s, R r, T t) { await(s.revert(r, "c", t)); }},
        {"reset", [](S& s, R r, T t) { await(s.reset(r, "c", ResetMode::hard, t)); }},
        {"listTags", [](S& s, R r, T t) { await(s.listTags(r, t)); }},
        {"createTag", [](S& s, R r, T t) { await(s.createTag(r, "v2", {}, "m", t)); }},
        {"pushTag", [](S& s, R r, T t) { await(s.pushTag(r, "v1", "origin", t)); }},
        {"deleteTag", [](S& s, R r, T t) { await(s.deleteTag(r, "v1", t)); }},
        {"checkoutTag", [](S& s, R r, T t) { await(s.checkoutTag(r, "v1", t)); }},
        {"stashSave", [](S& s, R r, T t) { await(s.stashSave(r, {}, true, t)); }},
        {"stashPop", [](S& s, R r, T t) { await(s.stashPop(r, t)); }},
        {"stashApply", [](S& s, R r, T t) { await(s.stashApply(r, 0, t)); }},
        {"stashDrop", [](S& s, R r, T t) { await(s.stashDrop(r, 0, t)); }},
        {"stashList", [](S& s, R r, T t) { await(s.stashList(r, t)); }},
        {"stashFile", [](S& s, R r, T t) { await(s.stashFile(r, "f", t)); }},
        {"resolveConflictUsingOurs", [](S& s, R r, T t) { await(s.resolveConflictUsingOurs(r, "f", t)); }},
        {"resolveConflictUsingTheirs",
         [](S& s, R r, T t) { await(s.resolveConflictUsingTheirs(r, "f", t)); }},
        {"abortMerge", [](S& s, R r, T t) { await(s.abortMerge(r, t)); }},
        {"abortRebase", [](S& s, R r, T t) { await(s.abortRebase(r, t)); }},
        {"abortCherryPick", [](S& s, R r, T t) { await(s.abortCherryPick(r, t)); }},
        {"abortRevert", [](S& s, R r, T t) { await(s.abortRevert(r, t)); }},
        {"rebaseContinue", [](S& s, R r, T t) { await(s.rebaseContinue(r, t)); }},
        {"rebaseSkip", [](S& s, R r, T t) { await(s.rebaseSkip(r, t)); }},
        {"readBlob", [](S& s, R r, T t) { await(s.readBlob(r, "c", t)); }},
        {"fileHistory", [](S& s, R r, T t) { await(s.fileHistory(r, "f", 10, t)); }},
        {"defaultBranch", [](S& s, R r, T t) { await(s.defaultBranch(r, t)); }},
        {"mergedBranches", [](S& s, R r, T t) { await(s.mergedBranches(r, "main", t)); }},
        {"currentBranch", [](S& s, R r, T t) { await(s.currentBranch(r, t)); }},
        {"cloneRepository", [](S& s, R r, T t) { await(s.cloneRepository("/srv/o.git", r.path, t)); }},
        {"initRepository", [](S& s, R r, T t) { await(s.initRepository(r.path, {}, t)); }},
    };
    std::stop_source stopped;
    stopped.request_stop();
    RepoEntry repo;
    repo.path = "/nonexistent/repo";
    for (const auto& [name, call] : operations) {
        SCOPED_TRACE(name);
        auto git = std::make_shared<test::RecordingExecutor>();
        NativeGitService service(git, std::make_shared<GitOpRunner>(1));
        EXPECT_THROW(call(service, repo, stopped.get_token()), OperationCancelled);
        for (const auto& arguments : git->argumentLists())
            EXPECT_EQ(arguments.front(), "config");
    }
}
