// Feeds arbitrary bytes to the readers of index entries and of a tree's blob sizes, which must
// read or drop them without crashing.
#include "core/parsers/StagedBlobParser.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const auto& record : orvel::GitOutputParser::parseIndexRecords(text))
        if (record.path.empty() || record.path.find('\0') != std::string::npos || record.stage < 0 ||
            record.stage > 3)
            __builtin_trap();
    for (const auto& [name, blobSize] : orvel::GitOutputParser::parseTreeBlobSizes(text))
        if (name.empty() || name.find('\0') != std::string::npos)
            __builtin_trap();
    return 0;
}
