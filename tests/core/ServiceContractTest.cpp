// One set of behaviours that both services must show: the native service over a real repository,
// and the in-memory service seeded with what that same repository holds. A case prepares the
// repository with git, starts the service, and then observes only through the service, so the
// in-memory service cannot drift from git unnoticed.
#include "RealGitService.h"

#include "core/service/MockGitService.h"
#include "support/Await.h"
#include "support/ServiceError.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace orvel;
using namespace std::string_literals;
using test::TempRepo;
using Lines = std::vector<std::string>;

namespace {

struct NativeSide {
    static std::shared_ptr<GitServiceProtocol> start(test::RealGitService& real, const std::string&) {
        return {std::shared_ptr<void>(), &real.service};
    }
    static void conflictsOnContent(GitServiceProtocol&, const Lines&) {}
};

// Reads everything the in-memory service keeps from the real repository through the native one.
struct MockSide {
    static std::shared_ptr<GitServiceProtocol> start(test::RealGitService& real, const std::string& path) {
        NativeGitService& git = real.service;
        auto mock = std::make_shared<MockGitService>();
        const RepoEntry repo = test::await(git.open(path));
        mock->repository = repo;
        mock->workingTree = test::await(git.status(repo));
        mock->branchList = test::await(git.branches(repo));
        mock->graph = test::await(git.commitGraph(repo, 1000));
        mock->tags = test::await(git.listTags(repo));
        mock->stashes = test::await(git.stashList(repo));
        mock->remotes = test::await(git.listRemotes(repo));
        mock->defaultBranchName = test::await(git.defaultBranch(repo));
        return mock;
    }
    // File contents are beyond the in-memory service: a case names the files that two diverged
    // histories conflict on.
    static void conflictsOnContent(GitServiceProtocol& service, const Lines& paths) {
        std::vector<ConflictEntry> files;
        for (const auto& path : paths) {
            ConflictEntry& file = files.emplace_back();
            file.id = QUuid::createUuid();
            file.path = path;
        }
        auto& mock = dynamic_cast<MockGitService&>(service);
        mock.mergeOutcome = Conflicted{files};
        mock.rebaseOutcome = RebaseStop{"", 0, 0, files};
    }
};

// "path XY" for a tracked file, "path ??" for an untracked one, "path uXY" for a conflict; sorted.
Lines statusLines(const StatusResult& status) {
    Lines lines;
    for (const FileChange& file : status.files) {
        std::string code = "??";
        if (file.status.kind == FileStatusKind::Case::tracked)
            code = {codeOf(file.status.index), codeOf(file.status.worktree)};
        else if (file.status.kind == FileStatusKind::Case::unmerged)
            code = "u" + std::string(codeOf(file.status.conflict));
        std::ranges::replace(code, ' ', '.');
        lines.push_back(file.path + " " + code);
    }
    std::ranges::sort(lines);
    return lines;
}

// Every case starts from a repository whose "main" and "topic" diverge on one file.
template <typename Side>
class ServiceContract : public ::testing::Test {
  protected:
    ServiceContract() { repo.divergeOnOneFile(); }

    // Starts the service under test over the repository as the case has prepared it.
    GitServiceProtocol& start() {
        service_ = Side::start(real_, repo.path());
        entry = test::await(service_->open(repo.path()));
        return *service_;
    }
    void conflictsOnContent(const Lines& paths) { Side::conflictsOnContent(*service_, paths); }

    Lines status() { return statusLines(test::await(service_->status(entry))); }
    Lines subjects() {
        Lines lines;
        for (const CommitEntry& commit : test::await(service_->commitHistory(entry, 10)))
            lines.push_back(commit.subject);
        return lines;
    }
    // Local branch names in git's order, the current one marked with "*".
    Lines branches() {
        Lines lines;
        for (const BranchEntry& branch : test::await(service_->branches(entry)))
            if (!branch.isRemote)
                lines.push_back((branch.isCurrent ? "*" : "") + branch.name);
        return lines;
    }
    RepoEntry reopened() { return test::await(service_->open(repo.path())); }
    // "command" of the commandFailed error that `action` throws.
    template <typename Action>
    std::string failedCommand(Action&& action) {
        const GitServiceError error = test::serviceError(action);
        EXPECT_EQ(error.kind(), GitServiceError::Kind::commandFailed) << error.what();
        return error.command();
    }

    TempRepo repo;
    RepoEntry entry;

  private:
    test::RealGitService real_;
    std::shared_ptr<GitServiceProtocol> service_;
};

using Sides = ::testing::Types<NativeSide, MockSide>;
TYPED_TEST_SUITE(ServiceContract, Sides);

} // namespace

TYPED_TEST(ServiceContract, StagingMovesFilesBetweenIndexAndWorkTree) {
    this->repo.write("file", "staged\n");
    this->repo.git({"add", "file"});
    this->repo.write("other", "changed\n");
    this->repo.write("-new caf\xe9", "new\n");
    GitServiceProtocol& s = this->start();
    const RepoEntry& repo = this->entry;
    EXPECT_EQ(this->status(), (Lines{"-new caf\xe9 ??", "file M.", "other .M"}));

    test::await(s.stage(repo, "-new caf\xe9"));
    test::await(s.stage(repo, "other"));
    test::await(s.unstage(repo, "file"));
    EXPECT_EQ(this->status(), (Lines{"-new caf\xe9 A.", "file .M", "other M."}));
    test::await(s.unstageFiles(repo, {"-new caf\xe9", "other"}));
    EXPECT_EQ(this->status(), (Lines{"-new caf\xe9 ??", "file .M", "other .M"}));
    test::await(s.stageAll(repo));
    EXPECT_EQ(this->status(), (Lines{"-new caf\xe9 A.", "file M.", "other M."}));
    test::await(s.unstageAll(repo));
    test::await(s.stageFiles(repo, {"file"}));
    EXPECT_EQ(this->status(), (Lines{"-new caf\xe9 ??", "file M.", "other .M"}));

    test::await(s.discardChanges(repo, "other", false));
    test::await(s.discardChanges(repo, "file", true));
    EXPECT_EQ(this->status(), (Lines{"-new caf\xe9 ??"}));
    EXPECT_EQ(this->failedCommand([&] { test::await(s.discardChanges(repo, "-new caf\xe9", false)); }),
              "restore");
    EXPECT_EQ(this->status(), (Lines{"-new caf\xe9 ??"}));
}

TYPED_TEST(ServiceContract, CommitAndAmendReadTheNewCommitBack) {
    const std::string parent = this->repo.head();
    this->repo.write("new", "new\n");
    GitServiceProtocol& s = this->start();
    const RepoEntry& repo = this->entry;
    EXPECT_EQ(this->failedCommand([&] { test::await(s.commit(repo, "nothing staged")); }), "commit");

    test::await(s.stage(repo, "new"));
    const CommitEntry made = test::await(s.commit(repo, "Add new\n\nWith a body."));
    EXPECT_EQ(made.subject, "Add new");
    EXPECT_EQ(made.body, "With a body.\n");
    EXPECT_EQ(made.parentHashes, Lines{parent});
    EXPECT_EQ(made.refs, Lines{"HEAD -> main"});
    EXPECT_EQ(this->status(), Lines{});
    EXPECT_EQ(this->reopened().headHash, made.hash);
    EXPECT_EQ(this->subjects(), (Lines{"Add new", "main changes file", "base"}));

    const CommitEntry amended = test::await(s.amendCommit(repo, "Reworded"));
    EXPECT_NE(amended.hash, made.hash);
    EXPECT_EQ(amended.parentHashes, Lines{parent});
    EXPECT_EQ(this->subjects(), (Lines{"Reworded", "main changes file", "base"}));
    EXPECT_EQ(test::await(s.commitHistory(repo, 1)).size(), 1u);
}

TYPED_TEST(ServiceContract, BranchesAreCreatedCheckedOutRenamedAndDeleted) {
    this->repo.git({"branch", "merged-one", "HEAD~1"});
    const std::string topic = this->repo.rev("topic");
    GitServiceProtocol& s = this->start();
    const RepoEntry& repo = this->entry;
    EXPECT_EQ(test::await(s.currentBranch(repo)), "main");
    EXPECT_EQ(test::await(s.defaultBranch(repo)), "main");

    test::await(s.createBranch(repo, "feature/x", std::nullopt));
    test::await(s.createBranch(repo, "old", "topic"s));
    EXPECT_EQ(this->failedCommand([&] { test::await(s.createBranch(repo, "topic", std::nullopt)); }),
              "branch");
    test::await(s.checkoutBranch(repo, "feature/x"));
    test::await(s.renameBranch(repo, "feature/x", "feature/y"));
    EXPECT_EQ(this->branches(), (Lines{"*feature/y", "main", "merged-one", "old", "topic"}));
    EXPECT_EQ(test::await(s.currentBranch(repo)), "feature/y");
    EXPECT_EQ(this->failedCommand([&] { test::await(s.checkoutBranch(repo, "nowhere")); }), "checkout");
    EXPECT_EQ(test::await(s.mergedBranches(repo, "main")), (Lines{"feature/y", "merged-one"}));
    EXPECT_EQ(test::await(s.mergedBranches(repo, "topic")), (Lines{"merged-one", "old"}));

    const GitServiceError unmerged =
        test::serviceError([&] { test::await(s.deleteBranch(repo, "old", false)); });
    EXPECT_NE(unmerged.stderrText().find("not fully merged"), std::string::npos) << unmerged.stderrText();
    EXPECT_EQ(this->failedCommand([&] { test::await(s.deleteBranch(repo, "feature/y", true)); }), "branch");
    test::await(s.deleteBranch(repo, "old", true));
    test::await(s.deleteBranch(repo, "merged-one", false));
    test::await(s.checkoutNewBranch(repo, "fix", "topic"));
    EXPECT_EQ(this->branches(), (Lines{"feature/y", "*fix", "main", "topic"}));
    EXPECT_EQ(this->reopened().headHash, topic);
    EXPECT_EQ(this->subjects(), (Lines{"topic changes file", "base"}));
}

TYPED_TEST(ServiceContract, MergeOutcomesFollowTheHistoryAndAConflictCanBeAborted) {
    this->repo.git({"branch", "behind", "HEAD~1"});
    this->repo.git({"checkout", "-q", "-b", "ahead"});
    const std::string ahead = this->repo.commitAll("ahead");
    this->repo.git({"checkout", "-q", "main"});
    GitServiceProtocol& s = this->start();
    const RepoEntry& repo = this->entry;

    EXPECT_TRUE(std::holds_alternative<merge::AlreadyUpToDate>(test::await(s.merge(repo, "behind"))));
    EXPECT_EQ(this->failedCommand([&] { test::await(s.fastForwardMerge(repo, "topic")); }), "merge");
    const MergeResult forward = test::await(s.merge(repo, "ahead"));
    ASSERT_TRUE(std::holds_alternative<merge::FastForward>(forward));
    EXPECT_EQ(std::get<merge::FastForward>(forward).newHead, ahead);
    EXPECT_EQ(this->reopened().headHash, ahead);
    EXPECT_EQ(this->subjects(), (Lines{"ahead", "main changes file", "base"}));

    this->conflictsOnContent({"file"});
    const MergeResult conflicted = test::await(s.merge(repo, "topic"));
    ASSERT_TRUE(std::holds_alternative<Conflicted>(conflicted));
    EXPECT_EQ(std::get<Conflicted>(conflicted).files.at(0).path, "file");
    EXPECT_EQ(this->reopened().state, RepositoryState::merging);
    EXPECT_EQ(this->status(), Lines{"file uUU"});
    test::await(s.abortMerge(repo));
    EXPECT_EQ(this->reopened().state, RepositoryState::clean);
    EXPECT_EQ(this->status(), Lines{});
    EXPECT_EQ(this->reopened().headHash, ahead);
    EXPECT_EQ(this->failedCommand([&] { test::await(s.abortMerge(repo)); }), "merge");
}

TYPED_TEST(ServiceContract, ConflictSidesTakeOursOrTheirs) {
    GitServiceProtocol& s = this->start();
    const RepoEntry& repo = this->entry;
    this->conflictsOnContent({"file"});

    ASSERT_TRUE(std::holds_alternative<Conflicted>(test::await(s.merge(repo, "topic"))));
    test::await(s.resolveConflictUsingOurs(repo, "file"));
    EXPECT_EQ(this->status(), Lines{}); // our side is HEAD's content
    test::await(s.abortMerge(repo));

    ASSERT_TRUE(std::holds_alternative<Conflicted>(test::await(s.merge(repo, "topic"))));
    test::await(s.resolveConflictUsingTheirs(repo, "file"));
    EXPECT_EQ(this->status(), Lines{"file M."});
    EXPECT_EQ(this->reopened().state, RepositoryState::merging);
}

TYPED_TEST(ServiceContract, RebaseOutcomesAndAbort) {
    this->repo.git({"checkout", "-q", "topic"});
    this->repo.git({"branch", "below", "HEAD~1"});
    const std::string topic = this->repo.head();
    GitServiceProtocol& s = this->start();
    const RepoEntry& repo = this->entry;

    EXPECT_TRUE(std::holds_alternative<rebase::AlreadyUpToDate>(test::await(s.rebase(repo, "below"))));
    this->conflictsOnContent({"file"});
    const RebaseResult stopped = test::await(s.rebase(repo, "main"));
    ASSERT_TRUE(std::holds_alternative<RebaseStop>(stopped));
    EXPECT_EQ(std::get<RebaseStop>(stopped).files.at(0).path, "file");
    EXPECT_EQ(this->reopened().state, RepositoryState::rebasing);
    EXPECT_EQ(this->status(), Lines{"file uUU"});

    test::await(s.abortRebase(repo));
    EXPECT_EQ(this->reopened().state, RepositoryState::clean);
    EXPECT_EQ(this->reopened().headHash, topic);
    EXPECT_EQ(this->status(), Lines{});
    EXPECT_EQ(this->failedCommand([&] { test::await(s.abortRebase(repo)); }), "rebase");
    EXPECT_STREQ(test::serviceError([&] { test::await(s.rebaseContinue(repo)); }).what(),
                 "git rebase failed: Rebase failed unexpectedly");
}

TYPED_TEST(ServiceContract, TagsAreListedByNameCheckedOutAndDeleted) {
    const std::string head = this->repo.head();
    const std::string base = this->repo.rev("HEAD~1");
    GitServiceProtocol& s = this->start();
    const RepoEntry& repo = this->entry;

    test::await(s.createTag(repo, "v2", std::nullopt, "Release"s));
    test::await(s.createTag(repo, "light", base, std::nullopt));
    EXPECT_EQ(this->failedCommand([&] { test::await(s.createTag(repo, "v2", std::nullopt, std::nullopt)); }),
              "tag");
    const auto tags = test::await(s.listTags(repo));
    ASSERT_EQ(tags.size(), 2u);
    EXPECT_EQ(tags[0], (TagEntry{"light", base, std::nullopt}));
    EXPECT_EQ(tags[1].name, "v2");
    EXPECT_EQ(tags[1].targetHash, head);
    EXPECT_NE(tags[1].hash, head);
    const std::string detail = test::await(s.tagDetail(repo, "v2"));
    EXPECT_NE(detail.find("tag v2\n"), std::string::npos) << detail;
    EXPECT_NE(detail.find("commit " + head), std::string::npos) << detail;

    test::await(s.checkoutTag(repo, "light"));
    const RepoEntry detached = this->reopened();
    EXPECT_EQ(detached.headHash, base);
    EXPECT_EQ(detached.currentBranch, std::nullopt);
    EXPECT_EQ(test::serviceError([&] { test::await(s.push(repo, "origin")); }).kind(),
              GitServiceError::Kind::detachedHead);

    test::await(s.deleteTag(repo, "light"));
    EXPECT_EQ(test::await(s.listTags(repo)).size(), 1u);
    EXPECT_EQ(this->failedCommand([&] { test::await(s.deleteTag(repo, "light")); }), "tag");
    EXPECT_EQ(this->failedCommand([&] { test::await(s.tagDetail(repo, "light")); }), "show");
}

TYPED_TEST(ServiceContract, StashesSaveApplyDropAndPop) {
    this->repo.write("file", "changed\n");
    this->repo.write("new", "new\n");
    GitServiceProtocol& s = this->start();
    const RepoEntry& repo = this->entry;
    const auto messages = [&] {
        Lines lines;
        for (const StashEntry& stash : test::await(s.stashList(repo)))
            lines.push_back(std::to_string(stash.index) + (stash.includesUntracked ? " +" : " ") +
                            stash.message);
        return lines;
    };

    test::await(s.stashSave(repo, std::nullopt, false));
    EXPECT_EQ(this->status(), Lines{"new ??"});
    test::await(s.stashSave(repo, "keep"s, true));
    EXPECT_EQ(this->status(), Lines{});
    EXPECT_EQ(messages(), (Lines{"0 +On main: keep",
                                 "1 WIP on main: " + this->repo.head().substr(0, 7) + " main changes file"}));

    EXPECT_TRUE(std::holds_alternative<operation::Success>(test::await(s.stashApply(repo, 1))));
    EXPECT_EQ(this->status(), Lines{"file .M"});
    test::await(s.discardChanges(repo, "file", false));
    test::await(s.stashDrop(repo, 1));
    EXPECT_EQ(this->failedCommand([&] { test::await(s.stashDrop(repo, 7)); }), "stash");
    EXPECT_TRUE(std::holds_alternative<operation::Success>(test::await(s.stashPop(repo))));
    EXPECT_EQ(this->status(), Lines{"new ??"});
    EXPECT_EQ(messages(), Lines{});
    EXPECT_EQ(this->failedCommand([&] { test::await(s.stashPop(repo)); }), "stash");

    test::await(s.stashFile(repo, "new"));
    EXPECT_EQ(this->status(), Lines{});
    ASSERT_EQ(messages().size(), 1u);
    EXPECT_TRUE(messages()[0].starts_with("0 +WIP on main:")) << messages()[0];
}

TYPED_TEST(ServiceContract, RemotesAreListedAddedRemovedAndChecked) {
    TempRepo origin(TempRepo::Kind::bare);
    this->repo.git({"remote", "add", "origin", origin.path()});
    GitServiceProtocol& s = this->start();
    const RepoEntry& repo = this->entry;
    const auto names = [&] {
        Lines lines;
        for (const RemoteEntry& remote : test::await(s.listRemotes(repo)))
            lines.push_back(remote.name + " " + remote.fetchURL + " " + remote.pushURL);
        return lines;
    };

    test::await(s.addRemote(repo, "mirror", "/srv/mirror.git"));
    EXPECT_EQ(names(), (Lines{"mirror /srv/mirror.git /srv/mirror.git",
                              "origin " + origin.path() + " " + origin.path()}));
    EXPECT_EQ(this->failedCommand([&] { test::await(s.addRemote(repo, "mirror", "/elsewhere")); }), "remote");
    test::await(s.removeRemote(repo, "mirror"));
    EXPECT_EQ(this->failedCommand([&] { test::await(s.removeRemote(repo, "mirror")); }), "remote");
    EXPECT_EQ(names().size(), 1u);

    test::await(s.pushBranch(repo, "topic", "origin"));
    test::await(s.createTag(repo, "v1", std::nullopt, std::nullopt));
    test::await(s.pushTag(repo, "v1", "origin"));
    EXPECT_EQ(this->failedCommand([&] { test::await(s.pushTag(repo, "missing", "origin")); }), "push");
    test::await(s.push(repo, "origin"));
    test::await(s.fetch(repo, "origin", true));
    EXPECT_TRUE(std::holds_alternative<merge::AlreadyUpToDate>(
        test::await(s.pull(repo, "origin", PullStrategy::fastForwardOnly))));
    EXPECT_EQ(this->failedCommand([&] { test::await(s.fetch(repo, "nowhere", false)); }), "fetch");
    EXPECT_EQ(this->failedCommand([&] { test::await(s.pull(repo, "nowhere", PullStrategy::merge)); }),
              "pull");
    EXPECT_EQ(this->failedCommand([&] { test::await(s.pushBranch(repo, "main", "nowhere")); }), "push");
    const GitServiceError unknown = test::serviceError([&] { test::await(s.push(repo, "nowhere")); });
    EXPECT_EQ(unknown.kind(), GitServiceError::Kind::unknownRemote);
}

TYPED_TEST(ServiceContract, CherryPickRevertAndResetRewriteTheHistory) {
    this->repo.git({"checkout", "-q", "-b", "pick", "HEAD~1"});
    this->repo.write("picked", "picked\n");
    const std::string picked = this->repo.commitAll("add picked");
    this->repo.git({"checkout", "-q", "main"});
    const std::string head = this->repo.head();
    GitServiceProtocol& s = this->start();
    const RepoEntry& repo = this->entry;

    EXPECT_TRUE(std::holds_alternative<operation::Success>(test::await(s.cherryPick(repo, picked))));
    const std::string copy = *this->reopened().headHash;
    EXPECT_TRUE(std::holds_alternative<operation::Success>(test::await(s.revert(repo, copy))));
    EXPECT_EQ(this->subjects(), (Lines{"Revert \"add picked\"", "add picked", "main changes file", "base"}));
    EXPECT_EQ(this->failedCommand([&] { test::await(s.cherryPick(repo, std::string(40, '0'))); }),
              "cherry-pick");

    test::await(s.reset(repo, head, ResetMode::hard));
    EXPECT_EQ(this->reopened().headHash, head);
    EXPECT_EQ(this->subjects(), (Lines{"main changes file", "base"}));
    EXPECT_EQ(this->status(), Lines{});
    EXPECT_EQ(this->failedCommand([&] { test::await(s.reset(repo, std::string(40, '0'), ResetMode::hard)); }),
              "reset");
}
