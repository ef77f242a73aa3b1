// The commit graph and HEAD's history of real repositories, read through the service: root
// commits, several roots, merges of every shape, and refs of every kind.
#include "RealGitService.h"

#include "core/commands/HistoryCommands.h"
#include "support/Await.h"
#include "support/GitFixture.h"
#include "support/ScopedEnvironment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

using namespace orvel;
using orvel::test::TempRepo;

namespace {

const GraphCommit& commitOf(const std::vector<GraphCommit>& commits, const std::string& hash) {
    const auto found =
        std::find_if(commits.begin(), commits.end(), [&](const GraphCommit& c) { return c.hash == hash; });
    if (found == commits.end())
        throw std::runtime_error("commit not in graph: " + hash);
    return *found;
}

// A commit object with `parents` exactly as given, which `git commit` would never write.
std::string writeCommitObject(const TempRepo& repo, const std::vector<std::string>& parents,
                              const std::string& message) {
    std::string object = "tree " + repo.rev("HEAD^{tree}") + "\n";
    for (const auto& parent : parents)
        object += "parent " + parent + "\n";
    object += "author Orvel Test <test@orvel.invalid> 1767268800 +0000\n"
              "committer Orvel Test <test@orvel.invalid> 1767268800 +0000\n\n" +
              message + "\n";
    repo.write(".git/orvel-object", object);
    std::string hash = repo.git({"hash-object", "-t", "commit", "-w", ".git/orvel-object"});
    hash.pop_back();
    return hash;
}

class CommitGraphOfRepository : public test::RepositoryTest {
  protected:
    std::vector<GraphCommit> graph(long limit = 100) {
        return test::await(real.service.commitGraph(entry(), limit));
    }
    // What the detail pane reads of one commit.
    CommitEntry details(const std::string& hash) {
        return test::await(real.service.commitDetails(entry(), hash));
    }
};

} // namespace

TEST_F(CommitGraphOfRepository, RootsMergesAndOctopusKeepTheirParentsInOrder) {
    const std::string root = repo.commitAll("root");
    for (const char* branch : {"b1", "b2", "b3"}) {
        repo.git({"checkout", "-q", "-b", branch, "main"});
        repo.write(std::string(branch) + ".txt", branch);
        repo.commitAll(branch);
    }
    repo.git({"checkout", "-q", "main"});
    const std::string side = repo.commitAll("side");
    repo.git({"merge", "-q", "--no-ff", "-m", "octopus", "b1", "b2", "b3"});
    const std::string octopus = repo.head();
    repo.git({"checkout", "-q", "--orphan", "other"});
    const std::string secondRoot = repo.commitAll("second root");
    const std::string twice = writeCommitObject(repo, {secondRoot, secondRoot}, "same parent twice");
    repo.git({"update-ref", "refs/heads/twice", twice});

    const auto commits = graph();
    ASSERT_EQ(commits.size(), 8u);
    EXPECT_TRUE(commitOf(commits, root).parentHashes.empty());
    EXPECT_TRUE(commitOf(commits, secondRoot).parentHashes.empty());
    EXPECT_EQ(commitOf(commits, octopus).parentHashes,
              (std::vector<std::string>{side, repo.rev("b1"), repo.rev("b2"), repo.rev("b3")}));
    EXPECT_EQ(commitOf(commits, octopus).subject, "octopus");
    EXPECT_EQ(commitOf(commits, twice).parentHashes, (std::vector<std::string>{secondRoot, secondRoot}));
    EXPECT_EQ(details(twice).abbreviatedHash + "\n", repo.git({"rev-parse", "--short", twice}));
    // Children come before their parents.
    auto position = [&](const std::string& hash) {
        return std::find_if(commits.begin(), commits.end(),
                            [&](const GraphCommit& c) { return c.hash == hash; }) -
               commits.begin();
    };
    for (const auto& commit : commits) {
        for (const auto& parent : commit.parentHashes)
            EXPECT_LT(position(commit.hash), position(parent));
    }
    EXPECT_EQ(graph(3).size(), 3u);
}

TEST_F(CommitGraphOfRepository, RefsOfEveryKindAndABodyThatLooksLikeADecoration) {
    test::TempRepo remote(test::TempRepo::Kind::bare);
    repo.git({"commit", "-q", "--allow-empty", "-m", "first\n\nHEAD -> x, tag: fake\nmore"});
    const std::string first = repo.head();
    repo.git({"remote", "add", "origin", remote.path()});
    repo.git({"push", "-q", "origin", "main"});
    repo.git({"fetch", "-q", "origin"});
    repo.git({"remote", "set-head", "origin", "main"});
    repo.git({"tag", "v1"});
    repo.git({"tag", "-a", "v2", "-m", "annotated"});
    repo.git({"branch", "feature/x"});
    repo.git({"branch", "upstream/y"});
    const std::string second = repo.commitAll("second");

    const auto commits = graph();
    ASSERT_EQ(commits.size(), 2u);
    const GraphCommit& head = commitOf(commits, second);
    EXPECT_TRUE(head.isHead);
    EXPECT_EQ(head.refs, (std::vector<GraphRef>{{"main", GraphRefType::localBranch, true}}));
    const GraphCommit& tagged = commitOf(commits, first);
    EXPECT_FALSE(tagged.isHead);
    EXPECT_EQ(tagged.subject, "first");
    EXPECT_EQ(details(first).body, "HEAD -> x, tag: fake\nmore\n");
    const std::vector<GraphRef> expected{
        {"v1", GraphRefType::tag, false},
        {"v2", GraphRefType::tag, false},
        {"origin/main", GraphRefType::remoteBranch, false},
        {"origin/HEAD", GraphRefType::remoteBranch, false},
        {"upstream/y", GraphRefType::localBranch, false},
        {"feature/x", GraphRefType::localBranch, false},
    };
    auto sorted = [](std::vector<GraphRef> refs) {
        std::sort(refs.begin(), refs.end(),
                  [](const GraphRef& a, const GraphRef& b) { return a.id() < b.id(); });
        return refs;
    };
    EXPECT_EQ(sorted(tagged.refs), sorted(expected));
}

TEST_F(CommitGraphOfRepository, LocalBranchNamedLikeARemoteBranchDependsOnTheRemoteList) {
    repo.commitAll("only");
    repo.git({"branch", "origin/x"});
    auto refTypeOfOriginX = [&] {
        const auto commits = graph();
        for (const auto& ref : commits.front().refs) {
            if (ref.name == "origin/x")
                return ref.type;
        }
        throw std::runtime_error("origin/x not decorated");
    };
    EXPECT_EQ(refTypeOfOriginX(), GraphRefType::localBranch);

    // git prints short names, so with a remote "origin" the local branch reads as a remote one.
    // The remote list is cached until a remote is added or removed through the service; a graph
    // load queued right behind the change already reads the new list.
    test::TempRepo remote(test::TempRepo::Kind::bare);
    repo.git({"remote", "add", "elsewhere", remote.path()});
    EXPECT_EQ(refTypeOfOriginX(), GraphRefType::localBranch);
    auto adding = real.service.addRemote(entry(), "origin", remote.path());
    auto loading = real.service.commitGraph(entry(), 100);
    test::await(std::move(adding));
    const auto refs = test::await(std::move(loading)).front().refs;
    EXPECT_NE(std::ranges::find(refs, GraphRef{"origin/x", GraphRefType::remoteBranch, false}), refs.end());
}

TEST_F(CommitGraphOfRepository, DetachedHeadMarksItsCommitWithoutAPill) {
    const std::string first = repo.commitAll("first");
    repo.commitAll("second");
    repo.git({"checkout", "-q", "--detach", first});
    const auto commits = graph();
    const GraphCommit& detached = commitOf(commits, first);
    EXPECT_TRUE(detached.isHead);
    EXPECT_TRUE(detached.refs.empty());
    EXPECT_FALSE(commits.front().isHead);
    EXPECT_EQ(commits.front().refs, (std::vector<GraphRef>{{"main", GraphRefType::localBranch, false}}));
}

TEST_F(CommitGraphOfRepository, HistoryFollowsHeadOnlyWithRawDecorations) {
    {
        const test::ScopedEnvironment authorDate("GIT_AUTHOR_DATE", "2026-03-04T05:06:07+02:00");
        repo.git({"commit", "-q", "--allow-empty", "--author", "Zoë Ünïcode <zoe@orvel.invalid>", "-m",
                  "subject line\n\nbody line one\nbody line two"});
    }
    const std::string first = repo.head();
    repo.git({"tag", "v1"});
    repo.git({"checkout", "-q", "-b", "elsewhere"});
    repo.commitAll("not on main");
    repo.git({"checkout", "-q", "main"});
    const std::string second = repo.commitAll("second");

    const auto history = test::await(real.service.commitHistory(entry(), 10));
    ASSERT_EQ(history.size(), 2u);
    EXPECT_EQ(history[0].hash, second);
    EXPECT_EQ(history[0].refs, std::vector<std::string>{"HEAD -> main"});
    EXPECT_EQ(history[0].parentHashes, std::vector<std::string>{first});
    EXPECT_EQ(history[1].hash, first);
    EXPECT_EQ(history[1].authorName, "Zoë Ünïcode");
    EXPECT_EQ(history[1].authorEmail, "zoe@orvel.invalid");
    EXPECT_EQ(history[1].subject, "subject line");
    EXPECT_EQ(history[1].body, "body line one\nbody line two\n");
    EXPECT_EQ(history[1].refs, std::vector<std::string>{"tag: v1"});
    EXPECT_TRUE(history[1].parentHashes.empty());
    using namespace std::chrono;
    EXPECT_EQ(history[1].authorDate, sys_days{year{2026} / 3 / 4} + hours{3} + minutes{6} + seconds{7});
    EXPECT_EQ(test::await(real.service.commitHistory(entry(), 1)).size(), 1u);
}
