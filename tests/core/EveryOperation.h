// Every operation of the git service, each run with one value where it takes a name, a remote, a
// url or a path. The hostile-arguments test walks it with values that git would misread; the
// cancellation test walks it with a stop token triggered before the call.
#pragma once

#include "core/service/GitServiceProtocol.h"
#include "support/Await.h"

#include <functional>
#include <stop_token>
#include <string>
#include <vector>

namespace orvel::test {

struct Operation {
    enum class Value { none, taken, kept };

    const char* name;
    // The subject of the refusal ("Branch name" gives "Branch name must not begin with '-': ...");
    // empty where the value stands behind "--" or is only a value of an option.
    std::string role;
    std::function<void(GitServiceProtocol&, const RepoEntry&, const std::string& value, std::stop_token)>
        call;
    // `kept`: the value is data that the operation keeps (a url, a written file): it may change things.
    Value value = Value::taken;
};

// New repositories land in `scratch`, under the value as their name. Operations that keep their
// value come last: what they keep is new ground for the rows after them.
inline std::vector<Operation> everyOperation(const std::string& scratch) {
    using S = GitServiceProtocol&;
    using R = const RepoEntry&;
    using V = const std::string&;
    using T = std::stop_token;
    using enum Operation::Value;
    DiffHunk hunk;
    hunk.oldStart = hunk.newStart = hunk.oldCount = hunk.newCount = 1;
    return {
        {"open", "", [](S s, R, V v, T t) { await(s.open(v, t)); }},
        {"status", "", [](S s, R r, V, T t) { await(s.status(r, t)); }, none},
        {"stage", "", [](S s, R r, V v, T t) { await(s.stage(r, v, t)); }},
        {"stageFiles", "",
         [](S s, R r, V v, T t) {
             await(s.stageFiles(r, {"tracked.txt", v}, t));
         }},
        {"stageAll", "", [](S s, R r, V, T t) { await(s.stageAll(r, t)); }, none},
        {"unstage", "", [](S s, R r, V v, T t) { await(s.unstage(r, v, t)); }},
        {"unstageFiles", "", [](S s, R r, V v, T t) { await(s.unstageFiles(r, {v}, t)); }},
        {"unstageAll", "", [](S s, R r, V, T t) { await(s.unstageAll(r, t)); }, none},
        {"stageHunk", "", [hunk](S s, R r, V v, T t) { await(s.stageHunk(r, v, hunk, t)); }},
        {"unstageHunk", "", [hunk](S s, R r, V v, T t) { await(s.unstageHunk(r, v, hunk, t)); }},
        {"discardHunk", "", [hunk](S s, R r, V v, T t) { await(s.discardHunk(r, v, hunk, t)); }},
        {"discardChanges", "", [](S s, R r, V v, T t) { await(s.discardChanges(r, v, true, t)); }},
        {"commit", "", [](S s, R r, V, T t) { await(s.commit(r, "m", t)); }, none},
        {"amendCommit", "", [](S s, R r, V, T t) { await(s.amendCommit(r, "m", t)); }, none},
        {"commitHistory", "", [](S s, R r, V, T t) { await(s.commitHistory(r, 10, t)); }, none},
        {"commitGraph", "", [](S s, R r, V, T t) { await(s.commitGraph(r, 10, t)); }, none},
        {"diff unstaged", "", [](S s, R r, V, T t) { await(s.diff(r, DiffContext::unstaged(), {}, t)); },
         none},
        {"diff commit", "revision",
         [](S s, R r, V v, T t) { await(s.diff(r, DiffContext::commit(v), {}, t)); }},
        {"diff parent", "revision",
         [](S s, R r, V v, T t) { await(s.diff(r, DiffContext::commit(v, 0), {}, t)); }},
        {"diff stash", "revision",
         [](S s, R r, V v, T t) { await(s.diff(r, DiffContext::stash(v), {}, t)); }},
        {"diff range", "revision",
         [](S s, R r, V v, T t) { await(s.diff(r, DiffContext::commitRange("main", v), {}, t)); }},
        {"commitDiff", "revision", [](S s, R r, V v, T t) { await(s.commitDiff(r, v, {}, t)); }},
        {"commitFileChanges", "revision", [](S s, R r, V v, T t) { await(s.commitFileChanges(r, v, t)); }},
        {"blame", "", [](S s, R r, V v, T t) { await(s.blame(r, v, t)); }},
        {"branches", "", [](S s, R r, V, T t) { await(s.branches(r, t)); }, none},
        {"createBranch", "Branch name", [](S s, R r, V v, T t) { await(s.createBranch(r, v, {}, t)); }},
        {"createBranch start", "Start point",
         [](S s, R r, V v, T t) { await(s.createBranch(r, "new", v, t)); }},
        {"checkoutBranch", "Branch name", [](S s, R r, V v, T t) { await(s.checkoutBranch(r, v, t)); }},
        {"checkoutNewBranch", "Branch name",
         [](S s, R r, V v, T t) { await(s.checkoutNewBranch(r, v, "main", t)); }},
        {"checkoutNewBranch start", "Start point",
         [](S s, R r, V v, T t) { await(s.checkoutNewBranch(r, "new", v, t)); }},
        {"deleteBranch", "Branch name", [](S s, R r, V v, T t) { await(s.deleteBranch(r, v, true, t)); }},
        {"renameBranch old", "Branch name",
         [](S s, R r, V v, T t) { await(s.renameBranch(r, v, "new", t)); }},
        {"renameBranch new", "Branch name",
         [](S s, R r, V v, T t) { await(s.renameBranch(r, "topic", v, t)); }},
        {"deleteRemoteBranch remote", "Remote name",
         [](S s, R r, V v, T t) { await(s.deleteRemoteBranch(r, v, "main", t)); }},
        {"deleteRemoteBranch branch", "Branch name",
         [](S s, R r, V v, T t) { await(s.deleteRemoteBranch(r, "origin", v, t)); }},
        {"merge", "Branch name", [](S s, R r, V v, T t) { await(s.merge(r, v, t)); }},
        {"fastForwardMerge", "Branch name", [](S s, R r, V v, T t) { await(s.fastForwardMerge(r, v, t)); }},
        {"rebase", "Rebase target", [](S s, R r, V v, T t) { await(s.rebase(r, v, t)); }},
        {"rebaseTodoList", "Rebase target", [](S s, R r, V v, T t) { await(s.rebaseTodoList(r, v, t)); }},
        {"interactiveRebase", "Rebase target",
         [](S s, R r, V v, T t) {
             await(s.interactiveRebase(r, RebasePlan{v, {}}, t));
         }},
        {"pushBranch branch", "Branch name",
         [](S s, R r, V v, T t) { await(s.pushBranch(r, v, "origin", t)); }},
        {"pushBranch remote", "Remote name",
         [](S s, R r, V v, T t) { await(s.pushBranch(r, "main", v, t)); }},
        {"tagDetail", "tag name", [](S s, R r, V v, T t) { await(s.tagDetail(r, v, t)); }},
        {"listRemotes", "", [](S s, R r, V, T t) { await(s.listRemotes(r, t)); }, none},
        {"addRemote name", "Remote name",
         [](S s, R r, V v, T t) { await(s.addRemote(r, v, "/srv/r.git", t)); }},
        {"removeRemote", "Remote name", [](S s, R r, V v, T t) { await(s.removeRemote(r, v, t)); }},
        {"fetch", "Remote name", [](S s, R r, V v, T t) { await(s.fetch(r, v, true, t)); }},
        {"pull", "Remote name", [](S s, R r, V v, T t) { await(s.pull(r, v, PullStrategy::useConfig, t)); }},
        {"push", "Remote name", [](S s, R r, V v, T t) { await(s.push(r, v, t)); }},
        {"forcePush", "Remote name", [](S s, R r, V v, T t) { await(s.forcePush(r, v, t)); }},
        {"cherryPick", "commit", [](S s, R r, V v, T t) { await(s.cherryPick(r, v, t)); }},
        {"revert", "commit", [](S s, R r, V v, T t) { await(s.revert(r, v, t)); }},
        {"reset", "commit", [](S s, R r, V v, T t) { await(s.reset(r, v, ResetMode::hard, t)); }},
        {"listTags", "", [](S s, R r, V, T t) { await(s.listTags(r, t)); }, none},
        {"createTag", "tag name", [](S s, R r, V v, T t) { await(s.createTag(r, v, {}, {}, t)); }},
        {"createTag hash", "commit",
         [](S s, R r, V v, T t) { await(s.createTag(r, "new", v, "message", t)); }},
        {"pushTag name", "tag name", [](S s, R r, V v, T t) { await(s.pushTag(r, v, "origin", t)); }},
        {"pushTag remote", "remote name", [](S s, R r, V v, T t) { await(s.pushTag(r, "v1", v, t)); }},
        {"deleteTag", "tag name", [](S s, R r, V v, T t) { await(s.deleteTag(r, v, t)); }},
        {"checkoutTag", "tag name", [](S s, R r, V v, T t) { await(s.checkoutTag(r, v, t)); }},
        {"stashSave", "", [](S s, R r, V, T t) { await(s.stashSave(r, {}, true, t)); }, none},
        {"stashPop", "", [](S s, R r, V, T t) { await(s.stashPop(r, t)); }, none},
        {"stashApply", "", [](S s, R r, V, T t) { await(s.stashApply(r, 0, t)); }, none},
        {"stashDrop", "", [](S s, R r, V, T t) { await(s.stashDrop(r, 0, t)); }, none},
        {"stashList", "", [](S s, R r, V, T t) { await(s.stashList(r, t)); }, none},
        {"stashFile", "", [](S s, R r, V v, T t) { await(s.stashFile(r, v, t)); }},
        {"resolveConflictUsingOurs", "",
         [](S s, R r, V v, T t) { await(s.resolveConflictUsingOurs(r, v, t)); }},
        {"resolveConflictUsingTheirs", "",
         [](S s, R r, V v, T t) { await(s.resolveConflictUsingTheirs(r, v, t)); }},
        {"abortMerge", "", [](S s, R r, V, T t) { await(s.abortMerge(r, t)); }, none},
        {"abortRebase", "", [](S s, R r, V, T t) { await(s.abortRebase(r, t)); }, none},
        {"abortCherryPick", "", [](S s, R r, V, T t) { await(s.abortCherryPick(r, t)); }, none},
        {"abortRevert", "", [](S s, R r, V, T t) { await(s.abortRevert(r, t)); }, none},
        {"rebaseContinue", "", [](S s, R r, V, T t) { await(s.rebaseContinue(r, t)); }, none},
        {"rebaseSkip", "", [](S s, R r, V, T t) { await(s.rebaseSkip(r, t)); }, none},
        {"readBlob", "blob hash", [](S s, R r, V v, T t) { await(s.readBlob(r, v, t)); }},
        {"fileHistory", "", [](S s, R r, V v, T t) { await(s.fileHistory(r, v, 10, t)); }},
        {"defaultBranch", "", [](S s, R r, V, T t) { await(s.defaultBranch(r, t)); }, none},
        {"mergedBranches", "Merge target", [](S s, R r, V v, T t) { await(s.mergedBranches(r, v, t)); }},
        {"currentBranch", "", [](S s, R r, V, T t) { await(s.currentBranch(r, t)); }, none},
        {"cloneRepository url", "URL",
         [scratch](S s, R, V v, T t) { await(s.cloneRepository(v, scratch + "/clone", t)); }},
        {"cloneRepository path", "",
         [scratch](S s, R r, V v, T t) { await(s.cloneRepository(r.path, scratch + "/" + v + "c", t)); }},
        {"initRepository path", "",
         [scratch](S s, R, V v, T t) { await(s.initRepository(scratch + "/" + v, {}, t)); }},
        {"initRepository branch", "Branch name",
         [scratch](S s, R, V v, T t) { await(s.initRepository(scratch + "/init", v, t)); }},
        {"addRemote url", "URL", [](S s, R r, V v, T t) { await(s.addRemote(r, "kept", v, t)); }, kept},
        {"writeResolvedFile", "", [](S s, R r, V v, T t) { await(s.writeResolvedFile(r, v, "x\n", t)); },
         kept},
    };
}

} // namespace orvel::test
