// Runs a coroutine to its end in a nested event loop and hands back its value or rethrows its
// error. (QCoro::waitFor never returns when the awaited task throws.)
#pragma once

#include <QCoro/QCoroTask>

#include <exception>
#include <optional>
#include <type_traits>
#include <utility>

namespace orvel::test {

namespace detail {

template <typename T>
QCoro::Task<void> capture(QCoro::Task<T> task, std::optional<std::conditional_t<std::is_void_v<T>, bool, T>>* value,
                          std::exception_ptr* error) {
    try {
        if constexpr (std::is_void_v<T>) {
            co_await std::move(task);
            value->emplace(true);
        } else {
            value->emplace(co_await std::move(task));
        }
    } catch (...) {
        *error = std::current_exception();
    }
}

} // namespace detail

template <typename T>
T await(QCoro::Task<T> task) {
    std::optional<std::conditional_t<std::is_void_v<T>, bool, T>> value;
    std::exception_ptr error;
    QCoro::waitFor(detail::capture(std::move(task), &value, &error));
    if (error)
        std::rethrow_exception(error);
    if constexpr (!std::is_void_v<T>)
        return std::move(*value);
}

} // namespace orvel::test
