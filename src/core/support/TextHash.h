// Hashes texts by view, so that containers of strings are searched with a string_view and no copy.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace orvel {

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

using TextSet = std::unordered_set<std::string, TextHash, std::equal_to<>>;

} // namespace orvel
