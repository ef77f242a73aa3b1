// Feeds arbitrary bytes to the status parser, which must read or drop them without crashing.
#include "core/parsers/ConflictParser.h"
#include "core/parsers/StatusParser.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto files = orvel::GitOutputParser::parseStatusResult(text);
    for (const auto& file : files) {
        if (file.path.empty() || file.path.size() > size)
            __builtin_trap();
    }
    orvel::GitOutputParser::parseConflictFiles(text);
    return 0;
}
