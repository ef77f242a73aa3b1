// Catches the GitServiceError that an action must throw, so that a test can check its case and
// payload in one expression.
#pragma once

#include "core/service/GitServiceError.h"

#include <gtest/gtest.h>

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

} // namespace orvel::test
