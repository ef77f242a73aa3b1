// Blocking work run on a pool thread and awaited by a coroutine, which resumes on its own thread.
// The hand-off goes through CrossThreadResult's standard mutex, which ThreadSanitizer sees.
#pragma once

#include "core/queue/CrossThreadResult.h"
#include "core/queue/WorkerPool.h"

#include <QCoro/QCoroTask>

#include <memory>
#include <type_traits>
#include <utility>

namespace orvel {

// Posts `block` to `pool` at the call (the task is eager) and hands back its value or error.
template <typename Block>
auto runOnPool(WorkerPool& pool, Block block) -> QCoro::Task<std::invoke_result_t<Block&>> {
    using Value = std::invoke_result_t<Block&>;
    auto result = std::make_shared<CrossThreadResult<Value>>();
    // The promise lives in the job alone: dropping the job unrun must destroy it.
    pool.post([promise = std::make_shared<typename CrossThreadResult<Value>::Promise>(result),
               block = std::move(block)]() mutable { promise->run(block); });
    typename CrossThreadResult<Value>::Awaiter awaiter{result};
    co_return co_await awaiter;
}

// The pool for blocking work of view models that belongs to no repository's queue, such as
// reading a working-tree file. Made at the first use; it ends with the application object, while
// the interface thread that awaits its work still has the resumer that its results post to.
WorkerPool& backgroundPool();

} // namespace orvel
