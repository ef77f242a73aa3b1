// Feeds arbitrary bytes to the tag listing parser, which must read or drop them without crashing.
#include "core/parsers/RefParsers.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto tags = orvel::GitOutputParser::parseTags(text);
    if (tags.size() > static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1)
        __builtin_trap();
    for (const auto& tag : tags) {
        if (tag.name.find_first_of(std::string_view("\n\0", 2)) != std::string::npos ||
            (tag.targetHash && tag.targetHash->empty()))
            __builtin_trap();
    }
    return 0;
}
