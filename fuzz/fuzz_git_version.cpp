// Feeds arbitrary bytes to the reader of `git --version`, which must answer one word of git's own
// line or nothing.
#include "core/parsers/GitVersionParser.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto version = orvel::GitOutputParser::parseGitVersion(text);
    if (!version)
        return 0;
    if (version->empty() || version->find_first_of(" \n") != std::string::npos)
        __builtin_trap();
    const auto start = text.find_first_not_of(" \t\r\n\v\f");
    if (start == std::string_view::npos || !text.substr(start).starts_with("git version "))
        __builtin_trap();
    return 0;
}
