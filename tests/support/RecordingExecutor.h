// An executor that records every call and answers from a script, so that tests can assert the
// exact argument list of each operation without running git.
#pragma once

#include "core/process/GitExecutorProtocol.h"

#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace orvel::test {

class RecordingExecutor final : public GitExecutorProtocol {
  public:
    struct Call {
        Arguments arguments;
        std::string repoPath;
        Environment environment;
    };

    // Answers the next call with `output`, or with `error` thrown; unscripted calls answer "".
    void reply(std::string output);
    void fail(std::exception_ptr error);
    // Answers the next call as git failing in `command` does: a commandFailed error.
    void fail(const std::string& command);

    std::string execute(const Arguments& arguments, const std::string& repoPath) override;
    std::string executeWithEnvironment(const Arguments& arguments, const std::string& repoPath,
                                       const Environment& environment) override;
    std::string resolvedGitPath() override { return "/usr/bin/git"; }
    std::string gitVersion() override { return "git version 2.39.5"; }
    void setGitPathOverride(const std::optional<std::string>&) override {}

    std::vector<Call> calls() const;
    std::vector<Arguments> argumentLists() const;

  private:
    struct Reply {
        std::string output;
        std::exception_ptr error;
    };
    mutable std::mutex mutex_;
    std::deque<Reply> replies_;
    std::vector<Call> calls_;
};

} // namespace orvel::test
