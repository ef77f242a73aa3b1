// The value or error of work done on another thread, awaited by a coroutine. The awaiting
// coroutine resumes on its own thread, through that thread's event loop.
#pragma once

#include "core/queue/CoroutineResumer.h"

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
    template <typename Block>
    void complete(Block& block) {
        try {
            if constexpr (std::is_void_v<T>)
                block();
            else
                value_.emplace(block());
        } catch (...) {
            error_ = std::current_exception();
        }
        std::coroutine_handle<> waiter;
        CoroutineResumer* resumer = nullptr;
        {
            std::lock_guard lock(mutex_);
            done_ = true;
            waiter = waiter_;
            resumer = resumer_;
        }
        if (waiter)
            resumer->post(waiter);
    }

    bool failed() const {
        std::lock_guard lock(mutex_);
        return error_ != nullptr;
    }

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

    mutable std::mutex mutex_;
    bool done_ = false;
    std::optional<Stored> value_;
    std::exception_ptr error_;
    std::coroutine_handle<> waiter_;
    CoroutineResumer* resumer_ = nullptr;
};

} // namespace orvel
