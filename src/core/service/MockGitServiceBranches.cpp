// The branch, merge and rebase operations of the in-memory service: branches live in `branchList`,
// merges and rebases answer the canned outcomes, and aborts follow `repository.state`.
#include "core/commands/ArgumentGuard.h"
#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr const char* sampleHead = "4b825dc642cb6eb9a060e54bf8d69288fbee4904";

BranchEntry localBranch(std::string name, std::string hash, bool current) {
    BranchEntry branch;
    branch.fullRefName = "refs/heads/" + name;
    branch.name = std::move(name);
    branch.hash = std::move(hash);
    branch.isCurrent = current;
    return branch;
}

std::string localRef(const std::string& name) {
    return "refs/heads/" + name;
}

} // namespace

std::vector<BranchEntry> MockGitService::sampleBranches() {
    BranchEntry main = localBranch("main", sampleHead, true);
    main.upstream = UpstreamInfo{"origin/main", "origin", 1, 0, false, std::nullopt};
    main.lastCommitSubject = "Show the graph beside the working tree";
    BranchEntry feature = localBranch("feature/sidebar", "9f2c1e7d3b4a5c6d7e8f9a0b1c2d3e4f5a6b7c8d", false);
    feature.lastCommitSubject = "Group branches by folder";
    BranchEntry remoteMain;
    remoteMain.name = "origin/main";
    remoteMain.fullRefName = "refs/remotes/origin/main";
    remoteMain.isRemote = true;
    remoteMain.hash = "1a2b3c4d5e6f7a8b9c0d1e2f3a4b5c6d7e8f9a0b";
    return {main, feature, remoteMain};
}

BranchEntry* MockGitService::findBranch(const std::string& fullRefName) {
    const auto found = std::ranges::find(branchList, fullRefName, &BranchEntry::fullRefName);
    return found == branchList.end() ? nullptr : &*found;
}

QCoro::Task<std::vector<BranchEntry>> MockGitService::branches(RepoEntry, std::stop_token) {
    co_return std::vector<BranchEntry>(branchList);
}

QCoro::Task<void> MockGitService::createBranch(RepoEntry, std::string name,
                                               std::optional<std::string> startPoint, std::stop_token) {
    refuseOptionLike(name, "Branch name");
    if (startPoint)
        refuseOptionLike(*startPoint, "Start point");
    if (findBranch(localRef(name)))
        throw GitServiceError::commandFailed("branch", "fatal: a branch named '" + name + "' already exists");
    std::string hash = repository.headHash.value_or(sampleHead);
    if (startPoint) {
        const BranchEntry* start = findBranch(localRef(*startPoint));
        if (!start)
            start = findBranch("refs/remotes/" + *startPoint);
        if (!start)
            throw GitServiceError::commandFailed("branch",
                                                 "fatal: not a valid object name: '" + *startPoint + "'");
        hash = start->hash;
    }
    branchList.push_back(localBranch(std::move(name), std::move(hash), false));
    co_return;
}

QCoro::Task<void> MockGitService::checkoutBranch(RepoEntry, std::string name, std::stop_token) {
    refuseOptionLike(name, "Branch name");
    const BranchEntry* target = findBranch(localRef(name));
    if (!target)
        throw GitServiceError::commandFailed("checkout", "error: pathspec '" + name +
                                                             "' did not match any file(s) known to git");
    const std::string hash = target->hash;
    for (BranchEntry& branch : branchList)
        branch.isCurrent = !branch.isRemote && branch.name == name;
    repository.currentBranch = name;
    repository.headHash = hash;
    co_return;
}

QCoro::Task<void> MockGitService::checkoutNewBranch(RepoEntry repo, std::string name, std::string startPoint,
                                                    std::stop_token) {
    co_await createBranch(repo, name, std::move(startPoint));
    co_await checkoutBranch(std::move(repo), std::move(name));
}

QCoro::Task<void> MockGitService::deleteBranch(RepoEntry, std::string name, bool, std::stop_token) {
    refuseOptionLike(name, "Branch name");
    const BranchEntry* branch = findBranch(localRef(name));
    if (!branch)
        throw GitServiceError::commandFailed("branch", "error: branch '" + name + "' not found");
    if (branch->isCurrent)
        throw GitServiceError::commandFailed("branch", "error: cannot delete branch '" + name +
                                                           "' used by worktree at '" + repository.path + "'");
    std::erase_if(branchList, [&](const BranchEntry& entry) { return entry.fullRefName == localRef(name); });
    co_return;
}

QCoro::Task<void> MockGitService::renameBranch(RepoEntry, std::string oldName, std::string newName,
                                               std::stop_token) {
    refuseOptionLike(oldName, "Branch name");
    refuseOptionLike(newName, "Branch name");
    BranchEntry* branch = findBranch(localRef(oldName));
    if (!branch)
        throw GitServiceError::commandFailed("branch", "error: refname refs/heads/" + oldName + " not found");
    if (findBranch(localRef(newName)))
        throw GitServiceError::commandFailed("branch",
                                             "fatal: a branch named '" + newName + "' already exists");
    branch->name = newName;
    branch->fullRefName = localRef(newName);
    if (branch->isCurrent)
        repository.currentBranch = newName;
    co_return;
}

QCoro::Task<void> MockGitService::deleteRemoteBranch(RepoEntry, std::string remote, std::string branch,
                                                     std::stop_token) {
    refuseOptionLike(remote, "Remote name");
    refuseOptionLike(branch, "Branch name");
    const std::string ref = "refs/remotes/" + remote + "/" + branch;
    if (!findBranch(ref))
        throw GitServiceError::commandFailed("push", "error: unable to delete '" + branch +
                                                         "': remote ref does not exist");
    std::erase_if(branchList, [&](const BranchEntry& entry) { return entry.fullRefName == ref; });
    co_return;
}

QCoro::Task<MergeResult> MockGitService::merge(RepoEntry, std::string branch, std::stop_token) {
    refuseOptionLike(branch, "Branch name");
    if (std::holds_alternative<Conflicted>(mergeOutcome))
        repository.state = RepositoryState::merging;
    co_return MergeResult(mergeOutcome);
}

QCoro::Task<MergeResult> MockGitService::fastForwardMerge(RepoEntry, std::string branch, std::stop_token) {
    refuseOptionLike(branch, "Branch name");
    if (std::holds_alternative<merge::Merged>(mergeOutcome) ||
        std::holds_alternative<Conflicted>(mergeOutcome))
        throw GitServiceError::commandFailed("merge", "fatal: Not possible to fast-forward, aborting.");
    co_return MergeResult(mergeOutcome);
}

QCoro::Task<RebaseResult> MockGitService::rebase(RepoEntry, std::string onto, std::stop_token) {
    refuseOptionLike(onto, "Rebase target");
    if (std::holds_alternative<RebaseStop>(rebaseOutcome))
        repository.state = RepositoryState::rebasing;
    co_return RebaseResult(rebaseOutcome);
}

QCoro::Task<void> MockGitService::abortMerge(RepoEntry, std::stop_token) {
    if (repository.state != RepositoryState::merging)
        throw GitServiceError::commandFailed("merge",
                                             "fatal: There is no merge to abort (MERGE_HEAD missing).");
    repository.state = RepositoryState::clean;
    co_return;
}

QCoro::Task<void> MockGitService::abortRebase(RepoEntry, std::stop_token) {
    if (repository.state != RepositoryState::rebasing)
        throw GitServiceError::commandFailed("rebase", "fatal: no rebase in progress");
    repository.state = RepositoryState::clean;
    co_return;
}

QCoro::Task<void> MockGitService::abortCherryPick(RepoEntry, std::stop_token) {
    if (repository.state != RepositoryState::cherryPicking)
        throw GitServiceError::commandFailed("cherry-pick", "error: no cherry-pick or revert in progress");
    repository.state = RepositoryState::clean;
    co_return;
}

QCoro::Task<void> MockGitService::abortRevert(RepoEntry, std::stop_token) {
    if (repository.state != RepositoryState::reverting)
        throw GitServiceError::commandFailed("revert", "error: no cherry-pick or revert in progress");
    repository.state = RepositoryState::clean;
    co_return;
}

QCoro::Task<InteractiveRebaseResult> MockGitService::rebaseContinue(RepoEntry, std::stop_token) {
    if (repository.state != RepositoryState::rebasing)
        throw GitServiceError::commandFailed("rebase", "Rebase failed unexpectedly");
    if (std::holds_alternative<rebase::Success>(rebaseStepOutcome))
        repository.state = RepositoryState::clean;
    co_return InteractiveRebaseResult(rebaseStepOutcome);
}

QCoro::Task<InteractiveRebaseResult> MockGitService::rebaseSkip(RepoEntry repo, std::stop_token) {
    co_return co_await rebaseContinue(std::move(repo));
}

QCoro::Task<std::vector<std::string>> MockGitService::mergedBranches(RepoEntry, std::string target,
                                                                     std::stop_token) {
    refuseOptionLike(target, "Merge target");
    std::vector<std::string> names = mergedBranchNames;
    std::erase(names, target);
    co_return names;
}

} // namespace orvel
