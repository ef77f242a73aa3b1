// The stash operations of the git service. Popping or applying a stash that stops on conflicts
// answers the conflict result; the result is logged after the entry line.
#include "core/commands/StashCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

namespace {

std::string describe(const OperationResult& result) {
    if (const auto* conflicted = std::get_if<Conflicted>(&result))
        return "conflict files=" + std::to_string(conflicted->files.size());
    return "success";
}

} // namespace

QCoro::Task<void> NativeGitService::stashSave(RepoEntry repo, std::optional<std::string> message,
                                              bool includeUntracked, std::stop_token cancellation) {
    qCDebug(lcOps, "stashSave: message=%s includeUntracked=%s in %s", message ? message->c_str() : "(none)",
            includeUntracked ? "true" : "false", repo.path.c_str());
    return queued(repo.path, cancellation,
                  [message, includeUntracked](GitExecutorProtocol& git, const std::string& repoPath) {
                      StashCommands::stashSave(git, repoPath, message, includeUntracked);
                  });
}

QCoro::Task<OperationResult> NativeGitService::stashPop(RepoEntry repo, std::stop_token cancellation) {
    qCDebug(lcOps, "stashPop: %s", repo.path.c_str());
    auto task = queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        return StashCommands::stashPop(git, repoPath);
    });
    OperationResult result = co_await std::move(task);
    qCDebug(lcOps, "stashPop result: %s", describe(result).c_str());
    co_return result;
}

QCoro::Task<OperationResult> NativeGitService::stashApply(RepoEntry repo, long index,
                                                          std::stop_token cancellation) {
    qCDebug(lcOps, "stashApply: index=%ld in %s", index, repo.path.c_str());
    auto task =
        queued(repo.path, cancellation, [index](GitExecutorProtocol& git, const std::string& repoPath) {
            return StashCommands::stashApply(git, repoPath, index);
        });
    OperationResult result = co_await std::move(task);
    qCDebug(lcOps, "stashApply result: %s", describe(result).c_str());
    co_return result;
}

QCoro::Task<void> NativeGitService::stashDrop(RepoEntry repo, long index, std::stop_token cancellation) {
    qCDebug(lcOps, "stashDrop: index=%ld in %s", index, repo.path.c_str());
    return queued(repo.path, cancellation,
                  [index, limits = undoLimits()](GitExecutorProtocol& git, const std::string& repoPath) {
                      UndoJournal::journalStashDrop(git, repoPath, limits, index,
                                                    [&] { StashCommands::stashDrop(git, repoPath, index); });
                  });
}

QCoro::Task<std::vector<StashEntry>> NativeGitService::stashList(RepoEntry repo,
                                                                 std::stop_token cancellation) {
    qCDebug(lcOps, "stashList: %s", repo.path.c_str());
    return queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        return StashCommands::stashList(git, repoPath);
    });
}

QCoro::Task<void> NativeGitService::stashFile(RepoEntry repo, std::string path,
                                              std::stop_token cancellation) {
    qCDebug(lcOps, "stashFile: %s in %s", path.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [path](GitExecutorProtocol& git, const std::string& repoPath) {
        StashCommands::stashFile(git, repoPath, path);
    });
}

} // namespace orvel
