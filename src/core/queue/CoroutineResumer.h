// Resumes suspended coroutines on the thread that awaits them. A worker thread adds the handle to
// the resumer of the awaiting thread under a mutex and wakes that thread with a queued call, so
// the handle crosses threads through a lock that every checker sees.
#pragma once

#include <QObject>

#include <coroutine>
#include <mutex>
#include <vector>

namespace orvel {

class CoroutineResumer final : public QObject {
    Q_OBJECT

public:
    // The resumer that lives in the calling thread (made at the first call there).
    static CoroutineResumer* forCurrentThread();

    // Thread-safe: queues the resumption of `handle` on this resumer's thread.
    void post(std::coroutine_handle<> handle);

private slots:
    void resumePending();

private:
    std::mutex mutex_;
    std::vector<std::coroutine_handle<>> pending_;
};

} // namespace orvel
