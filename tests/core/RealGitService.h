// The git service over the real git program, for tests that drive temporary repositories.
#pragma once

#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"

#include <memory>
#include <optional>

namespace orvel::test {

struct RealGitService {
    InMemoryUserDefaults defaults;
    std::shared_ptr<SubprocessExecutor> executor =
        std::make_shared<SubprocessExecutor>(std::nullopt, defaults);
    NativeGitService service{executor, std::make_shared<GitOpRunner>(2)};

    static RepoEntry repoAt(const std::string& path) {
        RepoEntry repo;
        repo.path = path;
        return repo;
    }
};

} // namespace orvel::test
