// The remote names that the commit graph uses to tell remote branches from local ones, read once
// per service rather than once per graph load. The service and its queued blocks share it through
// a shared_ptr, so a block owns what it touches however long it waits in the queue.
#pragma once

#include "core/parsers/LogParser.h"
#include "core/process/GitExecutorProtocol.h"

#include <mutex>
#include <optional>
#include <string>

namespace orvel {

class RemoteNameCache {
  public:
    // The kept names, or those `git remote` lists in `repoPath` when none are kept; git runs
    // without the lock held, so a slow look-up doesn't hold up other repositories.
    RemoteNameSet names(GitExecutorProtocol& git, const std::string& repoPath);
    // Drops the kept names, so that the next look-up reads them anew.
    void clear();

  private:
    std::mutex mutex_;
    std::optional<RemoteNameSet> names_;
};

} // namespace orvel
