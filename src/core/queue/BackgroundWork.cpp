#include "core/queue/BackgroundWork.h"

#include <QCoreApplication>

#include <mutex>

namespace orvel {

namespace {

std::mutex poolMutex;
WorkerPool* pool = nullptr;

void endBackgroundPool() {
    std::unique_ptr<WorkerPool> ending;
    {
        std::lock_guard lock(poolMutex);
        ending.reset(std::exchange(pool, nullptr));
    }
}

} // namespace

WorkerPool& backgroundPool() {
    std::lock_guard lock(poolMutex);
    if (!pool) {
        pool = new WorkerPool();
        // Runs in the application object's destructor, before the threads' resumers go.
        qAddPostRoutine(endBackgroundPool);
    }
    return *pool;
}

} // namespace orvel
