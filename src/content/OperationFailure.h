// Awaiting a service operation whose only answer is success or failure, for the sheets that turn a
// failure into a line of text: the text comes back already redacted, fit for the log and the user.
#pragma once

#include "core/support/Log.h"

#include <QCoro/QCoroTask>

#include <exception>
#include <optional>
#include <string>

namespace orvel {

// Nothing when `operation` succeeded; otherwise its error text with paths taken out.
inline QCoro::Task<std::optional<std::string>> failureOf(QCoro::Task<void> operation) {
    try {
        co_await std::move(operation);
    } catch (const std::exception& error) {
        co_return redactForLog(error.what());
    }
    co_return std::nullopt;
}

} // namespace orvel
