#include "core/commands/HistoryEditCommands.h"

#include "core/commands/ArgumentGuard.h"
#include "core/commands/ConflictRecovery.h"

namespace orvel::HistoryEditCommands {

const char* resetModeName(ResetMode mode) {
    switch (mode) {
    case ResetMode::soft:
        return "soft";
    case ResetMode::mixed:
        return "mixed";
    case ResetMode::hard:
        return "hard";
    case ResetMode::merge:
        return "merge";
    case ResetMode::keep:
        return "keep";
    }
    return "mixed";
}

void reset(GitExecutorProtocol& git, const std::string& repoPath, const std::string& hash, ResetMode mode) {
    refuseOptionLike(hash, "commit");
    git.execute({"reset", std::string("--") + resetModeName(mode), hash}, repoPath);
}

OperationResult cherryPick(GitExecutorProtocol& git, const std::string& repoPath, const std::string& hash) {
    refuseOptionLike(hash, "commit");
    return runOperationWithConflictRecovery(git, repoPath, {"cherry-pick", hash});
}

OperationResult revert(GitExecutorProtocol& git, const std::string& repoPath, const std::string& hash) {
    refuseOptionLike(hash, "commit");
    return runOperationWithConflictRecovery(git, repoPath, {"revert", "--no-edit", hash});
}

} // namespace orvel::HistoryEditCommands
