// Threads for blocking work (child processes, file reads). A thread is added whenever work arrives
// while every thread is busy, up to a limit: a run that waits on a person or on a hung remote holds
// its thread, and must not hold back the work of other repositories. Threads stay until the pool
// ends.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace orvel {

class WorkerPool {
  public:
    using Job = std::function<void()>;

    // Far more than cores: nearly every job waits on git, and the threads run side by side only
    // when that many repositories have work at once.
    static constexpr std::size_t defaultMaxThreads = 64;

    explicit WorkerPool(std::size_t maxThreads = defaultMaxThreads);
    // Kills the children that running jobs wait on, drops the jobs that have not started and joins
    // the threads, which end promptly: every wait of a job is a child process.
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    // Runs `job` on a pool thread. Once the pool has begun to end, the job is dropped unrun; its
    // owner learns that from the destruction of what it captured.
    void post(Job job);

  private:
    void work();

    const std::size_t maxThreads_;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<Job> jobs_;
    std::size_t idle_ = 0;
    bool stopping_ = false;
    std::stop_source teardown_;
    std::vector<std::thread> threads_;
};

} // namespace orvel
