// Waiting in a test for something that happens through the event loop or another thread.
#pragma once

#include <QCoreApplication>

#include <chrono>

namespace orvel::test {

// Spins the event loop until `condition` holds; false after the time-out.
template <typename Condition>
bool eventually(Condition condition, std::chrono::seconds timeout = std::chrono::seconds(20)) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    }
    return true;
}

} // namespace orvel::test
