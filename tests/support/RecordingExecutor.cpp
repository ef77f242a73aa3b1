#include "support/RecordingExecutor.h"

#include "core/service/GitServiceError.h"

namespace orvel::test {

void RecordingExecutor::reply(std::string output) {
    std::lock_guard lock(mutex_);
    replies_.push_back({std::move(output), nullptr});
}

void RecordingExecutor::fail(std::exception_ptr error) {
    std::lock_guard lock(mutex_);
    replies_.push_back({{}, std::move(error)});
}

void RecordingExecutor::fail(const std::string& command) {
    fail(std::make_exception_ptr(GitServiceError::commandFailed(command, "fatal: scripted\n")));
}

std::string RecordingExecutor::execute(const Arguments& arguments, const std::string& repoPath) {
    return executeWithEnvironment(arguments, repoPath, {});
}

std::string RecordingExecutor::executeWithEnvironment(const Arguments& arguments, const std::string& repoPath,
                                                      const Environment& environment) {
    Reply next;
    {
        std::lock_guard lock(mutex_);
        calls_.push_back({arguments, repoPath, environment});
        if (!replies_.empty()) {
            next = std::move(replies_.front());
            replies_.pop_front();
        }
    }
    if (next.error)
        std::rethrow_exception(next.error);
    return next.output;
}

std::vector<RecordingExecutor::Call> RecordingExecutor::calls() const {
    std::lock_guard lock(mutex_);
    return calls_;
}

std::vector<GitExecutorProtocol::Arguments> RecordingExecutor::argumentLists() const {
    std::lock_guard lock(mutex_);
    std::vector<Arguments> lists;
    for (const auto& call : calls_)
        lists.push_back(call.arguments);
    return lists;
}

} // namespace orvel::test
