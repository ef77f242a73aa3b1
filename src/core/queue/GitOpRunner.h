// Keeps the git operations of one repository strictly in submission order while different
// repositories run side by side. Each repository path has a chain of operations; only its last
// entry (the tail) is kept, and a finished operation hands the pool its successor, so no thread
// ever waits for another operation.
#pragma once

#include "core/queue/BackgroundWork.h"
#include "core/queue/CrossThreadResult.h"
#include "core/queue/OperationCancelled.h"
#include "core/queue/WorkerPool.h"

#include <QCoro/QCoroTask>

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <type_traits>
#include <unordered_map>

namespace orvel {

class GitOpRunner {
  public:
    // Runs one queued operation; answers whether it ended without an error, for the end log.
    using Job = std::function<bool()>;

    explicit GitOpRunner(std::size_t maxThreads = WorkerPool::defaultMaxThreads);
    // Ends the queue with the program: the running blocks' children are killed, so those blocks end
    // with that error; the blocks still queued are dropped unrun and their awaiters get
    // OperationCancelled. Awaiters resume only through their own thread's event loop.
    ~GitOpRunner();

    // Queues `block` behind every earlier operation of `repoPath` and awaits its value or error.
    // The submission happens at the call, before the first suspension.
    template <typename Block>
    auto serializedExecute(std::string repoPath, Block block, std::stop_token cancellation = {})
        -> QCoro::Task<std::invoke_result_t<Block&>> {
        using Value = std::invoke_result_t<Block&>;
        auto result = std::make_shared<CrossThreadResult<Value>>();
        // The promise lives in the job alone: dropping the job unrun must destroy it.
        auto job = [promise = std::make_shared<typename CrossThreadResult<Value>::Promise>(result),
                    block = std::move(block)]() mutable { return promise->run(block); };
        enqueue(repoPath, std::move(job), cancellation);
        typename CrossThreadResult<Value>::Awaiter awaiter{result};
        co_return co_await awaiter;
    }

    // Runs `block` on the worker pool outside every repository's queue, for the few look-ups
    // that must not wait behind a repository's operations.
    template <typename Block>
    auto runUnqueued(Block block) -> QCoro::Task<std::invoke_result_t<Block&>> {
        return runOnPool(pool_, std::move(block));
    }

    // The queue itself: throws OperationCancelled, before a nonce is taken, when `cancellation`
    // has been triggered; otherwise returns the nonce of the queued job.
    std::uint64_t enqueue(const std::string& repoPath, Job job, std::stop_token cancellation = {});

    // The nonce of the last queued operation of `repoPath`, while it has work queued or running.
    std::optional<std::uint64_t> tailNonce(const std::string& repoPath) const;
    std::size_t tailCount() const;

  private:
    struct Operation;

    void start(std::shared_ptr<Operation> operation);
    void run(const std::shared_ptr<Operation>& operation);

    mutable std::mutex mutex_;
    std::unordered_map<std::string, std::shared_ptr<Operation>> tails_;
    std::uint64_t nextNonce_ = 0;
    WorkerPool pool_; // last: its threads finish before the state above goes away
};

} // namespace orvel
