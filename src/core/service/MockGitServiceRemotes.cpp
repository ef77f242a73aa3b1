// The remotes of the in-memory service: a canned list that adding and removing change, and
// network operations that check the remote name the way git would and then change nothing.
#include "core/commands/RepositoryCommands.h"
#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"

#include <algorithm>

namespace orvel {

namespace {

bool hasRemote(const std::vector<RemoteEntry>& remotes, const std::string& name) {
    return std::any_of(remotes.begin(), remotes.end(),
                       [&](const RemoteEntry& remote) { return remote.name == name; });
}

// git's own failure for a remote that isn't configured.
void requireRemote(const std::vector<RemoteEntry>& remotes, const std::string& command,
                   const std::string& name) {
    if (!hasRemote(remotes, name))
        throw GitServiceError::commandFailed(command, "fatal: '" + name +
                                                          "' does not appear to be a git repository\n"
                                                          "fatal: Could not read from remote repository.\n");
}

} // namespace

std::vector<RemoteEntry> MockGitService::sampleRemotes() {
    return {
        {"origin", "https://example.invalid/orvel/sample.git", "https://example.invalid/orvel/sample.git"},
        {"upstream", "https://example.invalid/upstream/sample.git",
         "git@example.invalid:upstream/sample.git"},
    };
}

QCoro::Task<void> MockGitService::pushBranch(RepoEntry, std::string, std::string remote, std::stop_token) {
    requireRemote(remotes, "push", remote);
    co_return;
}

QCoro::Task<std::vector<RemoteEntry>> MockGitService::listRemotes(RepoEntry, std::stop_token) {
    co_return std::vector<RemoteEntry>(remotes);
}

QCoro::Task<void> MockGitService::addRemote(RepoEntry, std::string name, std::string url, std::stop_token) {
    RepositoryCommands::validateCloneUrl(url);
    if (hasRemote(remotes, name))
        throw GitServiceError::commandFailed("remote", "error: remote " + name + " already exists.\n");
    const auto position = std::find_if(remotes.begin(), remotes.end(),
                                       [&](const RemoteEntry& remote) { return remote.name > name; });
    remotes.insert(position, RemoteEntry{name, url, url});
    co_return;
}

QCoro::Task<void> MockGitService::removeRemote(RepoEntry, std::string name, std::stop_token) {
    if (!hasRemote(remotes, name))
        throw GitServiceError::commandFailed("remote", "error: No such remote: '" + name + "'\n");
    std::erase_if(remotes, [&](const RemoteEntry& remote) { return remote.name == name; });
    co_return;
}

QCoro::Task<void> MockGitService::fetch(RepoEntry, std::string remote, bool, std::stop_token) {
    requireRemote(remotes, "fetch", remote);
    co_return;
}

QCoro::Task<MergeResult> MockGitService::pull(RepoEntry, std::string remote, PullStrategy, std::stop_token) {
    requireRemote(remotes, "pull", remote);
    co_return MergeResult(merge::AlreadyUpToDate{});
}

QCoro::Task<void> MockGitService::push(RepoEntry, std::string remote, std::stop_token) {
    if (!repository.currentBranch)
        throw GitServiceError::detachedHead();
    if (!hasRemote(remotes, remote))
        throw GitServiceError::unknownRemote(remote);
    co_return;
}

QCoro::Task<void> MockGitService::forcePush(RepoEntry, std::string remote, std::stop_token) {
    requireRemote(remotes, "push", remote);
    co_return;
}

} // namespace orvel
