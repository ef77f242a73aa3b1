// An in-memory git service with canned records, so that views can be shown and view models
// exercised without git. Tests replace the canned records through the public fields.
#pragma once

#include "core/service/GitServiceProtocol.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

class MockGitService final : public GitServiceProtocol {
public:
    MockGitService();

    QCoro::Task<RepoEntry> open(std::string path) override;
    QCoro::Task<StatusResult> status(RepoEntry repo) override;

    QCoro::Task<std::vector<BranchEntry>> branches(RepoEntry repo) override;
    QCoro::Task<void> createBranch(RepoEntry repo, std::string name,
                                   std::optional<std::string> startPoint) override;
    QCoro::Task<void> checkoutBranch(RepoEntry repo, std::string name) override;
    QCoro::Task<void> checkoutNewBranch(RepoEntry repo, std::string name, std::string startPoint) override;
    QCoro::Task<void> deleteBranch(RepoEntry repo, std::string name, bool force) override;
    QCoro::Task<void> renameBranch(RepoEntry repo, std::string oldName, std::string newName) override;
    QCoro::Task<void> deleteRemoteBranch(RepoEntry repo, std::string remote, std::string branch) override;
    QCoro::Task<MergeResult> merge(RepoEntry repo, std::string branch) override;
    QCoro::Task<MergeResult> fastForwardMerge(RepoEntry repo, std::string branch) override;
    QCoro::Task<RebaseResult> rebase(RepoEntry repo, std::string onto) override;

    QCoro::Task<void> abortMerge(RepoEntry repo) override;
    QCoro::Task<void> abortRebase(RepoEntry repo) override;
    QCoro::Task<void> abortCherryPick(RepoEntry repo) override;
    QCoro::Task<void> abortRevert(RepoEntry repo) override;
    QCoro::Task<InteractiveRebaseResult> rebaseContinue(RepoEntry repo) override;
    QCoro::Task<InteractiveRebaseResult> rebaseSkip(RepoEntry repo) override;

    QCoro::Task<std::optional<std::string>> defaultBranch(RepoEntry repo) override;
    QCoro::Task<std::vector<std::string>> mergedBranches(RepoEntry repo, std::string target) override;
    QCoro::Task<std::optional<std::string>> currentBranch(RepoEntry repo) override;
    QCoro::Task<RepoEntry> cloneRepository(std::string url, std::string path) override;
    QCoro::Task<RepoEntry> initRepository(std::string path, std::optional<std::string> initialBranch) override;

    // The canned repository: `open` answers it with the requested path.
    RepoEntry repository;
    StatusResult workingTree;
    std::optional<std::string> defaultBranchName;
    // The branch operations change this list as git would change the refs, and fail with git's
    // words where git would.
    std::vector<BranchEntry> branchList = sampleBranches();
    MergeResult mergeOutcome = merge::AlreadyUpToDate{};
    RebaseResult rebaseOutcome = rebase::Success{};
    InteractiveRebaseResult rebaseStepOutcome = rebase::Success{}; // of rebaseContinue and rebaseSkip
    std::vector<std::string> mergedBranchNames = {"main", "feature/sidebar"};

private:
    static std::vector<BranchEntry> sampleBranches();
    BranchEntry* findBranch(const std::string& fullRefName);
};

} // namespace orvel
