#include "core/commands/MergeCommands.h"

#include "core/commands/ArgumentGuard.h"
#include "core/commands/ConflictRecovery.h"
#include "core/commands/RebaseStop.h"
#include "core/support/Text.h"

namespace orvel::MergeCommands {

namespace {

// Git tells the kind of a successful merge only in its English stdout (the child runs with LC_ALL=C).
bool saysUpToDate(const std::string& output) {
    return output.find("Already up to date") != std::string::npos;
}

std::string headHash(GitExecutorProtocol& git, const std::string& repoPath) {
    return trimmed(git.execute({"rev-parse", "HEAD"}, repoPath));
}

InteractiveRebaseResult continueOrReadStop(GitExecutorProtocol& git, const RepoEntry& repo,
                                           const char* step) {
    try {
        git.execute({"rebase", step}, repo.path);
        return rebase::Success{};
    } catch (const std::exception&) {
        // Git's words don't say where it stopped; its state files do.
        return readRebaseStop(git, repo);
    }
}

} // namespace

MergeResult runMerge(GitExecutorProtocol& git, const std::string& repoPath,
                     const GitExecutorProtocol::Arguments& arguments) {
    return runWithConflictRecovery(
        git, repoPath,
        [&]() -> MergeResult {
            const std::string output = git.execute(arguments, repoPath);
            if (saysUpToDate(output))
                return merge::AlreadyUpToDate{};
            std::string head = headHash(git, repoPath);
            if (output.find("Fast-forward") != std::string::npos)
                return merge::FastForward{std::move(head)};
            return merge::Merged{std::move(head)};
        },
        [](std::vector<ConflictEntry> files) -> MergeResult { return Conflicted{std::move(files)}; });
}

MergeResult merge(GitExecutorProtocol& git, const std::string& repoPath, const std::string& branch) {
    refuseOptionLike(branch, "Branch name");
    return runMerge(git, repoPath, {"merge", "--", branch});
}

MergeResult fastForwardMerge(GitExecutorProtocol& git, const std::string& repoPath,
                             const std::string& branch) {
    refuseOptionLike(branch, "Branch name");
    const std::string output = git.execute({"merge", "--ff-only", "--", branch}, repoPath);
    if (saysUpToDate(output))
        return merge::AlreadyUpToDate{};
    return merge::FastForward{headHash(git, repoPath)};
}

RebaseResult rebase(GitExecutorProtocol& git, const std::string& repoPath, const std::string& onto) {
    refuseOptionLike(onto, "Rebase target");
    return runWithConflictRecovery(
        git, repoPath,
        [&]() -> RebaseResult {
            const std::string output = git.execute({"rebase", "--", onto}, repoPath);
            if (output.find("is up to date") != std::string::npos)
                return rebase::AlreadyUpToDate{};
            return rebase::Success{};
        },
        [](std::vector<ConflictEntry> files) -> RebaseResult {
            return RebaseStop{std::string(), 0, 0, std::move(files)};
        });
}

InteractiveRebaseResult rebaseContinue(GitExecutorProtocol& git, const RepoEntry& repo) {
    return continueOrReadStop(git, repo, "--continue");
}

InteractiveRebaseResult rebaseSkip(GitExecutorProtocol& git, const RepoEntry& repo) {
    return continueOrReadStop(git, repo, "--skip");
}

void abortMerge(GitExecutorProtocol& git, const std::string& repoPath) {
    git.execute({"merge", "--abort"}, repoPath);
}

void abortRebase(GitExecutorProtocol& git, const std::string& repoPath) {
    git.execute({"rebase", "--abort"}, repoPath);
}

void abortCherryPick(GitExecutorProtocol& git, const std::string& repoPath) {
    git.execute({"cherry-pick", "--abort"}, repoPath);
}

void abortRevert(GitExecutorProtocol& git, const std::string& repoPath) {
    git.execute({"revert", "--abort"}, repoPath);
}

} // namespace orvel::MergeCommands
