// Catches the error that an action must throw, so that a test can check it in one expression.
#pragma once

#include "core/service/GitServiceError.h"

#include <gtest/gtest.h>

#include <exception>
#include <string>

namespace orvel::test {

// Runs `action` and answers the GitServiceError it threw; a test failure when it threw none.
template <typename Action>
GitServiceError serviceError(Action&& action) {
    try {
        action();
    } catch (const GitServiceError& error) {
        return error;
    }
    ADD_FAILURE() << "no GitServiceError was thrown";
    return GitServiceError::parseFailed("test", "nothing thrown");
}

// The text of whatever `action` threw; "no error" when it threw nothing.
template <typename Action>
std::string thrownText(Action&& action) {
    try {
        action();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "no error";
}

} // namespace orvel::test
