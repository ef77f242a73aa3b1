// Feeds arbitrary bytes to the commit history parser, which must read or drop them without
// crashing; every entry it keeps has a hash of 7 to 64 hexadecimal characters.
#include "core/parsers/LogParser.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const auto& entry : orvel::GitOutputParser::parseCommitHistory(text)) {
        if (entry.hash.size() < 7 || entry.hash.size() > 64 ||
            entry.hash.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
            __builtin_trap();
        for (const auto& ref : entry.refs) {
            if (ref.empty())
                __builtin_trap();
        }
    }
    return 0;
}
