// The git service over the real git program, and a fixture of one temporary repository, for tests
// that drive temporary repositories.
#pragma once

#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "support/DrainQueue.h"
#include "support/GitFixture.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace orvel::test {

struct RealGitService {
    InMemoryUserDefaults defaults;
    std::shared_ptr<SubprocessExecutor> executor =
        std::make_shared<SubprocessExecutor>(std::nullopt, defaults);
    std::shared_ptr<GitOpRunner> runner = std::make_shared<GitOpRunner>(2);
    NativeGitService service{executor, runner};

    static RepoEntry repoAt(const std::string& path) {
        RepoEntry repo;
        repo.path = path;
        return repo;
    }
};

// A test over one temporary repository, with the service over the real git.
class RepositoryTest : public ::testing::Test {
  protected:
    // Loads a test leaves running finish, so that no coroutine frame outlives the test.
    ~RepositoryTest() override { drainQueue(*real.runner); }

    RepoEntry entry() const { return RealGitService::repoAt(repo.path()); }

    TempRepo repo;
    RealGitService real;
};

} // namespace orvel::test
