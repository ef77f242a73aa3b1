// A repository with a bare origin for the sidebar's tests over the real git: "main" and the
// pushed "feature/login" (which exists on the origin only), and "topic", a local branch with a
// commit that "main" lacks. Every argument list git runs is recorded.
#pragma once

#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "sidebar/SidebarViewModel.h"
#include "support/DrainQueue.h"
#include "support/GitFixture.h"
#include "notices/ToastManager.h"

#include <mutex>

namespace orvel::test {

class CountingExecutor final : public GitExecutorProtocol {
  public:
    explicit CountingExecutor(std::shared_ptr<GitExecutorProtocol> git) : git_(std::move(git)) {}

    std::string execute(const Arguments& arguments, const std::string& repoPath) override {
        record(arguments);
        return git_->execute(arguments, repoPath);
    }
    std::string executeWithEnvironment(const Arguments& arguments, const std::string& repoPath,
                                       const Environment& environment) override {
        record(arguments);
        return git_->executeWithEnvironment(arguments, repoPath, environment);
    }
    void executeStreaming(const Arguments& arguments, const std::string& repoPath,
                          const std::function<void(std::string_view)>& consume) override {
        record(arguments);
        git_->executeStreaming(arguments, repoPath, consume);
    }
    std::string resolvedGitPath() override { return git_->resolvedGitPath(); }
    std::string gitVersion() override { return git_->gitVersion(); }
    void setGitPathOverride(const std::optional<std::string>& path) override {
        git_->setGitPathOverride(path);
    }

    std::vector<Arguments> takeCalls() {
        std::lock_guard lock(mutex_);
        return std::exchange(calls_, {});
    }

  private:
    void record(const Arguments& arguments) {
        std::lock_guard lock(mutex_);
        calls_.push_back(arguments);
    }
    std::shared_ptr<GitExecutorProtocol> git_;
    std::mutex mutex_;
    std::vector<Arguments> calls_;
};

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
