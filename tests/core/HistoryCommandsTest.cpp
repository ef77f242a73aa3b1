// The remote names that tell remote branches from local ones in the graph: how they are read, and
// how the service keeps them between loads until they are reset.
#include "RealGitService.h"

#include "core/commands/HistoryCommands.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/GitServiceError.h"
#include "core/service/NativeGitService.h"
#include "support/Await.h"
#include "support/RecordingExecutor.h"

#include <gtest/gtest.h>

using namespace orvel;
using Arguments = GitExecutorProtocol::Arguments;

namespace {

const std::string graphFormatText = "--format=%H%x1f%h%x1f%P%x1f%aN%x1f%aE%x1f%aI%x1f%s%x1f%b%x1f%D%x1e";

struct RecordingService {
    std::shared_ptr<test::RecordingExecutor> executor = std::make_shared<test::RecordingExecutor>();
    NativeGitService service{executor, std::make_shared<GitOpRunner>(2)};
    RepoEntry repo = test::RealGitService::repoAt("/repo");
};

} // namespace

TEST(HistoryCommandArguments, RemoteNamesAreTrimmedLinesWithoutEmptyOnes) {
    test::RecordingExecutor git;
    git.reply("origin\n\n  upstream\t\nfork\n");
    EXPECT_EQ(HistoryCommands::remoteNames(git, "/repo"), (RemoteNameSet{"fork", "origin", "upstream"}));
}

TEST(HistoryServiceRemoteNames, ReadOnceUntilReset) {
    RecordingService git;
    const std::string record = std::string(40, 'a') + "\x1f" + "aaaaaaa\x1f\x1f" + "A\x1f" + "a@x\x1f" +
                               "2026-01-01T00:00:00Z\x1fs\x1f\x1f" + "origin/main\x1e\n";
    git.executor->reply("origin\n");
    git.executor->reply(record);
    git.executor->reply(record);
    auto first = test::await(git.service.commitGraph(git.repo, 10));
    auto second = test::await(git.service.commitGraph(git.repo, 10));
    ASSERT_EQ(second.size(), 1u);
    EXPECT_EQ(second[0].refs[0].type, GraphRefType::remoteBranch);
    git.service.resetCachedRemoteNames();
    git.executor->reply("");
    git.executor->reply(record);
    auto third = test::await(git.service.commitGraph(git.repo, 10));
    EXPECT_EQ(third[0].refs[0].type, GraphRefType::localBranch);

    const Arguments log{"log", "--all", "--topo-order", "-n", "10", graphFormatText};
    EXPECT_EQ(git.executor->argumentLists(), (std::vector<Arguments>{{"remote"}, log, log, {"remote"}, log}));
}

TEST(HistoryServiceRemoteNames, FailedRemoteLookUpFailsTheLoadAndCachesNothing) {
    RecordingService git;
    git.executor->fail(
        std::make_exception_ptr(GitServiceError::commandFailed("remote", "fatal: not a git repository")));
    EXPECT_THROW(test::await(git.service.commitGraph(git.repo, 10)), GitServiceError);
    test::await(git.service.commitGraph(git.repo, 10));
    EXPECT_EQ(git.executor->argumentLists().size(), 3u); // remote (failed), remote, log
    EXPECT_EQ(git.executor->argumentLists()[1], Arguments{"remote"});
}
