// The tag operations of the git service. Creating a tag asks for the tag-signing setting outside
// the queue first, as a commit does for its own.
#include "core/commands/SigningSetting.h"
#include "core/commands/TagCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

QCoro::Task<std::string> NativeGitService::tagDetail(RepoEntry repo, std::string name,
                                                     std::stop_token cancellation) {
    qCDebug(lcRefs, "tagDetail: %s in %s", name.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [name](GitExecutorProtocol& git, const std::string& repoPath) {
        return TagCommands::tagDetail(git, repoPath, name);
    });
}

QCoro::Task<std::vector<TagEntry>> NativeGitService::listTags(RepoEntry repo, std::stop_token cancellation) {
    qCDebug(lcRefs, "listTags: %s", repo.path.c_str());
    return queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        return TagCommands::listTags(git, repoPath);
    });
}

QCoro::Task<void> NativeGitService::createTag(RepoEntry repo, std::string name,
                                              std::optional<std::string> hash,
                                              std::optional<std::string> message,
                                              std::stop_token cancellation) {
    qCDebug(lcRefs, "createTag: %s hash=%s in %s", name.c_str(), hash ? hash->c_str() : "HEAD",
            repo.path.c_str());
    auto signing = signingSetting(repo.path, tagSigningKey);
    const bool sign = co_await std::move(signing);
    auto task = queued(repo.path, cancellation,
                       [name, hash, message, sign](GitExecutorProtocol& git, const std::string& repoPath) {
                           TagCommands::createTag(git, repoPath, name, hash, message, sign);
                       });
    co_await std::move(task);
}

QCoro::Task<void> NativeGitService::pushTag(RepoEntry repo, std::string name, std::string remote,
                                            std::stop_token cancellation) {
    qCDebug(lcRefs, "pushTag: %s to %s in %s", name.c_str(), remote.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation,
                  [name, remote](GitExecutorProtocol& git, const std::string& repoPath) {
                      TagCommands::pushTag(git, repoPath, name, remote);
                  });
}

QCoro::Task<void> NativeGitService::deleteTag(RepoEntry repo, std::string name,
                                              std::stop_token cancellation) {
    qCDebug(lcRefs, "deleteTag: %s in %s", name.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [name](GitExecutorProtocol& git, const std::string& repoPath) {
        TagCommands::deleteTag(git, repoPath, name);
    });
}

QCoro::Task<void> NativeGitService::checkoutTag(RepoEntry repo, std::string name,
                                                std::stop_token cancellation) {
    qCDebug(lcRefs, "checkoutTag: %s in %s", name.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [name](GitExecutorProtocol& git, const std::string& repoPath) {
        TagCommands::checkoutTag(git, repoPath, name);
    });
}

} // namespace orvel
