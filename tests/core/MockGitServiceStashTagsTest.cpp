// The in-memory service's stashes, tags, blame and blobs: canned records survive repeated calls,
// and the operations change them as git would or fail with git's wording.
#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"
#include "support/Await.h"

#include <gtest/gtest.h>

using namespace orvel;
using namespace std::string_literals;

TEST(MockStashesAndTags, StashesAreNumberedNewestFirst) {
    MockGitService mock;
    const RepoEntry repo = test::await(mock.open("/canned"));
    const auto canned = test::await(mock.stashList(repo));
    ASSERT_EQ(canned.size(), 1u);
    EXPECT_EQ(test::await(mock.stashList(repo)), canned);

    test::await(mock.stashSave(repo, "wip"s, false));
    auto stashes = test::await(mock.stashList(repo));
    ASSERT_EQ(stashes.size(), 2u);
    EXPECT_EQ(stashes[0].message, "On main: wip");
    EXPECT_EQ(stashes[0].index, 0);
    EXPECT_EQ(stashes[1].hash, canned[0].hash);
    EXPECT_EQ(stashes[1].index, 1);
    // the untracked file stays: it was not asked for
    const auto tree = test::await(mock.status(repo));
    ASSERT_EQ(tree.files.size(), 1u);
    EXPECT_EQ(tree.files[0].path, "notes.txt");

    EXPECT_THROW(test::await(mock.stashApply(repo, 2)), GitServiceError);
    test::await(mock.stashDrop(repo, 0));
    EXPECT_EQ(test::await(mock.stashList(repo)), canned);
    EXPECT_TRUE(std::holds_alternative<operation::Success>(test::await(mock.stashPop(repo))));
    EXPECT_THROW(test::await(mock.stashPop(repo)), GitServiceError);
}

TEST(MockStashesAndTags, TagsAreCreatedCheckedOutAndDeleted) {
    MockGitService mock;
    const RepoEntry repo = test::await(mock.open("/canned"));
    const auto canned = test::await(mock.listTags(repo));
    ASSERT_FALSE(canned.empty());
    test::await(mock.createTag(repo, "v2", std::nullopt, "notes"s));
    EXPECT_THROW(test::await(mock.createTag(repo, "v2", std::nullopt, std::nullopt)), GitServiceError);
    EXPECT_THROW(test::await(mock.createTag(repo, "-d", std::nullopt, std::nullopt)), GitServiceError);
    auto tags = test::await(mock.listTags(repo));
    ASSERT_EQ(tags.size(), canned.size() + 1);
    EXPECT_EQ(tags.back().targetHash, mock.repository.headHash);

    EXPECT_NE(test::await(mock.tagDetail(repo, "v1.0")).find("tag v1.0"), std::string::npos);
    test::await(mock.checkoutTag(repo, "v1.0"));
    EXPECT_FALSE(mock.repository.currentBranch.has_value());
    EXPECT_EQ(mock.repository.headHash, canned[0].targetHash);

    test::await(mock.deleteTag(repo, "v2"));
    EXPECT_EQ(test::await(mock.listTags(repo)), canned);
    EXPECT_THROW(test::await(mock.deleteTag(repo, "v2")), GitServiceError);
}

TEST(MockStashesAndTags, BlameBlobAndHistory) {
    MockGitService mock;
    const RepoEntry repo = test::await(mock.open("/canned"));
    const auto blame = test::await(mock.blame(repo, "README.md"));
    ASSERT_EQ(blame.size(), 2u);
    EXPECT_EQ(test::await(mock.blame(repo, "README.md")), blame);
    EXPECT_THROW(test::await(mock.blame(repo, "nope")), GitServiceError);
    EXPECT_EQ(test::await(mock.readBlob(repo, " 3b18e512dba79e4c8300dd08aeb37f8e728b8dad ")),
              "hello world\n");
    EXPECT_THROW(test::await(mock.readBlob(repo, " ")), GitServiceError);
    EXPECT_EQ(test::await(mock.fileHistory(repo, "README.md", 2)).size(), 2u);
    EXPECT_TRUE(test::await(mock.fileHistory(repo, "nope", 2)).empty());
    test::await(mock.writeResolvedFile(repo, "README.md", "merged\n"));
    EXPECT_EQ(mock.resolvedFiles.at("README.md"), "merged\n");
}
