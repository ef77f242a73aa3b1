#include "core/queue/WorkerPool.h"

#include "core/process/ChildProcess.h"

#include <algorithm>
#include <utility>

namespace orvel {

WorkerPool::WorkerPool(std::size_t maxThreads) : maxThreads_(std::max<std::size_t>(1, maxThreads)) {}

WorkerPool::~WorkerPool() {
    std::deque<Job> dropped;
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
        dropped.swap(jobs_);
    }
    teardown_.request_stop();
    wake_.notify_all();
    dropped.clear(); // outside the lock: what the jobs captured may complete awaiters
    for (auto& thread : threads_)
        thread.join();
}

void WorkerPool::post(Job job) {
    {
        std::lock_guard lock(mutex_);
        if (stopping_)
            return; // `job` goes at the return, outside the lock
        jobs_.push_back(std::move(job));
        if (jobs_.size() > idle_ && threads_.size() < maxThreads_)
            threads_.emplace_back([this] { work(); });
    }
    wake_.notify_one();
}

void WorkerPool::work() {
    const ChildTeardownScope teardown(teardown_.get_token());
    std::unique_lock lock(mutex_);
    for (;;) {
        ++idle_;
        wake_.wait(lock, [this] { return stopping_ || !jobs_.empty(); });
        --idle_;
        if (stopping_)
            return;
        Job job = std::move(jobs_.front());
        jobs_.pop_front();
        lock.unlock();
        job();
        job = nullptr; // its captures end with the job, before the lock is taken again
        lock.lock();
    }
}

} // namespace orvel
