// Feeds arbitrary bytes to the branch listing parser, which must read or drop them without crashing.
#include "core/parsers/RefParsers.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto branches = orvel::GitOutputParser::parseBranches(text);
    // One branch a line at most, and no field reaches over a line's end.
    if (branches.size() > static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1)
        __builtin_trap();
    for (const auto& branch : branches) {
        if (branch.name.find('\n') != std::string::npos || branch.hash.find('\0') != std::string::npos ||
            branch.isRemote != branch.fullRefName.starts_with("refs/remotes/"))
            __builtin_trap();
        if (branch.upstream &&
            (branch.upstream->name.empty() ||
             (branch.upstream->isGone && (branch.upstream->ahead || branch.upstream->behind))))
            __builtin_trap();
    }
    return 0;
}
