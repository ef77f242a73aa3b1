#include "core/queue/WorkerPool.h"

#include <algorithm>

namespace orvel {

WorkerPool::WorkerPool(std::size_t threadCount) {
    threads_.reserve(threadCount);
    for (std::size_t i = 0; i < threadCount; ++i)
        threads_.emplace_back([this] { work(); });
}

WorkerPool::~WorkerPool() {
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    wake_.notify_all();
    for (auto& thread : threads_)
        thread.join();
}

std::size_t WorkerPool::defaultThreadCount() {
    return std::max<std::size_t>(8, 4 * std::max(1u, std::thread::hardware_concurrency()));
}

void WorkerPool::post(std::function<void()> job) {
    {
        std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
    }
    wake_.notify_one();
}

void WorkerPool::work() {
    for (;;) {
        std::function<void()> job;
        {
            std::unique_lock lock(mutex_);
            wake_.wait(lock, [this] { return stopping_ || !jobs_.empty(); });
            if (jobs_.empty())
                return;
            job = std::move(jobs_.front());
            jobs_.pop_front();
        }
        job();
    }
}

} // namespace orvel
