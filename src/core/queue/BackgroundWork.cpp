#include "core/queue/BackgroundWork.h"

namespace orvel {

WorkerPool& backgroundPool() {
    static WorkerPool pool(WorkerPool::defaultThreadCount());
    return pool;
}

} // namespace orvel
