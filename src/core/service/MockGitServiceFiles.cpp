// Blame, file history, blobs and working-tree files in the in-memory service, read from its canned
// maps and graph.
#include "core/commands/BlobCommands.h"
#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>

namespace orvel {

std::map<std::string, std::vector<BlameEntry>> MockGitService::sampleBlames() {
    using namespace std::chrono;
    BlameEntry first;
    first.hash = "0123456789abcdef0123456789abcdef01234567";
    first.finalLineNumber = 1;
    first.lines = {"# Orvel", ""};
    first.authorName = "Ada Example";
    first.authorDate = sys_days{year{2026} / 1 / 1} + hours{9};
    first.summary = "Initial commit";
    first.filename = "README.md";
    BlameEntry second = first;
    second.hash = "7f6e5d4c3b2a19080706050403020100ffeeddcc";
    second.finalLineNumber = 3;
    second.lines = {"A commit graph you can read."};
    second.authorDate = sys_days{year{2026} / 1 / 2} + hours{9};
    second.summary = "Draw the commit graph";
    return {{"README.md", {first, second}}};
}

std::map<std::string, std::string> MockGitService::sampleBlobs() {
    return {{"e69de29bb2d1d6434b8b29ae775ad8c2e48c5391", ""},
            {"3b18e512dba79e4c8300dd08aeb37f8e728b8dad", "hello world\n"}};
}

QCoro::Task<std::vector<BlameEntry>> MockGitService::blame(RepoEntry, std::string path, std::stop_token) {
    const auto found = blames.find(path);
    if (found == blames.end())
        throw GitServiceError::commandFailed("blame", "fatal: no such path '" + path + "' in HEAD\n");
    std::vector<BlameEntry> copy = found->second;
    co_return copy;
}

QCoro::Task<std::string> MockGitService::readBlob(RepoEntry, std::string hash, std::stop_token) {
    const std::string checked = BlobCommands::checkedBlobHash(hash);
    const auto found = blobs.find(checked);
    if (found == blobs.end())
        throw GitServiceError::commandFailed("cat-file", "fatal: Not a valid object name " + checked + "\n");
    std::string copy = found->second;
    co_return copy;
}

QCoro::Task<void> MockGitService::writeResolvedFile(RepoEntry, std::string path, std::string content,
                                                    std::stop_token) {
    resolvedFiles[path] = std::move(content);
    const auto found = std::find_if(workingTree.files.begin(), workingTree.files.end(),
                                    [&](const FileChange& file) { return file.path == path; });
    if (found != workingTree.files.end())
        found->status = FileStatusKind::tracked(TrackedStatus::modified, TrackedStatus::unmodified);
    co_return;
}

QCoro::Task<std::string> MockGitService::readWorkTreeFile(RepoEntry, std::string path, std::stop_token) {
    const auto& files = resolvedFiles.contains(path) ? resolvedFiles : workTreeFiles;
    const auto found = files.find(path);
    if (found == files.end())
        throw std::filesystem::filesystem_error("cannot read file", path,
                                                std::make_error_code(std::errc::no_such_file_or_directory));
    std::string copy = found->second;
    co_return copy;
}

QCoro::Task<std::vector<CommitEntry>> MockGitService::fileHistory(RepoEntry repo, std::string path,
                                                                  long limit, std::stop_token) {
    if (blames.find(path) == blames.end())
        co_return std::vector<CommitEntry>{};
    // The canned graph has no file contents: every commit of HEAD's line stands for the file.
    auto history = commitHistory(std::move(repo), limit);
    co_return co_await std::move(history);
}

} // namespace orvel
