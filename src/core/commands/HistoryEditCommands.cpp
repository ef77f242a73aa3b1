#include "core/commands/HistoryEditCommands.h"

#include "core/commands/ConflictRecovery.h"
#include "core/commands/ArgumentGuard.h"

namespace orvel::HistoryEditCommands {

namespace {

OperationResult replay(GitExecutorProtocol& git, const std::string& repoPath,
                       const GitExecutorProtocol::Arguments& arguments) {
    return runWithConflictRecovery(
        git, repoPath,
        [&]() -> OperationResult {
            git.execute(arguments, repoPath);
            return operation::Success{};
        },
        [](std::vector<ConflictEntry> files) -> OperationResult { return Conflicted{std::move(files)}; });
}

} // namespace

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
    return replay(git, repoPath, {"cherry-pick", hash});
}

OperationResult revert(GitExecutorProtocol& git, const std::string& repoPath, const std::string& hash) {
    refuseOptionLike(hash, "commit");
    return replay(git, repoPath, {"revert", "--no-edit", hash});
}

} // namespace orvel::HistoryEditCommands
