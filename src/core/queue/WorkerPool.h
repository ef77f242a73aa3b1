// A fixed set of threads for blocking work (child processes, file reads). More threads than cores,
// because the work mostly waits on git.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace orvel {

class WorkerPool {
public:
    explicit WorkerPool(std::size_t threadCount);
    ~WorkerPool(); // runs what is queued, then joins
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    void post(std::function<void()> job);

    // Four threads a core, at least eight.
    static std::size_t defaultThreadCount();

private:
    void work();

    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<std::function<void()>> jobs_;
    bool stopping_ = false;
    std::vector<std::thread> threads_;
};

} // namespace orvel
