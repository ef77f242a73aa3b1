// Feeds arbitrary bytes to the commit graph parser, which must read or drop them without crashing,
// and checks what it keeps against the input it came from.
#include "core/parsers/LogParser.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    static const orvel::RemoteNameSet remotes{"origin", "upstream"};
    for (const auto& commit : orvel::GitOutputParser::parseCommitGraph(text, remotes)) {
        if (commit.hash.empty() || commit.hash.size() > size || commit.authors.size() != 1)
            __builtin_trap();
        for (const auto& parent : commit.parentHashes) {
            if (parent.empty() || parent.find(' ') != std::string::npos)
                __builtin_trap();
        }
        for (const auto& ref : commit.refs) {
            if (ref.name.empty() && ref.type == orvel::GraphRefType::remoteBranch)
                __builtin_trap();
        }
    }
    return 0;
}
