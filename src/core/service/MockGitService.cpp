#include "core/service/MockGitService.h"

#include "core/commands/RepositoryCommands.h"
#include "core/service/GitServiceError.h"

namespace orvel {

MockGitService::MockGitService() {
    repository.gitDirPath = ".git";
    repository.currentBranch = "main";
    repository.headHash = "4b825dc642cb6eb9a060e54bf8d69288fbee4904";
    defaultBranchName = "main";
    auto change = [](std::string path, FileStatusKind status) {
        FileChange file;
        file.path = std::move(path);
        file.status = status;
        return file;
    };
    workingTree.files = {
        change("README.md", FileStatusKind::tracked(TrackedStatus::modified, TrackedStatus::unmodified)),
        change("src/main.cpp", FileStatusKind::tracked(TrackedStatus::unmodified, TrackedStatus::modified)),
        change("notes.txt", FileStatusKind::untracked()),
    };
}

QCoro::Task<RepoEntry> MockGitService::open(std::string path, std::stop_token) {
    RepoEntry entry = repository;
    entry.gitDirPath = path + "/.git";
    entry.path = std::move(path);
    co_return entry;
}

QCoro::Task<RepositoryState> MockGitService::repositoryState(RepoEntry, std::stop_token) {
    co_return repository.state;
}

QCoro::Task<std::optional<std::string>> MockGitService::preparedCommitMessage(RepoEntry, std::stop_token) {
    co_return preparedMessage;
}

QCoro::Task<StatusResult> MockGitService::status(RepoEntry, std::stop_token) {
    co_return StatusResult(workingTree);
}

QCoro::Task<std::optional<std::string>> MockGitService::defaultBranch(RepoEntry, std::stop_token) {
    co_return std::optional<std::string>(defaultBranchName);
}

QCoro::Task<std::optional<std::string>> MockGitService::currentBranch(RepoEntry, std::stop_token) {
    co_return std::optional<std::string>(repository.currentBranch);
}

// The mock keeps no journal: nothing to list, nothing to bring back.
QCoro::Task<std::vector<UndoEntry>> MockGitService::undoHistory(RepoEntry, std::stop_token) {
    co_return std::vector<UndoEntry>();
}

QCoro::Task<void> MockGitService::undo(RepoEntry, std::string, std::stop_token) {
    throw GitServiceError::invalidInput("That undo entry is no longer kept.");
    co_return;
}

QCoro::Task<RepoEntry> MockGitService::cloneRepository(std::string url, std::string path, std::stop_token) {
    RepositoryCommands::validateCloneUrl(url);
    co_return co_await open(std::move(path));
}

QCoro::Task<RepoEntry>
MockGitService::initRepository(std::string path, std::optional<std::string> initialBranch, std::stop_token) {
    RepoEntry entry = co_await open(std::move(path));
    entry.currentBranch = initialBranch.value_or("main");
    entry.headHash.reset();
    co_return entry;
}

QCoro::Task<bool> MockGitService::updateCommitGraph(RepoEntry, std::stop_token) {
    ++commitGraphUpdates;
    co_return true;
}

} // namespace orvel
