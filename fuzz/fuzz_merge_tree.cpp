// Feeds arbitrary bytes to the readers of merge-tree's and log's output in the merge prediction,
// which must read or refuse every input without crashing.
#include "core/parsers/MergeTreeParser.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orvel::GitOutputParser;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto merged = parseMergeTree(text)) {
        // The tree is an object name, the files non-empty, sorted and each once.
        if (!isObjectName(merged->tree) || !std::is_sorted(merged->files.begin(), merged->files.end()) ||
            std::adjacent_find(merged->files.begin(), merged->files.end()) != merged->files.end())
            __builtin_trap();
        for (const auto& file : merged->files)
            if (file.empty() || file.find('\0') != std::string::npos)
                __builtin_trap();
    }
    for (const auto& record : parseCommitTrees(text)) {
        if (!isObjectName(record.hash) || !isObjectName(record.tree))
            __builtin_trap();
        for (const auto& parent : record.parents)
            if (!isObjectName(parent))
                __builtin_trap();
    }
    return 0;
}
