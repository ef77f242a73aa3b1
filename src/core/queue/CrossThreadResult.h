// The value or error of work done on another thread, awaited by a coroutine. The awaiting
// coroutine resumes on its own thread, through that thread's event loop.
#pragma once

#include "core/queue/CoroutineResumer.h"
#include "core/queue/OperationCancelled.h"

#include <coroutine>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <type_traits>
#include <utility>

namespace orvel {

template <typename T>
class CrossThreadResult {
  public:
    // The producer's end, held by the job that runs the block. A job dropped before it ran (its
    // pool ended first) destroys it unfulfilled, and the awaiter then gets OperationCancelled, so
    // that no awaiter is left waiting for a block that will never run.
    class Promise {
      public:
        explicit Promise(std::shared_ptr<CrossThreadResult> result) : result_(std::move(result)) {}
        ~Promise() {
            if (!ran_)
                result_->deliver({}, std::make_exception_ptr(OperationCancelled()));
        }
        Promise(const Promise&) = delete;
        Promise& operator=(const Promise&) = delete;

        // Runs `block` and hands its value or error over; answers whether it ended without an error.
        template <typename Block>
        bool run(Block& block) {
            ran_ = true;
            try {
                if constexpr (std::is_void_v<T>) {
                    block();
                    result_->deliver(true, nullptr);
                } else {
                    result_->deliver(block(), nullptr);
                }
                return true;
            } catch (...) {
                result_->deliver({}, std::current_exception());
                return false;
            }
        }

      private:
        std::shared_ptr<CrossThreadResult> result_;
        bool ran_ = false;
    };

    struct Awaiter {
        std::shared_ptr<CrossThreadResult> result;

        bool await_ready() const {
            std::lock_guard lock(result->mutex_);
            return result->done_;
        }
        bool await_suspend(std::coroutine_handle<> handle) {
            CoroutineResumer* resumer = CoroutineResumer::forCurrentThread();
            std::lock_guard lock(result->mutex_);
            if (result->done_)
                return false;
            result->waiter_ = handle;
            result->resumer_ = resumer;
            return true;
        }
        T await_resume() {
            std::lock_guard lock(result->mutex_);
            if (result->error_)
                std::rethrow_exception(result->error_);
            if constexpr (!std::is_void_v<T>)
                return std::move(*result->value_);
        }
    };

  private:
    using Stored = std::conditional_t<std::is_void_v<T>, bool, T>;

    void deliver(std::optional<Stored> value, std::exception_ptr error) {
        std::coroutine_handle<> waiter;
        CoroutineResumer* resumer = nullptr;
        {
            std::lock_guard lock(mutex_);
            value_ = std::move(value);
            error_ = std::move(error);
            done_ = true;
            waiter = waiter_;
            resumer = resumer_;
        }
        if (waiter)
            resumer->post(waiter);
    }

    mutable std::mutex mutex_;
    bool done_ = false;
    std::optional<Stored> value_;
    std::exception_ptr error_;
    std::coroutine_handle<> waiter_;
    CoroutineResumer* resumer_ = nullptr;
};

} // namespace orvel
