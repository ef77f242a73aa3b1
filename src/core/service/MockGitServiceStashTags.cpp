// Stashes, tags, reset, cherry-pick, revert and conflict sides in the in-memory service: the
// canned lists change as git would change them, and requests git would refuse fail with git's
// own wording.
#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"

#include <algorithm>
#include <chrono>

namespace orvel {

namespace {

using namespace std::chrono;

const TagEntry* findTag(const std::vector<TagEntry>& tags, const std::string& name) {
    const auto found =
        std::find_if(tags.begin(), tags.end(), [&](const TagEntry& tag) { return tag.name == name; });
    return found == tags.end() ? nullptr : &*found;
}

void requireStash(const std::vector<StashEntry>& stashes, long index) {
    if (index < 0 || index >= static_cast<long>(stashes.size()))
        throw GitServiceError::commandFailed("stash", "error: stash@{" + std::to_string(index) +
                                                          "} is not a valid reference\n");
}

std::vector<FileChange>::iterator unmergedFile(StatusResult& tree, const std::string& path) {
    const auto found = std::ranges::find_if(tree.files, [&](const FileChange& file) {
        return file.path == path && file.status.kind == FileStatusKind::Case::unmerged;
    });
    if (found == tree.files.end())
        throw GitServiceError::commandFailed("checkout",
                                             "error: path '" + path + "' does not have our version\n");
    return found;
}

} // namespace

std::vector<TagEntry> MockGitService::sampleTags() {
    return {
        {"v1.0", "a1b2c3d4e5f60718293a4b5c6d7e8f9001122334", "7f6e5d4c3b2a19080706050403020100ffeeddcc"},
        {"nightly", "4b825dc642cb6eb9a060e54bf8d69288fbee4904", std::nullopt},
    };
}

std::vector<StashEntry> MockGitService::sampleStashes() {
    StashEntry entry;
    entry.index = 0;
    entry.hash = "5e4d3c2b1a0998877665544332211000ffeeddcc";
    entry.message = "On main: half-done lane colours";
    entry.branchName = "main";
    entry.baseHash = "4b825dc642cb6eb9a060e54bf8d69288fbee4904";
    entry.date = sys_days{year{2026} / 1 / 6} + hours{10};
    return {entry};
}

void MockGitService::pushStash(const std::string& message, std::vector<FileChange> files,
                               bool includesUntracked) {
    for (auto& entry : stashes)
        ++entry.index;
    StashEntry entry;
    entry.hash = "5e4d3c2b1a0998877665544332211000ffee" + std::to_string(1000 + ++madeCommits_);
    entry.message = message;
    entry.branchName = repository.currentBranch;
    entry.baseHash = repository.headHash.value_or("");
    entry.includesUntracked = includesUntracked;
    entry.date = time_point_cast<Instant::duration>(system_clock::now());
    stashedFiles_[entry.hash] = std::move(files);
    stashes.insert(stashes.begin(), entry);
}

void MockGitService::applyStash(long index) {
    requireStash(stashes, index);
    // The index side is not restored: what was staged comes back as a change of the work tree.
    for (FileChange file : stashedFiles_[stashes[static_cast<std::size_t>(index)].hash]) {
        if (file.status.kind == FileStatusKind::Case::tracked) {
            const TrackedStatus change =
                file.status.worktree != TrackedStatus::unmodified ? file.status.worktree : file.status.index;
            file.status = FileStatusKind::tracked(TrackedStatus::unmodified, change);
        }
        std::erase_if(workingTree.files, [&](const FileChange& other) { return other.path == file.path; });
        workingTree.files.push_back(std::move(file));
    }
}

// git's own message for a stash without one: the branch, then HEAD's short hash and subject.
std::string MockGitService::wipMessage() const {
    const auto head = std::ranges::find_if(graph, &GraphCommit::isHead);
    std::string message = "WIP on " + repository.currentBranch.value_or("(no branch)") + ":";
    if (head != graph.end())
        message += " " + head->hash.substr(0, 7) + " " + head->subject;
    return message;
}

QCoro::Task<std::string> MockGitService::tagDetail(RepoEntry, std::string name, std::stop_token) {
    const TagEntry* tag = findTag(tags, name);
    if (!tag)
        throw GitServiceError::commandFailed("show",
                                             "fatal: ambiguous argument 'tags/" + name +
                                                 "': unknown revision or path not in the working tree.\n");
    std::string text;
    if (tag->targetHash)
        text += "tag " + tag->name + "\nTagger: Ada Example <ada@example.invalid>\n\n" + tag->name + "\n\n";
    text += "commit " + tag->targetHash.value_or(tag->hash) + "\n";
    co_return text;
}

QCoro::Task<OperationResult> MockGitService::cherryPick(RepoEntry, std::string hash, std::stop_token) {
    const auto picked = std::ranges::find(graph, hash, &GraphCommit::hash);
    if (picked == graph.end())
        throw GitServiceError::commandFailed("cherry-pick", "fatal: bad object " + hash + "\n");
    addCommit(picked->subject + (picked->body.empty() ? "" : "\n\n" + picked->body), false);
    co_return operation::Success{};
}

QCoro::Task<OperationResult> MockGitService::revert(RepoEntry, std::string hash, std::stop_token) {
    const auto reverted = std::ranges::find(graph, hash, &GraphCommit::hash);
    if (reverted == graph.end())
        throw GitServiceError::commandFailed("revert", "fatal: bad object " + hash + "\n");
    addCommit("Revert \"" + reverted->subject + "\"\n\nThis reverts commit " + hash + ".", false);
    co_return operation::Success{};
}

QCoro::Task<void> MockGitService::reset(RepoEntry, std::string hash, ResetMode mode, std::stop_token) {
    if (std::ranges::find(graph, hash, &GraphCommit::hash) == graph.end())
        throw GitServiceError::commandFailed("reset",
                                             "fatal: ambiguous argument '" + hash +
                                                 "': unknown revision or path not in the working tree.\n");
    moveHead(hash);
    if (mode == ResetMode::hard)
        std::erase_if(workingTree.files, [](const FileChange& file) {
            return file.status.kind != FileStatusKind::Case::untracked;
        });
    co_return;
}

QCoro::Task<std::vector<TagEntry>> MockGitService::listTags(RepoEntry, std::stop_token) {
    std::vector<TagEntry> copy = tags;
    co_return copy;
}

QCoro::Task<void> MockGitService::createTag(RepoEntry, std::string name, std::optional<std::string> hash,
                                            std::optional<std::string> message, std::stop_token) {
    if (name.empty() || name.front() == '-')
        throw GitServiceError::invalidInput("tag name must not begin with '-': " + name);
    if (findTag(tags, name))
        throw GitServiceError::commandFailed("tag", "fatal: tag '" + name + "' already exists\n");
    const std::string target = hash.value_or(repository.headHash.value_or(""));
    TagEntry tag{name, target, std::nullopt};
    if (message)
        tag = {name, "a0" + target.substr(std::min<std::size_t>(2, target.size())), target};
    // git lists tags sorted by name.
    tags.insert(std::ranges::find_if(tags, [&](const TagEntry& other) { return other.name > name; }), tag);
    co_return;
}

QCoro::Task<void> MockGitService::pushTag(RepoEntry, std::string name, std::string remote, std::stop_token) {
    if (!findTag(tags, name))
        throw GitServiceError::commandFailed("push", "error: src refspec " + name + " does not match any\n");
    (void)remote;
    co_return;
}

QCoro::Task<void> MockGitService::deleteTag(RepoEntry, std::string name, std::stop_token) {
    if (!findTag(tags, name))
        throw GitServiceError::commandFailed("tag", "error: tag '" + name + "' not found.\n");
    std::erase_if(tags, [&](const TagEntry& tag) { return tag.name == name; });
    co_return;
}

QCoro::Task<void> MockGitService::checkoutTag(RepoEntry, std::string name, std::stop_token) {
    const TagEntry* tag = findTag(tags, name);
    if (!tag)
        throw GitServiceError::commandFailed("checkout", "error: pathspec 'tags/" + name +
                                                             "' did not match any file(s) known to git\n");
    repository.currentBranch.reset();
    for (BranchEntry& branch : branchList)
        branch.isCurrent = false;
    moveHead(tag->targetHash.value_or(tag->hash));
    co_return;
}

QCoro::Task<void> MockGitService::stashSave(RepoEntry, std::optional<std::string> message,
                                            bool includeUntracked, std::stop_token) {
    const auto saved = [&](const FileChange& file) {
        return file.status.kind == FileStatusKind::Case::tracked ||
               (includeUntracked && file.status.kind == FileStatusKind::Case::untracked);
    };
    std::vector<FileChange> files;
    std::ranges::copy_if(workingTree.files, std::back_inserter(files), saved);
    if (files.empty())
        co_return; // git: "No local changes to save", exit 0
    std::erase_if(workingTree.files, saved);
    const bool untracked = std::ranges::any_of(
        files, [](const FileChange& file) { return file.status.kind == FileStatusKind::Case::untracked; });
    pushStash(message ? "On " + repository.currentBranch.value_or("(no branch)") + ": " + *message
                      : wipMessage(),
              std::move(files), untracked);
    co_return;
}

QCoro::Task<OperationResult> MockGitService::stashPop(RepoEntry, std::stop_token) {
    if (stashes.empty())
        throw GitServiceError::commandFailed("stash", "No stash entries found.\n");
    applyStash(0);
    stashes.erase(stashes.begin());
    for (auto& entry : stashes)
        --entry.index;
    co_return operation::Success{};
}

QCoro::Task<OperationResult> MockGitService::stashApply(RepoEntry, long index, std::stop_token) {
    applyStash(index);
    co_return operation::Success{};
}

QCoro::Task<void> MockGitService::stashDrop(RepoEntry, long index, std::stop_token) {
    requireStash(stashes, index);
    stashes.erase(stashes.begin() + index);
    for (auto& entry : stashes)
        if (entry.index > index)
            --entry.index;
    co_return;
}

QCoro::Task<std::vector<StashEntry>> MockGitService::stashList(RepoEntry, std::stop_token) {
    std::vector<StashEntry> copy = stashes;
    co_return copy;
}

QCoro::Task<void> MockGitService::stashFile(RepoEntry, std::string path, std::stop_token) {
    const auto found = std::ranges::find(workingTree.files, path, &FileChange::path);
    if (found == workingTree.files.end())
        throw GitServiceError::commandFailed("stash", "error: pathspec '" + path +
                                                          "' did not match any file(s) known to git\n");
    const bool untracked = found->status.kind == FileStatusKind::Case::untracked;
    std::vector<FileChange> files{*found};
    workingTree.files.erase(found);
    pushStash(wipMessage(), std::move(files), untracked);
    co_return;
}

QCoro::Task<void> MockGitService::resolveConflictUsingOurs(RepoEntry, std::string path, std::stop_token) {
    // Our side is what HEAD holds: the resolved file no longer differs from it.
    workingTree.files.erase(unmergedFile(workingTree, path));
    co_return;
}

QCoro::Task<void> MockGitService::resolveConflictUsingTheirs(RepoEntry, std::string path, std::stop_token) {
    unmergedFile(workingTree, path)->status =
        FileStatusKind::tracked(TrackedStatus::modified, TrackedStatus::unmodified);
    co_return;
}

} // namespace orvel
