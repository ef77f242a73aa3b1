// The undo journal through the git service: the entries, the undo of one, and the discard of
// many paths as one entry. The journalling of each destructive operation stands with it.
#include "core/commands/StagingCommands.h"
#include "core/commands/UndoJournal.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

#include <filesystem>

namespace orvel {

void NativeGitService::setUndoLimits(UndoLimits limits) {
    std::lock_guard lock(undoLimitsMutex_);
    undoLimits_ = limits;
}

UndoLimits NativeGitService::undoLimits() const {
    std::lock_guard lock(undoLimitsMutex_);
    return undoLimits_;
}

QCoro::Task<std::vector<UndoEntry>> NativeGitService::undoHistory(RepoEntry repo, std::stop_token cancellation) {
    qCDebug(lcOps, "undoHistory: %s", repo.path.c_str());
    return queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        return UndoJournal::entries(git, repoPath);
    });
}

QCoro::Task<void> NativeGitService::undo(RepoEntry repo, std::string id, std::stop_token cancellation) {
    qCDebug(lcOps, "undo: %s in %s", id.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [id](GitExecutorProtocol& git, const std::string& repoPath) {
        UndoJournal::undo(git, repoPath, id);
    });
}

QCoro::Task<std::vector<DiscardFailure>> NativeGitService::discardPaths(RepoEntry repo, std::vector<std::string> restore,
                                                                        std::vector<std::string> remove,
                                                                        std::vector<std::string> unstage,
                                                                        std::stop_token cancellation) {
    qCDebug(lcStaging, "discardPaths: restore=%ld remove=%ld unstage=%ld in %s",
            static_cast<long>(restore.size()), static_cast<long>(remove.size()),
            static_cast<long>(unstage.size()), repo.path.c_str());
    std::vector<std::string> paths = remove;
    paths.insert(paths.end(), restore.begin(), restore.end());
    paths.insert(paths.end(), unstage.begin(), unstage.end());
    return queuedDiscard(
        repo.path, cancellation, std::move(paths),
        [restore, remove, unstage](GitExecutorProtocol& git, const std::string& repoPath) {
            std::vector<DiscardFailure> failed;
            // Inside the journalled step, so that the journal keeps what was staged.
            try {
                StagingCommands::unstageFiles(git, repoPath, unstage);
            } catch (const std::exception& error) {
                qCDebug(lcStaging, "discardPaths: unstaging failed: %s", redactForLog(error.what()).c_str());
            }
            for (const std::string& path : remove) {
                namespace fs = std::filesystem;
                const fs::path target = fs::path(repoPath) / path;
                std::error_code error;
                const bool folder = fs::is_directory(fs::symlink_status(target, error));
                // A folder goes with everything in it, which the journal keeps, but for one that
                // holds a repository of its own: its history would go with it.
                if (folder && fs::exists(fs::symlink_status(target / ".git", error)))
                    failed.push_back({path, "\"" + path + "\" holds a repository of its own; it is not deleted.", true});
                else if (folder && fs::remove_all(target, error) == static_cast<std::uintmax_t>(-1))
                    failed.push_back({path, error.message()});
                else if (!folder && !fs::remove(target, error))
                    failed.push_back({path, error ? error.message() : "\"" + path + "\" does not exist."});
            }
            for (const std::string& path : restore) {
                try {
                    StagingCommands::discardChanges(git, repoPath, path, false);
                } catch (const std::exception& error) {
                    failed.push_back({path, error.what()});
                }
            }
            return failed;
        });
}

} // namespace orvel
