// The diff operations of the git service and the hunk and line actions, each one block of the
// repository's queue, so that nothing of that repository runs between a re-read and its apply.
#include "core/service/NativeGitService.h"

#include "core/commands/DiffCommands.h"
#include "core/commands/HunkCommands.h"
#include "core/support/Log.h"

#include <exception>

namespace orvel {

namespace {

// Awaits a hunk action's block and logs its failure as "op=diff.<name>".
QCoro::Task<void> logFailure(const char* name, QCoro::Task<void> work) {
    try {
        co_await std::move(work);
    } catch (const std::exception& error) {
        qCDebug(lcDiff, "op=diff.%s err=%s", name, redactForLog(error.what()).c_str());
        throw;
    }
}

} // namespace

QCoro::Task<void> NativeGitService::hunkAction(const char* name, HunkCommand command, RepoEntry repo,
                                               std::string path, DiffHunk hunk,
                                               std::stop_token cancellation) {
    qCDebug(lcStaging, "%s: %s @@ -%ld,%ld +%ld,%ld @@ in %s", name, path.c_str(),
            static_cast<long>(hunk.oldStart), static_cast<long>(hunk.oldCount),
            static_cast<long>(hunk.newStart), static_cast<long>(hunk.newCount), repo.path.c_str());
    // Only a discard changes the work tree; staging leaves nothing to keep.
    std::vector<std::string> kept;
    if (command == &HunkCommands::discardHunk)
        kept.push_back(path);
    auto work = queuedDiscard(repo.path, cancellation, std::move(kept),
                              [command, path, hunk](GitExecutorProtocol& git, const std::string& repoPath) {
                                  command(git, repoPath, path, hunk);
                              });
    return logFailure(name, std::move(work));
}

QCoro::Task<void> NativeGitService::stageHunk(RepoEntry repo, std::string path, DiffHunk hunk,
                                              std::stop_token cancellation) {
    return hunkAction("stageHunk", &HunkCommands::stageHunk, std::move(repo), std::move(path),
                      std::move(hunk), cancellation);
}

QCoro::Task<void> NativeGitService::unstageHunk(RepoEntry repo, std::string path, DiffHunk hunk,
                                                std::stop_token cancellation) {
    return hunkAction("unstageHunk", &HunkCommands::unstageHunk, std::move(repo), std::move(path),
                      std::move(hunk), cancellation);
}

QCoro::Task<void> NativeGitService::discardHunk(RepoEntry repo, std::string path, DiffHunk hunk,
                                                std::stop_token cancellation) {
    return hunkAction("discardHunk", &HunkCommands::discardHunk, std::move(repo), std::move(path),
                      std::move(hunk), cancellation);
}

QCoro::Task<void> NativeGitService::linesAction(const char* name, LinesCommand command, RepoEntry repo,
                                                FileChange file, std::vector<HunkLines> lines,
                                                std::stop_token cancellation) {
    std::size_t count = 0;
    for (const HunkLines& hunk : lines)
        count += hunk.lines.size();
    qCDebug(lcStaging, "%s: %s (%zu lines in %zu hunks) in %s", name, file.path.c_str(), count, lines.size(),
            repo.path.c_str());
    std::vector<std::string> kept;
    if (command == &HunkCommands::discardLines)
        kept.push_back(file.path);
    auto work = queuedDiscard(repo.path, cancellation, std::move(kept),
                              [command, file = std::move(file),
                               lines = std::move(lines)](GitExecutorProtocol& git, const std::string& repoPath) {
                                  command(git, repoPath, file, lines);
                              });
    return logFailure(name, std::move(work));
}

QCoro::Task<void> NativeGitService::stageLines(RepoEntry repo, FileChange file, std::vector<HunkLines> lines,
                                               std::stop_token cancellation) {
    return linesAction("stageLines", &HunkCommands::stageLines, std::move(repo), std::move(file),
                       std::move(lines), cancellation);
}

QCoro::Task<void> NativeGitService::unstageLines(RepoEntry repo, FileChange file,
                                                 std::vector<HunkLines> lines, std::stop_token cancellation) {
    return linesAction("unstageLines", &HunkCommands::unstageLines, std::move(repo), std::move(file),
                       std::move(lines), cancellation);
}

QCoro::Task<void> NativeGitService::discardLines(RepoEntry repo, FileChange file,
                                                 std::vector<HunkLines> lines, std::stop_token cancellation) {
    return linesAction("discardLines", &HunkCommands::discardLines, std::move(repo), std::move(file),
                       std::move(lines), cancellation);
}

QCoro::Task<DiffResult> NativeGitService::diff(RepoEntry repo, DiffContext context,
                                               std::optional<int> contextLines,
                                               std::stop_token cancellation) {
    qCDebug(lcDiff, "diff: %s in %s", describe(context).c_str(), repo.path.c_str());
    return queued(repo.path, cancellation,
                  [context, contextLines](GitExecutorProtocol& git, const std::string& repoPath) {
                      return DiffCommands::diff(git, repoPath, context, contextLines);
                  });
}

QCoro::Task<DiffResult> NativeGitService::commitDiff(RepoEntry repo, std::string hash,
                                                     std::optional<int> contextLines,
                                                     std::stop_token cancellation) {
    qCDebug(lcDiff, "commitDiff: %s in %s", hash.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation,
                  [hash, contextLines](GitExecutorProtocol& git, const std::string& repoPath) {
                      return DiffCommands::commitDiff(git, repoPath, hash, contextLines);
                  });
}

QCoro::Task<std::vector<FileChange>> NativeGitService::commitFileChanges(RepoEntry repo, std::string hash,
                                                                         std::stop_token cancellation) {
    qCDebug(lcDiff, "commitFileChanges: %s in %s", hash.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [hash](GitExecutorProtocol& git, const std::string& repoPath) {
        return DiffCommands::commitFileChanges(git, repoPath, hash);
    });
}

} // namespace orvel
