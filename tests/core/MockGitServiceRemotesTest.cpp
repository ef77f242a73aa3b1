// The in-memory remotes: adding and removing change the canned list, and the network operations
// refuse the names and states that git would refuse.
#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"
#include "support/Await.h"

#include <gtest/gtest.h>

using namespace orvel;

TEST(MockGitServiceRemotes, AddAndRemoveKeepTheListSorted) {
    MockGitService service;
    const RepoEntry repo = service.repository;
    test::await(service.addRemote(repo, "fork", "https://example.invalid/fork.git"));
    auto remotes = test::await(service.listRemotes(repo));
    ASSERT_EQ(remotes.size(), 3u);
    EXPECT_EQ(remotes[0],
              (RemoteEntry{"fork", "https://example.invalid/fork.git", "https://example.invalid/fork.git"}));
    EXPECT_THROW(test::await(service.addRemote(repo, "fork", "/x")), GitServiceError);
    EXPECT_THROW(test::await(service.addRemote(repo, "bad", "-x")), GitServiceError);
    test::await(service.removeRemote(repo, "fork"));
    EXPECT_EQ(test::await(service.listRemotes(repo)), MockGitService::sampleRemotes());
    EXPECT_THROW(test::await(service.removeRemote(repo, "fork")), GitServiceError);
}

TEST(MockGitServiceRemotes, NetworkOperationsCheckNamesAndHead) {
    MockGitService service;
    const RepoEntry repo = service.repository;
    test::await(service.fetch(repo, "origin", true));
    EXPECT_TRUE(std::holds_alternative<merge::AlreadyUpToDate>(
        test::await(service.pull(repo, "upstream", PullStrategy::rebase))));
    EXPECT_THROW(test::await(service.fetch(repo, "nowhere", false)), GitServiceError);
    try {
        test::await(service.push(repo, "nowhere"));
        FAIL() << "expected unknownRemote";
    } catch (const GitServiceError& error) {
        EXPECT_EQ(error.kind(), GitServiceError::Kind::unknownRemote);
    }
    service.repository.currentBranch.reset();
    try {
        test::await(service.push(repo, "origin"));
        FAIL() << "expected detachedHead";
    } catch (const GitServiceError& error) {
        EXPECT_EQ(error.kind(), GitServiceError::Kind::detachedHead);
    }
    test::await(service.forcePush(repo, "origin"));
}
