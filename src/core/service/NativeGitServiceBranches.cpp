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

QCoro::Task<std::vector<BranchEntry>> NativeGitService::branches(RepoEntry repo,
                                                                 std::stop_token cancellation) {
    qCDebug(lcRefs, "branches: %s", repo.path.c_str());
    return queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        return BranchCommands::branches(git, repoPath);
    });
}

QCoro::Task<void> NativeGitService::createBranch(RepoEntry repo, std::string name,
                                                 std::optional<std::string> startPoint,
                                                 std::stop_token cancellation) {
    qCDebug(lcRefs, "createBranch: %s startPoint=%s in %s", name.c_str(), startPoint.value_or("none").c_str(),
            repo.path.c_str());
    return queued(repo.path, cancellation,
                  [name, startPoint](GitExecutorProtocol& git, const std::string& repoPath) {
                      BranchCommands::createBranch(git, repoPath, name, startPoint);
                  });
}

QCoro::Task<void> NativeGitService::checkoutBranch(RepoEntry repo, std::string name,
                                                   std::stop_token cancellation) {
    qCDebug(lcRefs, "checkoutBranch: %s in %s", name.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [name](GitExecutorProtocol& git, const std::string& repoPath) {
        BranchCommands::checkoutBranch(git, repoPath, name);
    });
}

QCoro::Task<void> NativeGitService::checkoutNewBranch(RepoEntry repo, std::string name,
                                                      std::string startPoint, std::stop_token cancellation) {
    qCDebug(lcRefs, "checkoutNewBranch: %s from %s in %s", name.c_str(), startPoint.c_str(),
            repo.path.c_str());
    return queued(repo.path, cancellation,
                  [name, startPoint](GitExecutorProtocol& git, const std::string& repoPath) {
                      BranchCommands::checkoutNewBranch(git, repoPath, name, startPoint);
                  });
}

QCoro::Task<void> NativeGitService::deleteBranch(RepoEntry repo, std::string name, bool force,
                                                 std::stop_token cancellation) {
    qCDebug(lcRefs, "deleteBranch: %s force=%s in %s", name.c_str(), boolText(force), repo.path.c_str());
    return journalled(repo.path, cancellation, UndoAction::deleteBranch, {}, {}, fixedRefs("refs/heads/" + name),
                      [name, force](GitExecutorProtocol& git, const std::string& repoPath) {
                          BranchCommands::deleteBranch(git, repoPath, name, force);
                      });
}

QCoro::Task<void> NativeGitService::renameBranch(RepoEntry repo, std::string oldName, std::string newName,
                                                 std::stop_token cancellation) {
    qCDebug(lcRefs, "renameBranch: %s -> %s in %s", oldName.c_str(), newName.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation,
                  [oldName, newName](GitExecutorProtocol& git, const std::string& repoPath) {
                      BranchCommands::renameBranch(git, repoPath, oldName, newName);
                  });
}

QCoro::Task<void> NativeGitService::deleteRemoteBranch(RepoEntry repo, std::string remote, std::string branch,
                                                       std::stop_token cancellation) {
    qCDebug(lcRefs, "deleteRemoteBranch: %s/%s in %s", remote.c_str(), branch.c_str(), repo.path.c_str());
    // The remote-tracking branch keeps what the remote had; an undo pushes that back.
    return journalled(repo.path, cancellation, UndoAction::deleteRemoteBranch, remote, {},
                      fixedRefs("refs/remotes/" + remote + "/" + branch),
                      [remote, branch](GitExecutorProtocol& git, const std::string& repoPath) {
                          BranchCommands::deleteRemoteBranch(git, repoPath, remote, branch);
                      });
}

QCoro::Task<MergeResult> NativeGitService::merge(RepoEntry repo, std::string branch,
                                                 std::stop_token cancellation) {
    qCDebug(lcOps, "merge: %s in %s", branch.c_str(), repo.path.c_str());
    return journalled(repo.path, cancellation, UndoAction::merge, {}, {}, &UndoJournal::checkedOutRefs,
                      [branch](GitExecutorProtocol& git, const std::string& repoPath) {
                          return MergeCommands::merge(git, repoPath, branch);
                      });
}

QCoro::Task<MergeResult> NativeGitService::fastForwardMerge(RepoEntry repo, std::string branch,
                                                            std::stop_token cancellation) {
    qCDebug(lcOps, "fastForwardMerge: %s in %s", branch.c_str(), repo.path.c_str());
    return journalled(repo.path, cancellation, UndoAction::merge, {}, {}, &UndoJournal::checkedOutRefs,
                      [branch](GitExecutorProtocol& git, const std::string& repoPath) {
                          return MergeCommands::fastForwardMerge(git, repoPath, branch);
                      });
}

QCoro::Task<RebaseResult> NativeGitService::rebase(RepoEntry repo, std::string onto,
                                                   std::stop_token cancellation) {
    qCDebug(lcOps, "rebase: onto %s in %s", onto.c_str(), repo.path.c_str());
    return journalled(repo.path, cancellation, UndoAction::rebase, {}, {}, &UndoJournal::checkedOutRefs,
                      [onto](GitExecutorProtocol& git, const std::string& repoPath) {
                          return MergeCommands::rebase(git, repoPath, onto);
                      });
}

QCoro::Task<void> NativeGitService::abortMerge(RepoEntry repo, std::stop_token cancellation) {
    qCDebug(lcOps, "abortMerge: %s", repo.path.c_str());
    return queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        MergeCommands::abortMerge(git, repoPath);
    });
}

QCoro::Task<void> NativeGitService::abortRebase(RepoEntry repo, std::stop_token cancellation) {
    qCDebug(lcOps, "abortRebase: %s", repo.path.c_str());
    return queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        MergeCommands::abortRebase(git, repoPath);
    });
}

QCoro::Task<void> NativeGitService::abortCherryPick(RepoEntry repo, std::stop_token cancellation) {
    qCDebug(lcOps, "abortCherryPick: %s", repo.path.c_str());
    return queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        MergeCommands::abortCherryPick(git, repoPath);
    });
}

QCoro::Task<void> NativeGitService::abortRevert(RepoEntry repo, std::stop_token cancellation) {
    qCDebug(lcOps, "abortRevert: %s", repo.path.c_str());
    return queued(repo.path, cancellation, [](GitExecutorProtocol& git, const std::string& repoPath) {
        MergeCommands::abortRevert(git, repoPath);
    });
}

QCoro::Task<InteractiveRebaseResult> NativeGitService::rebaseContinue(RepoEntry repo,
                                                                      std::stop_token cancellation) {
    qCDebug(lcOps, "rebaseContinue: %s", repo.path.c_str());
    return resuming(repo.path, cancellation, [repo](GitExecutorProtocol& git, const std::string&) {
        return MergeCommands::rebaseContinue(git, repo);
    });
}

QCoro::Task<InteractiveRebaseResult> NativeGitService::rebaseSkip(RepoEntry repo,
                                                                  std::stop_token cancellation) {
    qCDebug(lcOps, "rebaseSkip: %s", repo.path.c_str());
    return resuming(repo.path, cancellation, [repo](GitExecutorProtocol& git, const std::string&) {
        return MergeCommands::rebaseSkip(git, repo);
    });
}

QCoro::Task<std::vector<std::string>> NativeGitService::mergedBranches(RepoEntry repo, std::string target,
                                                                       std::stop_token cancellation) {
    qCDebug(lcRefs, "mergedBranches: into %s in %s", target.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [target](GitExecutorProtocol& git, const std::string& repoPath) {
        return BranchCommands::mergedBranches(git, repoPath, target);
    });
}

} // namespace orvel
