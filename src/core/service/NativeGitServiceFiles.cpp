// One file's view of the repository as operations of the git service: blame, its history, a
// blob's bytes, and writing a resolved file. The resolved file is written outside the queue (it is
// no git command), then staged in a block of its own.
#include "core/commands/BlobCommands.h"
#include "core/commands/FileHistoryCommands.h"
#include "core/commands/StagingCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/AtomicFile.h"
#include "core/support/Log.h"

namespace orvel {

QCoro::Task<std::vector<BlameEntry>> NativeGitService::blame(RepoEntry repo, std::string path) {
    qCDebug(lcDiff, "blame: %s in %s", path.c_str(), repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, path] {
        return FileHistoryCommands::blame(*git, repoPath, path);
    });
    co_return co_await std::move(task);
}

QCoro::Task<std::string> NativeGitService::readBlob(RepoEntry repo, std::string hash) {
    qCDebug(lcDiff, "readBlob: %s in %s", hash.c_str(), repo.path.c_str());
    std::string checked = BlobCommands::checkedBlobHash(hash);
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, checked] {
        return BlobCommands::readBlob(*git, repoPath, checked);
    });
    co_return co_await std::move(task);
}

QCoro::Task<void> NativeGitService::writeResolvedFile(RepoEntry repo, std::string path, std::string content) {
    qCDebug(lcStaging, "writeResolvedFile: %s in %s", path.c_str(), repo.path.c_str());
    auto write = opRunner_->runUnqueued([file = BlobCommands::workTreeFile(repo.path, path), content] {
        replaceFileAtomically(file, content);
    });
    co_await std::move(write);
    auto task = opRunner_->serializedExecute(
        repo.path, [git = executor_, repoPath = repo.path, relative = BlobCommands::repoRelativePath(path)] {
            StagingCommands::stage(*git, repoPath, relative);
        });
    co_await std::move(task);
}

QCoro::Task<std::vector<CommitEntry>> NativeGitService::fileHistory(RepoEntry repo, std::string path,
                                                                    long limit) {
    qCDebug(lcGraph, "fileHistory: %s limit=%ld in %s", path.c_str(), limit, repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, repoPath = repo.path, path, limit] {
        return FileHistoryCommands::fileHistory(*git, repoPath, path, limit);
    });
    co_return co_await std::move(task);
}

} // namespace orvel
