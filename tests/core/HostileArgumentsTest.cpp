// Every operation that takes a name, a remote, a url or a path, walked with the same hostile list
// against a real repository and its real bare origin. A value that git would read as an option is
// refused with the operation's refusal text; every value leaves the repository and the origin as
// they were, and none runs the program it names: each would create the marker file.
#include "RealGitService.h"
#include "support/Await.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

using namespace orvel;
using test::await;

namespace {

struct Operation {
    const char* name;
    // The subject of the refusal ("Branch name" gives "Branch name must not begin with '-': ...");
    // empty where the value stands behind "--" or is only a value of an option.
    std::string role;
    std::function<void(GitServiceProtocol&, const RepoEntry&, const std::string& value)> call;
    // The value is data that the operation keeps (a url, a written file): it may change things.
    bool keepsValue = false;
};

class HostileArguments : public ::testing::Test {
  protected:
    void SetUp() override {
        work.write("tracked.txt", "one\n");
        work.commitAll("first");
        work.git({"branch", "topic"});
        work.git({"tag", "v1"});
        work.git({"push", "-q", "-u", origin.path(), "main"});
        work.git({"remote", "add", "origin", origin.path()});
        work.git({"fetch", "-q", "origin"});
        work.write("tracked.txt", "one\nchanged\n");
        work.write("untracked.txt", "new\n");
    }

    // The refs, HEAD, index, work tree and configuration of the repository, and the origin's refs.
    std::string state() const {
        return work.git({"for-each-ref", "--format=%(refname) %(objectname)"}) +
               work.gitAllowingFailure({"symbolic-ref", "HEAD"}).out + work.git({"rev-parse", "HEAD"}) +
               work.git({"ls-files", "--stage"}) + work.git({"status", "--porcelain=v1", "-uall"}) +
               work.git({"diff"}) + test::readFile(work / ".git/config") +
               origin.git({"for-each-ref", "--format=%(refname) %(objectname)"});
    }

    std::vector<std::string> hostileValues() const {
        const std::string run = "touch " + marker();
        return {"-x",
                "--upload-pack=" + run,
                "--exec=" + run,
                "-oProxyCommand=" + run,
                "$(" + run + ")",
                "`" + run + "`",
                "x;" + run,
                "x\n" + run};
    }

    std::string marker() const { return scratch / "ran"; }

    test::TempRepo work;
    test::TempRepo origin{test::TempRepo::Kind::bare};
    test::TempDir scratch;
    test::RealGitService real;
};

DiffHunk someHunk() {
    DiffHunk hunk;
    hunk.oldStart = hunk.newStart = 1;
    hunk.oldCount = hunk.newCount = 1;
    return hunk;
}

RebasePlan planOnto(const std::string& onto) {
    RebasePlan plan;
    plan.onto = onto;
    return plan;
}

} // namespace

TEST_F(HostileArguments, RefusedOrTakenLiterallyAndNothingRunsOrChanges) {
    using S = GitServiceProtocol;
    using R = const RepoEntry&;
    using V = const std::string&;
    const std::string place = scratch.path();
    // Keeping values last: what they keep is new ground for the rows after them.
    const std::vector<Operation> operations{
        {"open", "", [](S& s, R, V v) { await(s.open(v)); }},
        {"stage", "", [](S& s, R r, V v) { await(s.stage(r, v)); }},
        {"stageFiles", "",
         [](S& s, R r, V v) {
             await(s.stageFiles(r, {"tracked.txt", v}));
         }},
        {"unstage", "", [](S& s, R r, V v) { await(s.unstage(r, v)); }},
        {"unstageFiles", "", [](S& s, R r, V v) { await(s.unstageFiles(r, {v})); }},
        {"stageHunk", "", [](S& s, R r, V v) { await(s.stageHunk(r, v, someHunk())); }},
        {"unstageHunk", "", [](S& s, R r, V v) { await(s.unstageHunk(r, v, someHunk())); }},
        {"discardHunk", "", [](S& s, R r, V v) { await(s.discardHunk(r, v, someHunk())); }},
        {"discardChanges", "", [](S& s, R r, V v) { await(s.discardChanges(r, v, true)); }},
        {"diff commit", "revision", [](S& s, R r, V v) { await(s.diff(r, DiffContext::commit(v), {})); }},
        {"diff parent", "revision", [](S& s, R r, V v) { await(s.diff(r, DiffContext::commit(v, 0), {})); }},
        {"diff stash", "revision", [](S& s, R r, V v) { await(s.diff(r, DiffContext::stash(v), {})); }},
        {"diff range", "revision",
         [](S& s, R r, V v) { await(s.diff(r, DiffContext::commitRange("main", v), {})); }},
        {"commitDiff", "revision", [](S& s, R r, V v) { await(s.commitDiff(r, v, {})); }},
        {"commitFileChanges", "revision", [](S& s, R r, V v) { await(s.commitFileChanges(r, v)); }},
        {"blame", "", [](S& s, R r, V v) { await(s.blame(r, v)); }},
        {"createBranch", "Branch name", [](S& s, R r, V v) { await(s.createBranch(r, v, {})); }},
        {"createBranch start", "Start point", [](S& s, R r, V v) { await(s.createBranch(r, "new", v)); }},
        {"checkoutBranch", "Branch name", [](S& s, R r, V v) { await(s.checkoutBranch(r, v)); }},
        {"checkoutNewBranch", "Branch name",
         [](S& s, R r, V v) { await(s.checkoutNewBranch(r, v, "main")); }},
        {"checkoutNewBranch start", "Start point",
         [](S& s, R r, V v) { await(s.checkoutNewBranch(r, "new", v)); }},
        {"deleteBranch", "Branch name", [](S& s, R r, V v) { await(s.deleteBranch(r, v, true)); }},
        {"renameBranch old", "Branch name", [](S& s, R r, V v) { await(s.renameBranch(r, v, "new")); }},
        {"renameBranch new", "Branch name", [](S& s, R r, V v) { await(s.renameBranch(r, "topic", v)); }},
        {"deleteRemoteBranch remote", "Remote name",
         [](S& s, R r, V v) { await(s.deleteRemoteBranch(r, v, "main")); }},
        {"deleteRemoteBranch branch", "Branch name",
         [](S& s, R r, V v) { await(s.deleteRemoteBranch(r, "origin", v)); }},
        {"merge", "Branch name", [](S& s, R r, V v) { await(s.merge(r, v)); }},
        {"fastForwardMerge", "Branch name", [](S& s, R r, V v) { await(s.fastForwardMerge(r, v)); }},
        {"rebase", "Rebase target", [](S& s, R r, V v) { await(s.rebase(r, v)); }},
        {"rebaseTodoList", "Rebase target", [](S& s, R r, V v) { await(s.rebaseTodoList(r, v)); }},
        {"interactiveRebase", "Rebase target",
         [](S& s, R r, V v) { await(s.interactiveRebase(r, planOnto(v))); }},
        {"pushBranch branch", "Branch name", [](S& s, R r, V v) { await(s.pushBranch(r, v, "origin")); }},
        {"pushBranch remote", "Remote name", [](S& s, R r, V v) { await(s.pushBranch(r, "main", v)); }},
        {"tagDetail", "tag name", [](S& s, R r, V v) { await(s.tagDetail(r, v)); }},
        {"addRemote name", "Remote name", [](S& s, R r, V v) { await(s.addRemote(r, v, "/srv/r.git")); }},
        {"removeRemote", "Remote name", [](S& s, R r, V v) { await(s.removeRemote(r, v)); }},
        {"fetch", "Remote name", [](S& s, R r, V v) { await(s.fetch(r, v, true)); }},
        {"pull", "Remote name", [](S& s, R r, V v) { await(s.pull(r, v, PullStrategy::useConfig)); }},
        {"push", "Remote name", [](S& s, R r, V v) { await(s.push(r, v)); }},
        {"forcePush", "Remote name", [](S& s, R r, V v) { await(s.forcePush(r, v)); }},
        {"cherryPick", "commit", [](S& s, R r, V v) { await(s.cherryPick(r, v)); }},
        {"revert", "commit", [](S& s, R r, V v) { await(s.revert(r, v)); }},
        {"reset", "commit", [](S& s, R r, V v) { await(s.reset(r, v, ResetMode::hard)); }},
        {"createTag", "tag name", [](S& s, R r, V v) { await(s.createTag(r, v, {}, {})); }},
        {"createTag hash", "commit", [](S& s, R r, V v) { await(s.createTag(r, "new", v, "message")); }},
        {"pushTag name", "tag name", [](S& s, R r, V v) { await(s.pushTag(r, v, "origin")); }},
        {"pushTag remote", "remote name", [](S& s, R r, V v) { await(s.pushTag(r, "v1", v)); }},
        {"deleteTag", "tag name", [](S& s, R r, V v) { await(s.deleteTag(r, v)); }},
        {"checkoutTag", "tag name", [](S& s, R r, V v) { await(s.checkoutTag(r, v)); }},
        {"stashFile", "", [](S& s, R r, V v) { await(s.stashFile(r, v)); }},
        {"resolveConflictUsingOurs", "", [](S& s, R r, V v) { await(s.resolveConflictUsingOurs(r, v)); }},
        {"resolveConflictUsingTheirs", "", [](S& s, R r, V v) { await(s.resolveConflictUsingTheirs(r, v)); }},
        {"readBlob", "blob hash", [](S& s, R r, V v) { await(s.readBlob(r, v)); }},
        {"fileHistory", "", [](S& s, R r, V v) { await(s.fileHistory(r, v, 10)); }},
        {"mergedBranches", "Merge target", [](S& s, R r, V v) { await(s.mergedBranches(r, v)); }},
        {"cloneRepository url", "URL", [&](S& s, R, V v) { await(s.cloneRepository(v, place + "/clone")); }},
        // The new repositories land in the scratch directory, under the hostile names.
        {"cloneRepository path", "",
         [&](S& s, R r, V v) { await(s.cloneRepository(r.path, place + "/" + v + "c")); }},
        {"initRepository path", "", [&](S& s, R, V v) { await(s.initRepository(place + "/" + v, {})); }},
        {"initRepository branch", "Branch name",
         [&](S& s, R, V v) { await(s.initRepository(place + "/init", v)); }},
        {"addRemote url", "URL", [](S& s, R r, V v) { await(s.addRemote(r, "kept", v)); }, true},
        {"writeResolvedFile", "", [](S& s, R r, V v) { await(s.writeResolvedFile(r, v, "x\n")); }, true},
    };
    const RepoEntry repo = test::RealGitService::repoAt(work.path());
    for (const Operation& operation : operations) {
        const std::string before = state();
        for (const std::string& value : hostileValues()) {
            SCOPED_TRACE(std::string(operation.name) + " with " + value);
            const bool optionLike = value.starts_with('-');
            const std::string thrown = test::thrownText([&] { operation.call(real.service, repo, value); });
            if (optionLike && !operation.role.empty())
                EXPECT_EQ(thrown, "Invalid input: " + operation.role + " must not begin with '-': " + value);
            EXPECT_FALSE(std::filesystem::exists(marker()));
            if (operation.keepsValue)
                work.gitAllowingFailure({"remote", "remove", "kept"});
        }
        if (!operation.keepsValue)
            EXPECT_EQ(state(), before) << operation.name;
    }
}
