// The diff operations of the git service and the hunk actions, each one block of the repository's
// queue, so that nothing of that repository runs between a hunk's re-read and its apply.
//
// Each block is handed to the queue in a statement of its own and the resulting task awaited
// after: GCC 12 copies temporaries of a co_await operand into the coroutine frame bit by bit, so
// a block built inside `co_await serializedExecute(...)` corrupts the strings it captures.
#include "core/service/NativeGitService.h"

#include "core/commands/DiffCommands.h"
#include "core/commands/HunkCommands.h"
#include "core/support/Log.h"

#include <exception>

namespace orvel {

namespace {

using HunkCommand = void (*)(GitExecutorProtocol&, const std::string&, const std::string&, const DiffHunk&);

// Shared by the three hunk actions: the entry line, the block, and the failure line "op=diff.<name>".
QCoro::Task<void> runHunkAction(const char* name, HunkCommand command,
                                std::shared_ptr<GitExecutorProtocol> executor, GitOpRunner& runner,
                                RepoEntry repo, std::string path, DiffHunk hunk) {
    qCDebug(lcStaging, "%s: %s @@ -%ld,%ld +%ld,%ld @@ in %s", name, path.c_str(),
            static_cast<long>(hunk.oldStart), static_cast<long>(hunk.oldCount),
            static_cast<long>(hunk.newStart), static_cast<long>(hunk.newCount), repo.path.c_str());
    auto work = runner.serializedExecute(
        repo.path, [git = std::move(executor), command, repoPath = repo.path, path = std::move(path),
                    hunk = std::move(hunk)] { command(*git, repoPath, path, hunk); });
    try {
        co_await std::move(work);
    } catch (const std::exception& error) {
        qCDebug(lcDiff, "op=diff.%s err=%s", name, redactForLog(error.what()).c_str());
        throw;
    }
}

} // namespace

QCoro::Task<void> NativeGitService::stageHunk(RepoEntry repo, std::string path, DiffHunk hunk) {
    auto work = runHunkAction("stageHunk", &HunkCommands::stageHunk, executor_, *opRunner_, std::move(repo),
                              std::move(path), std::move(hunk));
    co_await std::move(work);
}

QCoro::Task<void> NativeGitService::unstageHunk(RepoEntry repo, std::string path, DiffHunk hunk) {
    auto work = runHunkAction("unstageHunk", &HunkCommands::unstageHunk, executor_, *opRunner_,
                              std::move(repo), std::move(path), std::move(hunk));
    co_await std::move(work);
}

QCoro::Task<void> NativeGitService::discardHunk(RepoEntry repo, std::string path, DiffHunk hunk) {
    auto work = runHunkAction("discardHunk", &HunkCommands::discardHunk, executor_, *opRunner_,
                              std::move(repo), std::move(path), std::move(hunk));
    co_await std::move(work);
}

QCoro::Task<DiffResult> NativeGitService::diff(RepoEntry repo, DiffContext context,
                                               std::optional<int> contextLines) {
    qCDebug(lcDiff, "diff: %s in %s", describe(context).c_str(), repo.path.c_str());
    auto work =
        opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, context, contextLines] {
            return DiffCommands::diff(*git, path, context, contextLines);
        });
    co_return co_await std::move(work);
}

QCoro::Task<DiffResult> NativeGitService::commitDiff(RepoEntry repo, std::string hash,
                                                     std::optional<int> contextLines) {
    qCDebug(lcDiff, "commitDiff: %s in %s", hash.c_str(), repo.path.c_str());
    auto work =
        opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, hash, contextLines] {
            return DiffCommands::commitDiff(*git, path, hash, contextLines);
        });
    co_return co_await std::move(work);
}

QCoro::Task<std::vector<FileChange>> NativeGitService::commitFileChanges(RepoEntry repo, std::string hash) {
    qCDebug(lcDiff, "commitFileChanges: %s in %s", hash.c_str(), repo.path.c_str());
    auto work = opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, hash] {
        return DiffCommands::commitFileChanges(*git, path, hash);
    });
    co_return co_await std::move(work);
}

} // namespace orvel
