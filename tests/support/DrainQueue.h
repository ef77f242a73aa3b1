// Ending the runner drops queued git work and abandons the coroutines awaiting it. A test whose
// models still load when it ends lets that work finish first, so every coroutine frame completes.
#pragma once

#include "core/queue/GitOpRunner.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

namespace orvel::test {

// Waits until the queue has stayed empty over a few rounds of events: a resumed load may queue
// more work (a graph load queues the commit-graph write).
inline void drainQueue(const GitOpRunner& runner) {
    QDeadlineTimer deadline(30000);
    for (int quietRounds = 0; quietRounds < 5 && !deadline.hasExpired();) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(10);
        quietRounds = runner.tailCount() == 0 ? quietRounds + 1 : 0;
    }
}

} // namespace orvel::test
