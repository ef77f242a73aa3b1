// The real git behind an executor that records every argument list it runs, and that can report
// another git version than the program's, as an older git would.
#pragma once

#include "core/process/GitExecutorProtocol.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace orvel::test {

class CountingExecutor final : public GitExecutorProtocol {
  public:
    explicit CountingExecutor(std::shared_ptr<GitExecutorProtocol> git,
                              std::optional<std::string> version = std::nullopt)
        : git_(std::move(git)), version_(std::move(version)) {}

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
    std::string gitVersion() override { return version_ ? *version_ : git_->gitVersion(); }
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
    std::optional<std::string> version_;
    std::mutex mutex_;
    std::vector<Arguments> calls_;
};

} // namespace orvel::test
