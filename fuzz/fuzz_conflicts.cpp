// Feeds arbitrary bytes to the unmerged-entry parser, which must read or drop them without crashing.
#include "core/parsers/ConflictParser.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const auto& conflict : orvel::GitOutputParser::parseConflictFiles(text)) {
        if (conflict.path.empty() || conflict.path.find('\0') != std::string::npos || conflict.id.isNull())
            __builtin_trap();
    }
    return 0;
}
