#include "core/queue/GitOpRunner.h"

#include "core/support/Log.h"

namespace orvel {

struct GitOpRunner::Operation {
    std::uint64_t nonce = 0;
    std::string repoPath;
    Job job;
    bool finished = false;
    std::shared_ptr<Operation> successor;
};

GitOpRunner::GitOpRunner(std::size_t maxThreads) : pool_(maxThreads) {}

GitOpRunner::~GitOpRunner() = default;

std::uint64_t GitOpRunner::enqueue(const std::string& repoPath, Job job, std::stop_token cancellation) {
    auto operation = std::make_shared<Operation>();
    operation->repoPath = repoPath;
    operation->job = std::move(job);
    bool startNow = false;
    {
        std::lock_guard lock(mutex_);
        if (cancellation.stop_requested())
            throw OperationCancelled();
        operation->nonce = nextNonce_++;
        qCDebug(lcGit, "op=git.execute.start nonce=%llu", static_cast<unsigned long long>(operation->nonce));
        auto& tail = tails_[repoPath];
        if (tail && !tail->finished)
            tail->successor = operation;
        else
            startNow = true;
        tail = operation;
    }
    if (startNow)
        start(operation);
    return operation->nonce;
}

void GitOpRunner::start(std::shared_ptr<Operation> operation) {
    pool_.post([this, operation = std::move(operation)] { run(operation); });
}

void GitOpRunner::run(const std::shared_ptr<Operation>& operation) {
    const bool ok = operation->job();
    qCDebug(lcGit, "op=git.execute.end nonce=%llu status=%s",
            static_cast<unsigned long long>(operation->nonce), ok ? "ok" : "error");
    operation->job = nullptr; // the block's captures end with the operation
    std::shared_ptr<Operation> successor;
    {
        std::lock_guard lock(mutex_);
        operation->finished = true;
        successor = std::move(operation->successor);
        // A newer operation owns the tail when the nonces differ.
        auto tail = tails_.find(operation->repoPath);
        if (tail != tails_.end() && tail->second->nonce == operation->nonce)
            tails_.erase(tail);
    }
    if (successor)
        start(std::move(successor));
}

std::optional<std::uint64_t> GitOpRunner::tailNonce(const std::string& repoPath) const {
    std::lock_guard lock(mutex_);
    auto tail = tails_.find(repoPath);
    if (tail == tails_.end())
        return std::nullopt;
    return tail->second->nonce;
}

std::size_t GitOpRunner::tailCount() const {
    std::lock_guard lock(mutex_);
    return tails_.size();
}

} // namespace orvel
