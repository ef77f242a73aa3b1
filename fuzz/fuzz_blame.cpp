// Feeds arbitrary bytes to the blame parser, which must read or drop them without crashing.
#include "core/parsers/BlameParser.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::size_t contentLines = text.starts_with('\t') ? 1 : 0;
    for (std::size_t at = text.find("\n\t"); at != std::string_view::npos; at = text.find("\n\t", at + 1))
        ++contentLines;
    std::size_t lines = 0;
    for (const auto& entry : orvel::GitOutputParser::parseBlame(text)) {
        // Every entry holds at least one line, each from a content line of the input.
        if (entry.lines.empty() || entry.hash.size() != 40)
            __builtin_trap();
        lines += entry.lines.size();
    }
    if (lines > contentLines)
        __builtin_trap();
    return 0;
}
