// The branch, merge and rebase operations of the in-memory service: branches live in `branchList`,
// merges and rebases follow the graph where it decides, and aborts follow `repository.state`.
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
    BranchEntry feature = localBranch("feature/search", "9d1e3c6a2f1b0e4d8c7a6b5f4e3d2c1b0a998877", false);
    feature.lastCommitSubject = "Add commit search";
    BranchEntry main = localBranch("main", sampleHead, true);
    main.upstream = UpstreamInfo{"origin/main", "origin", 1, 0, false, std::nullopt};
    main.lastCommitSubject = "Merge branch 'feature/search'";
    BranchEntry remoteMain;
    remoteMain.name = "origin/main";
    remoteMain.fullRefName = "refs/remotes/origin/main";
    remoteMain.isRemote = true;
    remoteMain.hash = "1a2b3c4d5e6f7a8b9c0d1e2f3a4b5c6d7e8f9a0b";
    return {feature, main, remoteMain};
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
        hash = resolve(*startPoint);
        if (hash.empty())
            throw GitServiceError::commandFailed("branch",
                                                 "fatal: not a valid object name: '" + *startPoint + "'");
    }
    // git lists branches sorted by their full ref name.
    BranchEntry branch = localBranch(std::move(name), std::move(hash), false);
    const auto position = std::ranges::find_if(
        branchList, [&](const BranchEntry& other) { return other.fullRefName > branch.fullRefName; });
    branchList.insert(position, std::move(branch));
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
    moveHead(hash);
    co_return;
}

QCoro::Task<void> MockGitService::checkoutNewBranch(RepoEntry repo, std::string name, std::string startPoint,
                                                    std::stop_token) {
    co_await createBranch(repo, name, std::move(startPoint));
    co_await checkoutBranch(std::move(repo), std::move(name));
}

QCoro::Task<void> MockGitService::deleteBranch(RepoEntry, std::string name, bool force, std::stop_token) {
    refuseOptionLike(name, "Branch name");
    const BranchEntry* branch = findBranch(localRef(name));
    if (!branch)
        throw GitServiceError::commandFailed("branch", "error: branch '" + name + "' not found");
    if (branch->isCurrent)
        throw GitServiceError::commandFailed("branch", "error: Cannot delete branch '" + name +
                                                           "' checked out at '" + repository.path + "'");
    if (!force && !reaches(repository.headHash.value_or(""), branch->hash))
        throw GitServiceError::commandFailed("branch", "error: The branch '" + name +
                                                           "' is not fully merged.\nIf you are sure you want "
                                                           "to delete it, run 'git branch -D " +
                                                           name + "'.");
    std::erase_if(branchList, [&](const BranchEntry& entry) { return entry.fullRefName == localRef(name); });
    for (GraphCommit& commit : graph)
        std::erase_if(commit.refs, [&](const GraphRef& ref) {
            return ref.type == GraphRefType::localBranch && ref.name == name;
        });
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
    std::ranges::sort(branchList, {}, &BranchEntry::fullRefName);
    for (GraphCommit& commit : graph)
        for (GraphRef& ref : commit.refs)
            if (ref.type == GraphRefType::localBranch && ref.name == oldName)
                ref.name = newName;
    if (repository.currentBranch == oldName)
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

void MockGitService::stopWithConflicts(const std::vector<ConflictEntry>& files, RepositoryState state) {
    for (const ConflictEntry& conflict : files) {
        std::erase_if(workingTree.files, [&](const FileChange& file) { return file.path == conflict.path; });
        FileChange file;
        file.path = conflict.path;
        file.status = FileStatusKind::unmerged(conflict.conflictType);
        workingTree.files.push_back(std::move(file));
    }
    repository.state = state;
}

void MockGitService::abortStop(RepositoryState state, const std::string& command, const std::string& words) {
    if (repository.state != state)
        throw GitServiceError::commandFailed(command, words);
    std::erase_if(workingTree.files,
                  [](const FileChange& file) { return file.status.kind == FileStatusKind::Case::unmerged; });
    repository.state = RepositoryState::clean;
}

QCoro::Task<MergeResult> MockGitService::merge(RepoEntry, std::string branch, std::stop_token) {
    refuseOptionLike(branch, "Branch name");
    const std::string target = resolve(branch);
    const std::string head = repository.headHash.value_or("");
    if (target.empty())
        throw GitServiceError::commandFailed("merge", "merge: " + branch + " - not something we can merge");
    if (reaches(head, target))
        co_return merge::AlreadyUpToDate{};
    if (reaches(target, head)) {
        moveHead(target);
        co_return merge::FastForward{target};
    }
    if (const auto* conflicted = std::get_if<Conflicted>(&mergeOutcome))
        stopWithConflicts(conflicted->files, RepositoryState::merging);
    if (std::holds_alternative<merge::Merged>(mergeOutcome)) {
        GraphCommit& made = addCommit("Merge branch '" + branch + "'", false);
        made.parentHashes.push_back(target);
        co_return merge::Merged{made.hash};
    }
    co_return MergeResult(mergeOutcome);
}

QCoro::Task<MergeResult> MockGitService::fastForwardMerge(RepoEntry, std::string branch, std::stop_token) {
    refuseOptionLike(branch, "Branch name");
    const std::string target = resolve(branch);
    const std::string head = repository.headHash.value_or("");
    if (reaches(head, target))
        co_return merge::AlreadyUpToDate{};
    if (target.empty() || !reaches(target, head))
        throw GitServiceError::commandFailed("merge", "fatal: Not possible to fast-forward, aborting.");
    moveHead(target);
    co_return merge::FastForward{target};
}

QCoro::Task<RebaseResult> MockGitService::rebase(RepoEntry, std::string onto, std::stop_token) {
    refuseOptionLike(onto, "Rebase target");
    const std::string target = resolve(onto);
    const std::string head = repository.headHash.value_or("");
    if (target.empty())
        throw GitServiceError::commandFailed("rebase", "fatal: invalid upstream '" + onto + "'");
    if (reaches(head, target))
        co_return rebase::AlreadyUpToDate{};
    if (reaches(target, head)) {
        moveHead(target);
        co_return rebase::Success{};
    }
    if (const auto* stop = std::get_if<RebaseStop>(&rebaseOutcome))
        stopWithConflicts(stop->files, RepositoryState::rebasing);
    co_return RebaseResult(rebaseOutcome);
}

QCoro::Task<void> MockGitService::abortMerge(RepoEntry, std::stop_token) {
    abortStop(RepositoryState::merging, "merge", "fatal: There is no merge to abort (MERGE_HEAD missing).");
    co_return;
}

QCoro::Task<void> MockGitService::abortRebase(RepoEntry, std::stop_token) {
    abortStop(RepositoryState::rebasing, "rebase", "fatal: No rebase in progress?");
    co_return;
}

QCoro::Task<void> MockGitService::abortCherryPick(RepoEntry, std::stop_token) {
    abortStop(RepositoryState::cherryPicking, "cherry-pick", "error: no cherry-pick or revert in progress");
    co_return;
}

QCoro::Task<void> MockGitService::abortRevert(RepoEntry, std::stop_token) {
    abortStop(RepositoryState::reverting, "revert", "error: no cherry-pick or revert in progress");
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
    const std::string tip = resolve(target);
    std::vector<std::string> names;
    for (const BranchEntry& branch : branchList)
        if (!branch.isRemote && branch.name != target && reaches(tip, branch.hash))
            names.push_back(branch.name);
    co_return names;
}

} // namespace orvel
