// The program's version, from the one place it is set: the project's version in CMake.
#pragma once

#include <string_view>

namespace orvel {

inline constexpr std::string_view orvelVersion = ORVEL_VERSION;

} // namespace orvel
