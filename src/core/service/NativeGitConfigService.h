// git's configuration through the executor: each call runs one `git config` on the background
// pool, outside every repository's queue.
#pragma once

#include "core/service/GitConfigProtocol.h"

#include <memory>

namespace orvel {

class GitExecutorProtocol;

class NativeGitConfigService final : public GitConfigProtocol {
  public:
    explicit NativeGitConfigService(std::shared_ptr<GitExecutorProtocol> executor);

    QCoro::Task<std::optional<std::string>> get(std::string key, GitConfigScope scope,
                                                std::optional<std::string> repoPath = {}) override;
    QCoro::Task<void> set(std::string key, std::string value, GitConfigScope scope,
                          std::optional<std::string> repoPath = {}) override;
    QCoro::Task<void> unset(std::string key, GitConfigScope scope,
                            std::optional<std::string> repoPath = {}) override;

  private:
    std::shared_ptr<GitExecutorProtocol> executor_;
};

} // namespace orvel
