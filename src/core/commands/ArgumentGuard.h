// Refuses user text that git would read as an option: names of branches, tags and remotes,
// revisions, targets and urls. Every such refusal reads the same; it happens before git runs,
// also where a "--" stands in front of the value.
#pragma once

#include "core/service/GitServiceError.h"

#include <string>
#include <string_view>

namespace orvel {

// Throws invalidInput naming `role` ("Branch name", "Start point"...) when `value` begins with "-".
inline void refuseOptionLike(std::string_view value, std::string_view role) {
    if (value.starts_with('-'))
        throw GitServiceError::invalidInput(std::string(role) +
                                            " must not begin with '-': " + std::string(value));
}

} // namespace orvel
