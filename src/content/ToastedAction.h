// The shape that the sidebar's actions and the workspace commands share: run one service
// operation; on failure log "<logOp> reason=<text>" and show an error toast of `failureFormat`
// filled with the error's description. The caller goes on with the value (its notice, its reload).
#pragma once

#include "core/support/Log.h"
#include "notices/ToastManager.h"
#include "settings/LocalizationManager.h"

#include <QCoro/QCoroTask>

#include <exception>
#include <optional>
#include <string>

namespace orvel {

// The operation's value, or nothing after a failure, which is logged and told. `logOp` is taken by
// value, since the task outlives the caller's temporaries; `failureFormat` is a literal.
template <typename T>
QCoro::Task<std::optional<T>> attempt(QCoro::Task<T> operation, ToastManager& toasts, std::string logOp,
                                      const char* failureFormat) {
    try {
        co_return std::optional<T>(co_await std::move(operation));
    } catch (const std::exception& error) {
        qCDebug(lcOps, "%s reason=%s", logOp.c_str(), redactForLog(error.what()).c_str());
        toasts.show(localized(failureFormat, QString::fromUtf8(error.what())), ToastType::error);
        co_return std::nullopt;
    }
}

inline QCoro::Task<bool> succeeded(QCoro::Task<void> operation) {
    co_await std::move(operation);
    co_return true;
}

// An operation without a value: true once it succeeded.
inline QCoro::Task<std::optional<bool>> attempt(QCoro::Task<void> operation, ToastManager& toasts,
                                                std::string logOp, const char* failureFormat) {
    return attempt(succeeded(std::move(operation)), toasts, std::move(logOp), failureFormat);
}

} // namespace orvel
