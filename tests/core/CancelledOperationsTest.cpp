// A caller's stop token that is triggered before the call reaches every queued operation: each one
// fails with OperationCancelled and runs no git command of its own (the signing look-up of a
// commit or a tag may still be asked).
#include "EveryOperation.h"

#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "support/RecordingExecutor.h"

#include <gtest/gtest.h>

using namespace orvel;

TEST(CancelledOperations, FailBeforeAnyCommandRuns) {
    std::stop_source stopped;
    stopped.request_stop();
    RepoEntry repo;
    repo.path = "/nonexistent/repo";
    for (const test::Operation& operation : test::everyOperation("/nonexistent/place")) {
        SCOPED_TRACE(operation.name);
        auto git = std::make_shared<test::RecordingExecutor>();
        NativeGitService service(git, std::make_shared<GitOpRunner>(1));
        EXPECT_THROW(operation.call(service, repo, "value", stopped.get_token()), OperationCancelled);
        for (const auto& arguments : git->argumentLists())
            EXPECT_EQ(arguments.front(), "config");
    }
}
