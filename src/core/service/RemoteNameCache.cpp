#include "core/service/RemoteNameCache.h"

#include "core/commands/HistoryCommands.h"

namespace orvel {

RemoteNameSet RemoteNameCache::names(GitExecutorProtocol& git, const std::string& repoPath) {
    {
        std::lock_guard lock(mutex_);
        if (names_)
            return *names_;
    }
    RemoteNameSet read = HistoryCommands::remoteNames(git, repoPath);
    std::lock_guard lock(mutex_);
    names_ = read;
    return read;
}

void RemoteNameCache::clear() {
    std::lock_guard lock(mutex_);
    names_.reset();
}

} // namespace orvel
