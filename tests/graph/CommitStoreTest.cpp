// The compact commit store gives back what it was given, for hashes of both of git's lengths,
// octopus merges, roots, refs and authors shared between commits, and finds every hash after its
// index has grown; a hash seen twice keeps its first entry.
#include "graph/CommitStore.h"

#include <gtest/gtest.h>

using namespace orvel;

namespace {

GraphCommit made(std::string hash, std::vector<std::string> parents, std::string subject, std::string author,
                 std::vector<GraphRef> refs = {}, bool isHead = false) {
    GraphCommit commit;
    commit.hash = std::move(hash);
    commit.parentHashes = std::move(parents);
    commit.subject = std::move(subject);
    commit.date = Instant(std::chrono::seconds(1'700'000'000 + static_cast<long>(commit.hash.size())));
    commit.authors.push_back({QUuid(), author, author + "@example.invalid", std::nullopt, commit.date});
    commit.refs = std::move(refs);
    commit.isHead = isHead;
    return commit;
}

} // namespace

TEST(CommitStore, GivesBackEachCommitWholeAndFindsItByHash) {
    const std::string sha1(40, 'a');
    const std::string sha256(64, 'b');
    const std::vector<GraphCommit> commits{
        made(sha1, {sha256, std::string(40, 'c'), std::string(40, 'd')}, "Octopus \x1f\xff bytes", "Ada",
             {{"main", GraphRefType::localBranch, true}, {"v1", GraphRefType::tag, false}}, true),
        made(sha256, {}, "", "Grace"),
        made(std::string(40, 'c'), {sha1}, std::string(70'000, 's'), "Ada"),
    };
    CommitStore store;
    for (const auto& commit : commits)
        store.append(commit);
    ASSERT_EQ(store.size(), commits.size());
    for (std::size_t index = 0; index < commits.size(); ++index) {
        SCOPED_TRACE(index);
        EXPECT_EQ(store.commit(index), commits[index]);
        EXPECT_EQ(store.find(commits[index].hash), index);
        EXPECT_EQ(store.firstParent(index),
                  commits[index].parentHashes.empty() ? "" : commits[index].parentHashes.front());
    }
    EXPECT_EQ(store.head(), 0u);
    EXPECT_EQ(&store.author(0), &store.author(2)); // one author kept once
    EXPECT_EQ(store.find(std::string(40, 'e')), std::nullopt);
    EXPECT_EQ(store.find(sha1.substr(0, 7)), std::nullopt);
}

TEST(CommitStore, FindsEveryHashAfterGrowingAndKeepsTheFirstOfTwins) {
    CommitStore store;
    for (int i = 0; i < 5000; ++i)
        store.append(made("hash" + std::to_string(i), {}, "subject " + std::to_string(i), "Ada"));
    store.append(made("hash7", {}, "again", "Ada"));
    for (int i = 0; i < 5000; ++i)
        ASSERT_EQ(store.find("hash" + std::to_string(i)), static_cast<std::size_t>(i));
    EXPECT_EQ(store.subject(5000), "again");
    EXPECT_EQ(store.head(), std::nullopt);
    EXPECT_TRUE(CommitStore().find("anything") == std::nullopt);
}
