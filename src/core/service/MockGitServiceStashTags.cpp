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

void MockGitService::pushStash(const std::string& message) {
    for (auto& entry : stashes)
        ++entry.index;
    StashEntry entry;
    entry.hash = "5e4d3c2b1a0998877665544332211000ffee" + std::to_string(1000 + stashes.size());
    entry.message = message;
    entry.branchName = repository.currentBranch;
    entry.baseHash = repository.headHash.value_or("");
    entry.date = time_point_cast<Instant::duration>(system_clock::now());
    stashes.insert(stashes.begin(), entry);
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
    if (std::none_of(graph.begin(), graph.end(),
                     [&](const GraphCommit& commit) { return commit.hash == hash; }))
        throw GitServiceError::commandFailed("cherry-pick", "fatal: bad revision '" + hash + "'\n");
    co_return operation::Success{};
}

QCoro::Task<OperationResult> MockGitService::revert(RepoEntry, std::string hash, std::stop_token) {
    if (std::none_of(graph.begin(), graph.end(),
                     [&](const GraphCommit& commit) { return commit.hash == hash; }))
        throw GitServiceError::commandFailed("revert", "fatal: bad revision '" + hash + "'\n");
    co_return operation::Success{};
}

QCoro::Task<void> MockGitService::reset(RepoEntry, std::string hash, ResetMode mode, std::stop_token) {
    if (std::none_of(graph.begin(), graph.end(),
                     [&](const GraphCommit& commit) { return commit.hash == hash; }))
        throw GitServiceError::commandFailed("reset",
                                             "fatal: ambiguous argument '" + hash +
                                                 "': unknown revision or path not in the working tree.\n");
    repository.headHash = hash;
    if (mode == ResetMode::hard)
        std::erase_if(workingTree.files, [](const FileChange& file) {
            return file.status.kind == FileStatusKind::Case::tracked;
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
    if (message)
        tags.push_back({name, "a0" + target.substr(std::min<std::size_t>(2, target.size())), target});
    else
        tags.push_back({name, target, std::nullopt});
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
    repository.headHash = tag->targetHash.value_or(tag->hash);
    repository.currentBranch.reset();
    co_return;
}

QCoro::Task<void> MockGitService::stashSave(RepoEntry, std::optional<std::string> message,
                                            bool includeUntracked, std::stop_token) {
    const auto saved = [&](const FileChange& file) {
        return file.status.kind == FileStatusKind::Case::tracked ||
               (includeUntracked && file.status.kind == FileStatusKind::Case::untracked);
    };
    if (std::none_of(workingTree.files.begin(), workingTree.files.end(), saved))
        co_return; // git: "No local changes to save", exit 0
    std::erase_if(workingTree.files, saved);
    const std::string branch = repository.currentBranch.value_or("(no branch)");
    pushStash(message ? "On " + branch + ": " + *message : "WIP on " + branch);
    co_return;
}

QCoro::Task<OperationResult> MockGitService::stashPop(RepoEntry, std::stop_token) {
    if (stashes.empty())
        throw GitServiceError::commandFailed("stash", "No stash entries found.\n");
    stashes.erase(stashes.begin());
    for (auto& entry : stashes)
        --entry.index;
    co_return operation::Success{};
}

QCoro::Task<OperationResult> MockGitService::stashApply(RepoEntry, long index, std::stop_token) {
    requireStash(stashes, index);
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
    const auto removed =
        std::erase_if(workingTree.files, [&](const FileChange& file) { return file.path == path; });
    if (removed == 0)
        throw GitServiceError::commandFailed("stash", "error: pathspec '" + path +
                                                          "' did not match any file(s) known to git\n");
    pushStash("On " + repository.currentBranch.value_or("(no branch)") + ": " + path);
    co_return;
}

QCoro::Task<void> MockGitService::resolveConflictUsingOurs(RepoEntry repo, std::string path,
                                                           std::stop_token) {
    co_await resolveConflictUsingTheirs(std::move(repo), std::move(path));
}

QCoro::Task<void> MockGitService::resolveConflictUsingTheirs(RepoEntry, std::string path, std::stop_token) {
    const auto found =
        std::find_if(workingTree.files.begin(), workingTree.files.end(), [&](const FileChange& file) {
            return file.path == path && file.status.kind == FileStatusKind::Case::unmerged;
        });
    if (found == workingTree.files.end())
        throw GitServiceError::commandFailed("checkout",
                                             "error: path '" + path + "' does not have our version\n");
    found->status = FileStatusKind::tracked(TrackedStatus::modified, TrackedStatus::unmodified);
    co_return;
}

} // namespace orvel
