// The interactive rebase operations of the git service. The whole run of a plan (writing the todo
// file and scripts, git itself, reading where it stopped, removing the files) is one block of the
// repository's queue, so no other operation of this program slips in between.
#include "core/commands/InteractiveRebaseCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

QCoro::Task<std::vector<RebaseTodoEntry>> NativeGitService::rebaseTodoList(RepoEntry repo, std::string onto,
                                                                           std::stop_token cancellation) {
    qCDebug(lcOps, "rebaseTodoList: %s in %s", onto.c_str(), repo.path.c_str());
    return queued(repo.path, cancellation, [onto](GitExecutorProtocol& git, const std::string& repoPath) {
        return InteractiveRebaseCommands::rebaseTodoList(git, repoPath, onto);
    });
}

QCoro::Task<InteractiveRebaseResult> NativeGitService::interactiveRebase(RepoEntry repo, RebasePlan plan,
                                                                         std::stop_token cancellation) {
    qCDebug(lcOps, "interactiveRebase: onto %s with %ld entries in %s", plan.onto.c_str(),
            static_cast<long>(plan.entries.size()), repo.path.c_str());
    return journalled(repo.path, cancellation, UndoAction::rebase, {}, {}, &UndoJournal::checkedOutRefs,
                      [repo, plan = std::move(plan)](GitExecutorProtocol& git, const std::string&) {
                          return InteractiveRebaseCommands::interactiveRebase(git, repo, plan);
                      });
}

} // namespace orvel
