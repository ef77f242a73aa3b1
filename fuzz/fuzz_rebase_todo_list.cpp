// Feeds arbitrary bytes to the reader of `log --oneline` for an interactive rebase, which must
// read or drop every line without crashing.
#include "core/parsers/RebaseTodoListParser.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto entries = orvel::GitOutputParser::parseRebaseTodoList(text);
    // A line makes at most one entry, and only a line holding a blank makes one.
    const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
    if (entries.size() > lines ||
        entries.size() > static_cast<std::size_t>(std::count(text.begin(), text.end(), ' ')))
        __builtin_trap();
    for (const auto& entry : entries) {
        if (entry.hash.empty() || entry.hash.find_first_of(" \n") != std::string::npos)
            __builtin_trap();
        if (entry.subject.find('\n') != std::string::npos || entry.subject.ends_with(' ') ||
            entry.subject.ends_with('\t'))
            __builtin_trap();
        if (entry.action != orvel::RebaseAction::pick || entry.id.isNull() || entry.rewordMessage ||
            entry.execCommand)
            __builtin_trap();
    }
    return 0;
}
