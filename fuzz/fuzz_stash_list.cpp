// Feeds arbitrary bytes to the stash list parser, which must read or drop them without crashing.
#include "core/parsers/StashParser.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto stashes = orvel::GitOutputParser::parseStashList(text);
    if (stashes.size() > static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1)
        __builtin_trap();
    for (const auto& stash : stashes) {
        if (stash.includesIndex || stash.baseHash.find(' ') != std::string::npos ||
            (stash.branchName && stash.branchName->size() >= stash.message.size()))
            __builtin_trap();
    }
    return 0;
}
