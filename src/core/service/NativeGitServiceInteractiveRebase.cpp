// The interactive rebase operations of the git service. The whole run of a plan (writing the todo
// file and scripts, git itself, reading where it stopped, removing the files) is one block of the
// repository's queue, so no other operation of this program slips in between. Each block's task is
// made in a statement of its own (see NativeGitService.cpp).
#include "core/commands/InteractiveRebaseCommands.h"
#include "core/service/NativeGitService.h"
#include "core/support/Log.h"

namespace orvel {

QCoro::Task<std::vector<RebaseTodoEntry>> NativeGitService::rebaseTodoList(RepoEntry repo, std::string onto) {
    qCDebug(lcOps, "rebaseTodoList: %s in %s", onto.c_str(), repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, path = repo.path, onto] {
        return InteractiveRebaseCommands::rebaseTodoList(*git, path, onto);
    });
    co_return co_await std::move(task);
}

QCoro::Task<InteractiveRebaseResult> NativeGitService::interactiveRebase(RepoEntry repo, RebasePlan plan) {
    qCDebug(lcOps, "interactiveRebase: onto %s with %ld entries in %s", plan.onto.c_str(),
            static_cast<long>(plan.entries.size()), repo.path.c_str());
    auto task = opRunner_->serializedExecute(repo.path, [git = executor_, repo, plan = std::move(plan)] {
        return InteractiveRebaseCommands::interactiveRebase(*git, repo, plan);
    });
    co_return co_await std::move(task);
}

} // namespace orvel
