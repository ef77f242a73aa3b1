// The remote names that tell remote branches from local ones in the graph: a failed look-up is not
// kept (the cache itself is checked against real repositories).
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

TEST(HistoryServiceRemoteNames, FailedRemoteLookUpFailsTheLoadAndCachesNothing) {
    const auto executor = std::make_shared<test::RecordingExecutor>();
    NativeGitService service{executor, std::make_shared<GitOpRunner>(2)};
    const RepoEntry repo = test::RealGitService::repoAt("/repo");
    executor->fail("remote");
    EXPECT_THROW(test::await(service.commitGraph(repo, 10)), GitServiceError);
    test::await(service.commitGraph(repo, 10));
    EXPECT_EQ(executor->argumentLists().size(), 3u); // remote (failed), remote, log
    EXPECT_EQ(executor->argumentLists()[1], Arguments{"remote"});
}
