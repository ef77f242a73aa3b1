// Feeds arbitrary bytes to the reader of undo entries, which must read or drop them without
// crashing; what it reads must write back to the same bytes.
#include "core/commands/UndoEntryFormat.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto entry = orvel::parseUndoEntry(bytes, "1");
    if (entry && orvel::parseUndoEntry(orvel::formatUndoEntry(*entry), "1") != entry)
        __builtin_trap();
    return 0;
}
