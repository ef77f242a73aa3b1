#include "core/commands/RemoteCommands.h"

#include "core/commands/ArgumentGuard.h"
#include "core/commands/HistoryCommands.h"
#include "core/commands/MergeCommands.h"
#include "core/parsers/RemoteParser.h"
#include "core/service/GitServiceError.h"
#include "core/support/Log.h"

#include <exception>
#include <optional>

namespace orvel::RemoteCommands {

namespace {

constexpr std::string_view remoteName = "Remote name";

// The option that selects `strategy`; `useConfig` leaves the choice to git's configuration.
std::optional<std::string> pullFlag(PullStrategy strategy) {
    switch (strategy) {
    case PullStrategy::merge:
        return "--no-rebase";
    case PullStrategy::rebase:
        return "--rebase";
    case PullStrategy::fastForwardOnly:
        return "--ff-only";
    case PullStrategy::useConfig:
        return std::nullopt;
    }
    return std::nullopt;
}

} // namespace

std::vector<RemoteEntry> listRemotes(GitExecutorProtocol& git, const std::string& repoPath) {
    return GitOutputParser::parseRemotes(git.execute({"remote", "-v"}, repoPath));
}

void addRemote(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name,
               const std::string& url) {
    refuseOptionLike(name, remoteName);
    git.execute({"remote", "add", "--", name, url}, repoPath);
}

void removeRemote(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name) {
    refuseOptionLike(name, remoteName);
    git.execute({"remote", "remove", "--", name}, repoPath);
}

void fetch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& remote, bool prune) {
    refuseOptionLike(remote, remoteName);
    if (prune)
        git.execute({"fetch", "--prune", "--", remote}, repoPath);
    else
        git.execute({"fetch", "--", remote}, repoPath);
}

MergeResult pull(GitExecutorProtocol& git, const std::string& repoPath, const std::string& remote,
                 PullStrategy strategy) {
    refuseOptionLike(remote, remoteName);
    GitExecutorProtocol::Arguments arguments{"pull"};
    if (auto flag = pullFlag(strategy))
        arguments.push_back(std::move(*flag));
    arguments.push_back("--");
    arguments.push_back(remote);
    MergeResult result = MergeCommands::runMerge(git, repoPath, arguments);
    qCDebug(lcOps, "pull result: %s", describe(result).c_str());
    return result;
}

void push(GitExecutorProtocol& git, const std::string& repoPath, const std::string& remote) {
    refuseOptionLike(remote, remoteName);
    try {
        git.execute({"symbolic-ref", "HEAD"}, repoPath);
    } catch (const std::exception&) {
        throw GitServiceError::detachedHead();
    }
    // The remote list only guards against a typo; when it can't be read, git's own push decides.
    std::optional<RemoteNameSet> names;
    try {
        names = HistoryCommands::remoteNames(git, repoPath);
    } catch (const std::exception& error) {
        qCDebug(lcOps, "push: remote list unavailable reason=%s", redactForLog(error.what()).c_str());
    }
    if (names && !names->contains(remote))
        throw GitServiceError::unknownRemote(remote);
    git.execute({"push", "-u", "--", remote, "HEAD"}, repoPath);
}

void pushBranch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& branch,
                const std::string& remote) {
    refuseOptionLike(remote, remoteName);
    refuseOptionLike(branch, "Branch name");
    git.execute({"push", "-u", "--", remote, branch}, repoPath);
}

void forcePush(GitExecutorProtocol& git, const std::string& repoPath, const std::string& remote) {
    refuseOptionLike(remote, remoteName);
    git.execute({"push", "--force-with-lease", "--", remote, "HEAD"}, repoPath);
}

const char* toString(PullStrategy strategy) {
    switch (strategy) {
    case PullStrategy::merge:
        return "merge";
    case PullStrategy::rebase:
        return "rebase";
    case PullStrategy::fastForwardOnly:
        return "fastForwardOnly";
    case PullStrategy::useConfig:
        return "useConfig";
    }
    return "unknown";
}

std::string describe(const MergeResult& result) {
    struct Describer {
        std::string operator()(const merge::AlreadyUpToDate&) const { return "alreadyUpToDate"; }
        std::string operator()(const merge::FastForward& value) const {
            return "fastForward(" + value.newHead + ")";
        }
        std::string operator()(const merge::Merged& value) const {
            return "merged(" + value.commitHash + ")";
        }
        std::string operator()(const Conflicted& value) const {
            return "conflict(" + std::to_string(value.files.size()) + " files)";
        }
    };
    return std::visit(Describer{}, result);
}

} // namespace orvel::RemoteCommands
