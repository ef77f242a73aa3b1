// Feeds arbitrary bytes to the unified-diff and name-status parsers, which must read or skip them
// without crashing, and whose records must agree with themselves.
#include "core/parsers/DiffParser.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const orvel::DiffResult diff = orvel::GitOutputParser::parseDiff(std::string(text));
    for (const auto& file : diff.files) {
        int additions = 0, deletions = 0;
        for (const auto& hunk : file.hunks) {
            for (const auto& line : hunk.lines) {
                using orvel::DiffLineType;
                const bool hasOld = line.type == DiffLineType::context || line.type == DiffLineType::deletion;
                const bool hasNew = line.type == DiffLineType::context || line.type == DiffLineType::addition;
                if (line.oldLineNumber.has_value() != hasOld || line.newLineNumber.has_value() != hasNew ||
                    line.content.size() > size)
                    __builtin_trap();
                additions += line.type == DiffLineType::addition;
                deletions += line.type == DiffLineType::deletion;
            }
        }
        if (additions != file.additions || deletions != file.deletions || (file.isBinary && size == 0))
            __builtin_trap();
    }
    for (const auto& change : orvel::GitOutputParser::parseNameStatus(text)) {
        if (change.path.empty() || change.path.size() > size)
            __builtin_trap();
    }
    return 0;
}
