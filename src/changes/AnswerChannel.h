// A one-shot yes-or-no answer that a coroutine awaits while the user decides: the first answer
// wins, later ones do nothing. The waiting coroutine resumes from the event loop, never inside the
// call that answered, so whoever answers (a button, a closing tab) is never re-entered.
#pragma once

#include <QCoreApplication>

#include <coroutine>
#include <memory>
#include <optional>

namespace orvel {

class AnswerChannel : public std::enable_shared_from_this<AnswerChannel> {
  public:
    void answer(bool value) {
        if (value_)
            return;
        value_ = value;
        if (auto waiter = std::exchange(waiter_, {}))
            QMetaObject::invokeMethod(
                QCoreApplication::instance(), [waiter] { waiter.resume(); }, Qt::QueuedConnection);
    }

    bool isAnswered() const { return value_.has_value(); }

    struct Awaiter {
        std::shared_ptr<AnswerChannel> channel;
        bool await_ready() const { return channel->value_.has_value(); }
        void await_suspend(std::coroutine_handle<> handle) { channel->waiter_ = handle; }
        bool await_resume() const { return *channel->value_; }
    };

    Awaiter operator co_await() { return Awaiter{shared_from_this()}; }

  private:
    std::optional<bool> value_;
    std::coroutine_handle<> waiter_;
};

} // namespace orvel
