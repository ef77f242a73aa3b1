// Feeds arbitrary bytes to the remote list parser, which must read or drop them without crashing.
#include "core/parsers/RemoteParser.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto remotes = orvel::GitOutputParser::parseRemotes(text);
    if (remotes.size() > static_cast<std::size_t>(std::count(text.begin(), text.end(), '\t')))
        __builtin_trap();
    for (std::size_t i = 0; i < remotes.size(); ++i) {
        // Names come before the first tab of a line, so they can hold neither a tab nor a newline.
        if (remotes[i].name.find_first_of("\t\n") != std::string::npos)
            __builtin_trap();
        if (i > 0 && !(remotes[i - 1].name < remotes[i].name))
            __builtin_trap();
    }
    return 0;
}
