// Staging and committing in the in-memory service: changes move between the canned working tree's
// two sides, and a commit becomes the new HEAD of the canned graph.
#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace orvel {

namespace {

FileChange* findFile(StatusResult& tree, const std::string& path) {
    const auto found = std::find_if(tree.files.begin(), tree.files.end(),
                                    [&](const FileChange& file) { return file.path == path; });
    return found == tree.files.end() ? nullptr : &*found;
}

bool isStaged(const FileChange& file) {
    return file.status.kind == FileStatusKind::Case::tracked &&
           file.status.index != TrackedStatus::unmodified;
}

void dropUnchanged(StatusResult& tree) {
    std::erase_if(tree.files, [](const FileChange& file) {
        return file.status == FileStatusKind::tracked(TrackedStatus::unmodified, TrackedStatus::unmodified);
    });
}

void stageFile(StatusResult& tree, const std::string& path) {
    FileChange* file = findFile(tree, path);
    if (!file)
        throw GitServiceError::commandFailed("add",
                                             "fatal: pathspec '" + path + "' did not match any files\n");
    if (file->status.kind == FileStatusKind::Case::untracked) {
        file->status = FileStatusKind::tracked(TrackedStatus::added, TrackedStatus::unmodified);
    } else if (file->status.kind == FileStatusKind::Case::tracked &&
               file->status.worktree != TrackedStatus::unmodified) {
        if (file->status.index == TrackedStatus::unmodified)
            file->status.index = file->status.worktree;
        file->status.worktree = TrackedStatus::unmodified;
    }
}

void unstageFile(StatusResult& tree, const std::string& path) {
    FileChange* file = findFile(tree, path);
    if (!file || !isStaged(*file))
        return;
    if (file->status.index == TrackedStatus::added) {
        file->status = FileStatusKind::untracked();
        return;
    }
    if (file->status.worktree == TrackedStatus::unmodified)
        file->status.worktree = file->status.index;
    file->status.index = TrackedStatus::unmodified;
}

} // namespace

QCoro::Task<void> MockGitService::stage(RepoEntry, std::string path, std::stop_token) {
    stageFile(workingTree, path);
    co_return;
}

QCoro::Task<void> MockGitService::stageFiles(RepoEntry, std::vector<std::string> paths, std::stop_token) {
    for (const auto& path : paths)
        stageFile(workingTree, path);
    co_return;
}

QCoro::Task<void> MockGitService::stageAll(RepoEntry, std::stop_token) {
    for (const auto& file : std::vector<FileChange>(workingTree.files))
        stageFile(workingTree, file.path);
    co_return;
}

QCoro::Task<void> MockGitService::unstage(RepoEntry, std::string path, std::stop_token) {
    unstageFile(workingTree, path);
    co_return;
}

QCoro::Task<void> MockGitService::unstageFiles(RepoEntry, std::vector<std::string> paths, std::stop_token) {
    for (const auto& path : paths)
        unstageFile(workingTree, path);
    co_return;
}

QCoro::Task<void> MockGitService::unstageAll(RepoEntry, std::stop_token) {
    for (const auto& file : std::vector<FileChange>(workingTree.files))
        unstageFile(workingTree, file.path);
    co_return;
}

QCoro::Task<void> MockGitService::discardChanges(RepoEntry, std::string path, bool includeStaged,
                                                 std::stop_token) {
    FileChange* file = findFile(workingTree, path);
    if (!file || file->status.kind != FileStatusKind::Case::tracked)
        throw GitServiceError::commandFailed("restore", "error: pathspec '" + path +
                                                            "' did not match any file(s) known to git\n");
    file->status.worktree = TrackedStatus::unmodified;
    if (includeStaged)
        file->status.index = TrackedStatus::unmodified;
    dropUnchanged(workingTree);
    co_return;
}

// Unstaging goes as unstage does, restoring as discardChanges does; a removed path leaves the status,
// as the file leaves the disk.
QCoro::Task<std::vector<DiscardFailure>> MockGitService::discardPaths(RepoEntry repo, std::vector<std::string> restore,
                                                                      std::vector<std::string> remove,
                                                                      std::vector<std::string> unstage,
                                                                      std::stop_token) {
    std::vector<DiscardFailure> failed;
    for (const std::string& path : unstage)
        unstageFile(workingTree, path);
    for (const std::string& path : remove)
        std::erase_if(workingTree.files, [&path](const FileChange& file) { return file.path == path; });
    for (const std::string& path : restore) {
        try {
            co_await discardChanges(repo, path, false);
        } catch (const std::exception& error) {
            failed.push_back({path, error.what()});
        }
    }
    co_return failed;
}

QCoro::Task<CommitEntry> MockGitService::commit(RepoEntry, std::string message, std::stop_token) {
    co_return commitStaged(message, false);
}

QCoro::Task<CommitEntry> MockGitService::amendCommit(RepoEntry, std::string message, std::stop_token) {
    co_return commitStaged(message, true);
}

CommitEntry MockGitService::commitStaged(const std::string& message, bool amend) {
    const bool staged = std::any_of(workingTree.files.begin(), workingTree.files.end(), isStaged);
    if (!staged && !amend)
        throw GitServiceError::commandFailed("commit", "nothing added to commit\n");
    if (amend && !repository.headHash)
        throw GitServiceError::commandFailed("commit", "fatal: You have nothing to amend.\n");
    const GraphCommit& made = addCommit(message, amend);
    for (auto& file : workingTree.files) {
        if (isStaged(file))
            file.status.index = TrackedStatus::unmodified;
    }
    dropUnchanged(workingTree);
    return entryOf(made);
}

GraphCommit& MockGitService::addCommit(const std::string& message, bool amend) {
    const auto head = std::ranges::find_if(graph, &GraphCommit::isHead);
    GraphCommit made;
    char hash[41];
    std::snprintf(hash, sizeof hash, "%08x%032x", 0xc0ffee00u + static_cast<unsigned>(++madeCommits_), 0u);
    made.hash = hash;
    // git reads the first paragraph as the subject, joined into one line, and ends a body with a
    // newline.
    const auto paragraphEnd = message.find("\n\n");
    made.subject = message.substr(0, paragraphEnd);
    std::replace(made.subject.begin(), made.subject.end(), '\n', ' ');
    if (paragraphEnd != std::string::npos)
        made.body = message.substr(paragraphEnd + 2) + "\n";
    made.date = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    made.authors.push_back(
        {QUuid::createUuid(), "Ada Example", "ada@example.invalid", std::nullopt, made.date});
    std::string replaced;
    if (head != graph.end()) {
        made.parentHashes = amend ? head->parentHashes : std::vector<std::string>{head->hash};
        replaced = head->hash;
    }
    graph.insert(graph.begin(), std::move(made));
    moveHead(graph.front().hash);
    // An amended commit that no ref points at any more leaves the graph.
    const auto old = std::ranges::find(graph, replaced, &GraphCommit::hash);
    if (amend && old != graph.end() && old->refs.empty())
        graph.erase(old);
    return graph.front();
}

} // namespace orvel
