// Refuses words that git would take for options where the command line has no "--" to put them
// behind: ref names, hashes and remote names placed as plain arguments.
#pragma once

#include "core/service/GitServiceError.h"

#include <string>

namespace orvel {

// Throws invalidInput, before any git runs, when `value` begins with "-".
inline void refuseOptionLike(const std::string& value, const char* what) {
    if (!value.empty() && value.front() == '-')
        throw GitServiceError::invalidInput(std::string(what) + " must not begin with '-': " + value);
}

} // namespace orvel
