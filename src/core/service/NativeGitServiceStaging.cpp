// The staging and commit operations of the git service. A commit asks for the signing setting
// outside the queue first, then commits and reads the new commit back in one block, so that
// nothing of the same repository can slip between the two.
#include "core/commands/SigningSetting.h"
#include "core/commands/StagingCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

QCoro::Task<void> NativeGitService::stage(RepoEntry repo, std::string path, std::stop_token cancellation) {
    qCDebug(lcStaging, "stage: %s in %s", path.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [path](GitExecutorProtocol& git, const std::string& repoPath) {
        StagingCommands::stage(git, repoPath, path);
    });
}

QCoro::Task<void> NativeGitService::stageFiles(RepoEntry repo, std::vector<std::string> paths,
                                               std::stop_token cancellation) {
    qCDebug(lcStaging, "stageFiles: %ld files in %s", static_cast<long>(paths.size()), repo.path.c_str());
    return queued(repo.path, cancellation, [paths](GitExecutorProtocol& git, const std::string& repoPath) {
        StagingCommands::stageFiles(git, repoPath, paths);
    });
}

QCoro::Task<void> NativeGitService::stageAll(RepoEntry repo, std::stop_token cancellation) {
    qCDebug(lcStaging, "stageAll: %s", repo.path.c_str());
    return queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        StagingCommands::stageAll(git, repoPath);
    });
}

QCoro::Task<void> NativeGitService::unstage(RepoEntry repo, std::string path, std::stop_token cancellation) {
    qCDebug(lcStaging, "unstage: %s in %s", path.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [path](GitExecutorProtocol& git, const std::string& repoPath) {
        StagingCommands::unstage(git, repoPath, path);
    });
}

QCoro::Task<void> NativeGitService::unstageFiles(RepoEntry repo, std::vector<std::string> paths,
                                                 std::stop_token cancellation) {
    qCDebug(lcStaging, "unstageFiles: %ld files in %s", static_cast<long>(paths.size()), repo.path.c_str());
    return queued(repo.path, cancellation, [paths](GitExecutorProtocol& git, const std::string& repoPath) {
        StagingCommands::unstageFiles(git, repoPath, paths);
    });
}

QCoro::Task<void> NativeGitService::unstageAll(RepoEntry repo, std::stop_token cancellation) {
    qCDebug(lcStaging, "unstageAll: %s", repo.path.c_str());
    return queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        StagingCommands::unstageAll(git, repoPath);
    });
}

QCoro::Task<void> NativeGitService::discardChanges(RepoEntry repo, std::string path, bool includeStaged,
                                                   std::stop_token cancellation) {
    qCDebug(lcStaging, "discardChanges: %s includeStaged=%s in %s", path.c_str(),
            includeStaged ? "true" : "false", repo.path.c_str());
    return queuedDiscard(repo.path, cancellation, {path},
                         [path, includeStaged](GitExecutorProtocol& git, const std::string& repoPath) {
                             StagingCommands::discardChanges(git, repoPath, path, includeStaged);
                         });
}

QCoro::Task<bool> NativeGitService::signingSetting(const std::string& repoPath, std::string_view key) {
    return opRunner_->runUnqueued(
        [git = executor_, repoPath, key = std::string(key)] { return signingEnabled(*git, repoPath, key); });
}

QCoro::Task<CommitEntry> NativeGitService::commitWith(CommitCommand command, RepoEntry repo,
                                                      std::string message, std::stop_token cancellation) {
    auto signing = signingSetting(repo.path, commitSigningKey);
    const bool sign = co_await std::move(signing);
    auto run = [command, message, sign](GitExecutorProtocol& git, const std::string& repoPath) {
        return command(git, repoPath, message, sign);
    };
    // An amend replaces the commit the branch pointed at; the journal keeps that one. A commit
    // may end a merge stopped on a conflict; the journal keeps the branch from before the merge.
    if (command == &StagingCommands::amendCommit)
        co_return co_await journalled(repo.path, cancellation, UndoAction::amend, {}, {},
                                      &UndoJournal::checkedOutRefs, std::move(run));
    co_return co_await resuming(repo.path, cancellation, std::move(run));
}

QCoro::Task<CommitEntry> NativeGitService::commit(RepoEntry repo, std::string message,
                                                  std::stop_token cancellation) {
    qCDebug(lcStaging, "commit: %s in %s", message.c_str(), repo.path.c_str());
    return commitWith(&StagingCommands::commit, std::move(repo), std::move(message), cancellation);
}

QCoro::Task<CommitEntry> NativeGitService::amendCommit(RepoEntry repo, std::string message,
                                                       std::stop_token cancellation) {
    qCDebug(lcStaging, "amendCommit: %s in %s", message.c_str(), repo.path.c_str());
    return commitWith(&StagingCommands::amendCommit, std::move(repo), std::move(message), cancellation);
}

} // namespace orvel
