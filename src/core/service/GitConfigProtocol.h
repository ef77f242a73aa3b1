// git's own configuration, read and written one key at a time: the settings' Git tab and the
// identity a commit needs. Every operation waits for git off the calling thread.
#pragma once

#include "core/commands/ConfigCommands.h"

#include <QCoro/QCoroTask>

#include <optional>
#include <string>

namespace orvel {

class GitConfigProtocol {
  public:
    virtual ~GitConfigProtocol() = default;

    // `repoPath` is where git runs: the repository for the local scope; without one, the process's
    // current directory.
    virtual QCoro::Task<std::optional<std::string>> get(std::string key, GitConfigScope scope,
                                                        std::optional<std::string> repoPath = {}) = 0;
    virtual QCoro::Task<void> set(std::string key, std::string value, GitConfigScope scope,
                                  std::optional<std::string> repoPath = {}) = 0;
    virtual QCoro::Task<void> unset(std::string key, GitConfigScope scope,
                                    std::optional<std::string> repoPath = {}) = 0;
};

} // namespace orvel
