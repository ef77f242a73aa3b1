// A repository with a bare origin for the sidebar's tests over the real git: "main" and the
// pushed "feature/login" (which exists on the origin only), and "topic", a local branch with a
// commit that "main" lacks. Every argument list git runs is recorded.
#pragma once

#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "notices/ToastManager.h"
#include "sidebar/SidebarViewModel.h"
#include "support/CountingExecutor.h"
#include "support/DrainQueue.h"
#include "support/GitFixture.h"

namespace orvel::test {

struct SidebarOnRealGit {
    TempRepo origin{TempRepo::Kind::bare};
    TempRepo repo;
    InMemoryUserDefaults defaults;
    std::shared_ptr<CountingExecutor> executor =
        std::make_shared<CountingExecutor>(std::make_shared<SubprocessExecutor>(std::nullopt, defaults));
    std::shared_ptr<GitOpRunner> runner = std::make_shared<GitOpRunner>(2);
    std::shared_ptr<NativeGitService> service = std::make_shared<NativeGitService>(executor, runner);
    ToastManager toasts;
    SidebarViewModel sidebar{service, toasts};
    RepoEntry entry;

    SidebarOnRealGit() {
        repo.write("a.txt", "one\n");
        repo.commitAll("first");
        repo.git({"remote", "add", "origin", origin.path()});
        repo.git({"branch", "feature/login"});
        repo.git({"push", "-q", "origin", "main", "feature/login"});
        repo.git({"branch", "-D", "feature/login"});
        repo.git({"checkout", "-q", "-b", "topic"});
        repo.write("b.txt", "topic\n");
        repo.commitAll("topic work");
        repo.git({"checkout", "-q", "main"});
        entry.path = repo.path();
    }
    ~SidebarOnRealGit() { drainQueue(*runner); }

    QString lastToast() const { return toasts.toasts().empty() ? QString() : toasts.toasts().back().message; }
    const BranchEntry* find(const std::string& name) const {
        for (const auto* list : {&sidebar.localBranches(), &sidebar.remoteBranches()})
            for (const BranchEntry& branch : *list)
                if (branch.name == name)
                    return &branch;
        return nullptr;
    }
};

} // namespace orvel::test
