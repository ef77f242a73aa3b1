// Reset, cherry-pick and revert, and taking one side of a conflict, as operations of the git
// service. Each runs as one block of the repository's queue.
#include "core/commands/ConflictSideCommands.h"
#include "core/commands/HistoryEditCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

QCoro::Task<OperationResult> NativeGitService::cherryPick(RepoEntry repo, std::string hash,
                                                          std::stop_token cancellation) {
    qCDebug(lcOps, "cherryPick: %s in %s", hash.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [hash](GitExecutorProtocol& git, const std::string& repoPath) {
        return HistoryEditCommands::cherryPick(git, repoPath, hash);
    });
}

QCoro::Task<OperationResult> NativeGitService::revert(RepoEntry repo, std::string hash,
                                                      std::stop_token cancellation) {
    qCDebug(lcOps, "revert: %s in %s", hash.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [hash](GitExecutorProtocol& git, const std::string& repoPath) {
        return HistoryEditCommands::revert(git, repoPath, hash);
    });
}

QCoro::Task<void> NativeGitService::reset(RepoEntry repo, std::string hash, ResetMode mode,
                                          std::stop_token cancellation) {
    qCDebug(lcOps, "reset: %s mode=%s in %s", hash.c_str(), HistoryEditCommands::resetModeName(mode),
            repo.path.c_str());
    auto reset = [hash, mode](GitExecutorProtocol& git, const std::string& repoPath) {
        HistoryEditCommands::reset(git, repoPath, hash, mode);
    };
    if (mode != ResetMode::hard || undoLimits().entries == 0)
        return queued(repo.path, cancellation, std::move(reset));
    // A hard reset overwrites the local changes of tracked files as well as moving the branch.
    return queued(repo.path, cancellation,
                  [limits = undoLimits(), reset](GitExecutorProtocol& git, const std::string& repoPath) {
                      UndoJournal::journal(git, repoPath, limits, UndoAction::hardReset, {},
                                           UndoJournal::locallyChangedFiles(git, repoPath),
                                           UndoJournal::checkedOutRefs(git, repoPath), [&] { reset(git, repoPath); });
                  });
}

QCoro::Task<void> NativeGitService::resolveConflictUsingOurs(RepoEntry repo, std::string path,
                                                             std::stop_token cancellation) {
    qCDebug(lcOps, "resolveConflictUsingOurs: %s in %s", path.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [path](GitExecutorProtocol& git, const std::string& repoPath) {
        ConflictSideCommands::resolveUsingOurs(git, repoPath, path);
    });
}

QCoro::Task<void> NativeGitService::resolveConflictUsingTheirs(RepoEntry repo, std::string path,
                                                               std::stop_token cancellation) {
    qCDebug(lcOps, "resolveConflictUsingTheirs: %s in %s", path.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [path](GitExecutorProtocol& git, const std::string& repoPath) {
        ConflictSideCommands::resolveUsingTheirs(git, repoPath, path);
    });
}

} // namespace orvel
