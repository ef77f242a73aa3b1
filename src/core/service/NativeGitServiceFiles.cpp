// One file's view of the repository as operations of the git service: blame, its history, a
// blob's bytes, and reading and writing the working-tree file. The file is read outside the queue
// (that is no git command); a resolved file is written and staged in the queue.
#include "core/commands/BlobCommands.h"
#include "core/commands/FileHistoryCommands.h"
#include "core/commands/StagingCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/AtomicFile.h"
#include "core/support/Log.h"

namespace orvel {

QCoro::Task<std::vector<BlameEntry>> NativeGitService::blame(RepoEntry repo, std::string path,
                                                             std::stop_token cancellation) {
    qCDebug(lcDiff, "blame: %s in %s", path.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [path](GitExecutorProtocol& git, const std::string& repoPath) {
        return FileHistoryCommands::blame(git, repoPath, path);
    });
}

QCoro::Task<std::string> NativeGitService::readBlob(RepoEntry repo, std::string hash,
                                                    std::stop_token cancellation) {
    qCDebug(lcDiff, "readBlob: %s in %s", hash.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [hash](GitExecutorProtocol& git, const std::string& repoPath) {
        return BlobCommands::readBlob(git, repoPath, BlobCommands::checkedBlobHash(hash));
    });
}

QCoro::Task<void> NativeGitService::writeResolvedFile(RepoEntry repo, std::string path, std::string content,
                                                      std::stop_token cancellation) {
    qCDebug(lcStaging, "writeResolvedFile: %s in %s", path.c_str(), repo.path.c_str());
    // Written and staged in one queued block: a cancelled write leaves the file as it was, and no
    // git command of the repository runs while the file changes under it.
    return queued(repo.path, cancellation,
                  [file = BlobCommands::workTreeFile(repo.path, path), relative = BlobCommands::repoRelativePath(path),
                   content = std::move(content)](GitExecutorProtocol& git, const std::string& repoPath) {
                      replaceFileAtomically(file, content);
                      StagingCommands::stage(git, repoPath, relative);
                  });
}

QCoro::Task<std::string> NativeGitService::readWorkTreeFile(RepoEntry repo, std::string path,
                                                            std::stop_token) {
    qCDebug(lcDiff, "readWorkTreeFile: %s in %s", path.c_str(), repo.path.c_str());
    return opRunner_->runUnqueued(
        [file = BlobCommands::workTreeFile(repo.path, path)] { return BlobCommands::readFile(file); });
}

QCoro::Task<std::vector<CommitEntry>>
NativeGitService::fileHistory(RepoEntry repo, std::string path, long limit, std::stop_token cancellation) {
    qCDebug(lcGraph, "fileHistory: %s limit=%ld in %s", path.c_str(), limit, repo.path.c_str());
    return queued(repo.path, cancellation,
                  [path, limit](GitExecutorProtocol& git, const std::string& repoPath) {
                      return FileHistoryCommands::fileHistory(git, repoPath, path, limit);
                  });
}

} // namespace orvel
