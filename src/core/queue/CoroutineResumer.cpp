#include "core/queue/CoroutineResumer.h"

#include <memory>

namespace orvel {

CoroutineResumer* CoroutineResumer::forCurrentThread() {
    thread_local std::unique_ptr<CoroutineResumer> resumer = std::make_unique<CoroutineResumer>();
    return resumer.get();
}

void CoroutineResumer::post(std::coroutine_handle<> handle) {
    bool wake = false;
    {
        std::lock_guard lock(mutex_);
        wake = pending_.empty(); // otherwise a wake-up is already on its way
        pending_.push_back(handle);
    }
    // A coroutine that is never resumed would hang its caller without a word, so this must not fail.
    if (wake && !QMetaObject::invokeMethod(this, "resumePending", Qt::QueuedConnection))
        qFatal("CoroutineResumer: could not queue a resumption");
}

void CoroutineResumer::resumePending() {
    std::vector<std::coroutine_handle<>> ready;
    {
        std::lock_guard lock(mutex_);
        ready.swap(pending_);
    }
    for (auto handle : ready)
        handle.resume();
}

} // namespace orvel
