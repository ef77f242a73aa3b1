// An in-memory git service with canned records, so that views can be shown and view models
// exercised without git. Tests replace the canned records through the public fields.
#pragma once

#include "core/service/GitServiceProtocol.h"

#include <map>
#include <optional>
#include <string>

namespace orvel {

class MockGitService final : public GitServiceProtocol {
public:
    MockGitService();

    QCoro::Task<RepoEntry> open(std::string path) override;
    QCoro::Task<StatusResult> status(RepoEntry repo) override;

    QCoro::Task<std::optional<std::string>> defaultBranch(RepoEntry repo) override;
    QCoro::Task<std::optional<std::string>> currentBranch(RepoEntry repo) override;
    QCoro::Task<RepoEntry> cloneRepository(std::string url, std::string path) override;
    QCoro::Task<RepoEntry> initRepository(std::string path, std::optional<std::string> initialBranch) override;

    // The canned repository: `open` answers it with the requested path.
    RepoEntry repository;
    StatusResult workingTree;
    std::optional<std::string> defaultBranchName;
};

} // namespace orvel
