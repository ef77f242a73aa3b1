// The branch, merge and rebase operations of the git service: each logs its entry line and runs
// its commands as one block of the repository's queue.
#include "core/commands/BranchCommands.h"
#include "core/commands/MergeCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

namespace {
const char* boolText(bool value) {
    return value ? "true" : "false";
}
} // namespace

QCoro::Task<std::vector<BranchEntry>> NativeGitService::branches(RepoEntry repo) {
    qCDebug(lcRefs, "branches: %s", repo.path.c_str());
    co_return co_await opRunner_->serializedExecute(
        repo.path, [git = executor_, path = repo.path] { return BranchCommands::branches(*git, path); });
}

QCoro::Task<void> NativeGitService::createBranch(RepoEntry repo, std::string name,
                                                 std::optional<std::string> startPoint) {
    qCDebug(lcRefs, "createBranch: %s startPoint=%s in %s", name.c_str(), startPoint.value_or("none").c_str(),
            repo.path.c_str());
    co_await opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, name, startPoint] {
        BranchCommands::createBranch(*git, path, name, startPoint);
    });
}

QCoro::Task<void> NativeGitService::checkoutBranch(RepoEntry repo, std::string name) {
    qCDebug(lcRefs, "checkoutBranch: %s in %s", name.c_str(), repo.path.c_str());
    co_await opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, name] {
        BranchCommands::checkoutBranch(*git, path, name);
    });
}

QCoro::Task<void> NativeGitService::checkoutNewBranch(RepoEntry repo, std::string name,
                                                      std::string startPoint) {
    qCDebug(lcRefs, "checkoutNewBranch: %s from %s in %s", name.c_str(), startPoint.c_str(),
            repo.path.c_str());
    co_await opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, name, startPoint] {
        BranchCommands::checkoutNewBranch(*git, path, name, startPoint);
    });
}

QCoro::Task<void> NativeGitService::deleteBranch(RepoEntry repo, std::string name, bool force) {
    qCDebug(lcRefs, "deleteBranch: %s force=%s in %s", name.c_str(), boolText(force), repo.path.c_str());
    co_await opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, name, force] {
        BranchCommands::deleteBranch(*git, path, name, force);
    });
}

QCoro::Task<void> NativeGitService::renameBranch(RepoEntry repo, std::string oldName, std::string newName) {
    qCDebug(lcRefs, "renameBranch: %s -> %s in %s", oldName.c_str(), newName.c_str(), repo.path.c_str());
    co_await opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, oldName, newName] {
        BranchCommands::renameBranch(*git, path, oldName, newName);
    });
}

QCoro::Task<void> NativeGitService::deleteRemoteBranch(RepoEntry repo, std::string remote,
                                                       std::string branch) {
    qCDebug(lcRefs, "deleteRemoteBranch: %s/%s in %s", remote.c_str(), branch.c_str(), repo.path.c_str());
    co_await opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, remote, branch] {
        BranchCommands::deleteRemoteBranch(*git, path, remote, branch);
    });
}

QCoro::Task<MergeResult> NativeGitService::merge(RepoEntry repo, std::string branch) {
    qCDebug(lcOps, "merge: %s in %s", branch.c_str(), repo.path.c_str());
    co_return co_await opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, branch] {
        return MergeCommands::merge(*git, path, branch);
    });
}

QCoro::Task<MergeResult> NativeGitService::fastForwardMerge(RepoEntry repo, std::string branch) {
    qCDebug(lcOps, "fastForwardMerge: %s in %s", branch.c_str(), repo.path.c_str());
    co_return co_await opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, branch] {
        return MergeCommands::fastForwardMerge(*git, path, branch);
    });
}

QCoro::Task<RebaseResult> NativeGitService::rebase(RepoEntry repo, std::string onto) {
    qCDebug(lcOps, "rebase: onto %s in %s", onto.c_str(), repo.path.c_str());
    co_return co_await opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, onto] {
        return MergeCommands::rebase(*git, path, onto);
    });
}

QCoro::Task<void> NativeGitService::abortMerge(RepoEntry repo) {
    qCDebug(lcOps, "abortMerge: %s", repo.path.c_str());
    co_await opRunner_->serializedExecute(
        repo.path, [git = executor_, path = repo.path] { MergeCommands::abortMerge(*git, path); });
}

QCoro::Task<void> NativeGitService::abortRebase(RepoEntry repo) {
    qCDebug(lcOps, "abortRebase: %s", repo.path.c_str());
    co_await opRunner_->serializedExecute(
        repo.path, [git = executor_, path = repo.path] { MergeCommands::abortRebase(*git, path); });
}

QCoro::Task<void> NativeGitService::abortCherryPick(RepoEntry repo) {
    qCDebug(lcOps, "abortCherryPick: %s", repo.path.c_str());
    co_await opRunner_->serializedExecute(
        repo.path, [git = executor_, path = repo.path] { MergeCommands::abortCherryPick(*git, path); });
}

QCoro::Task<void> NativeGitService::abortRevert(RepoEntry repo) {
    qCDebug(lcOps, "abortRevert: %s", repo.path.c_str());
    co_await opRunner_->serializedExecute(
        repo.path, [git = executor_, path = repo.path] { MergeCommands::abortRevert(*git, path); });
}

QCoro::Task<InteractiveRebaseResult> NativeGitService::rebaseContinue(RepoEntry repo) {
    qCDebug(lcOps, "rebaseContinue: %s", repo.path.c_str());
    co_return co_await opRunner_->serializedExecute(
        repo.path, [git = executor_, repo] { return MergeCommands::rebaseContinue(*git, repo); });
}

QCoro::Task<InteractiveRebaseResult> NativeGitService::rebaseSkip(RepoEntry repo) {
    qCDebug(lcOps, "rebaseSkip: %s", repo.path.c_str());
    co_return co_await opRunner_->serializedExecute(
        repo.path, [git = executor_, repo] { return MergeCommands::rebaseSkip(*git, repo); });
}

QCoro::Task<std::vector<std::string>> NativeGitService::mergedBranches(RepoEntry repo, std::string target) {
    qCDebug(lcRefs, "mergedBranches: into %s in %s", target.c_str(), repo.path.c_str());
    co_return co_await opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, target] {
        return BranchCommands::mergedBranches(*git, path, target);
    });
}

} // namespace orvel
