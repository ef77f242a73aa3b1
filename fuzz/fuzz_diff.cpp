// Feeds arbitrary bytes to the unified-diff and name-status parsers, which must read or skip them
// without crashing, whose records must agree with themselves, and whose stream reads the same
// records from the text in pieces; a file's submodule change is read from its lines.
#include "core/parsers/DiffParser.h"
#include "diff/SubmoduleChange.h"

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
        if (const auto submodule = orvel::submoduleChange(file);
            submodule && (submodule->oldHash.size() > size || submodule->newHash.size() > size))
            __builtin_trap();
    }
    // Fed in pieces (their size from the first byte), the stream reads the same records.
    orvel::GitOutputParser::DiffStreamParser stream;
    const std::size_t piece = size > 0 ? data[0] % 61 + 1 : 1;
    for (std::size_t at = 0; at < size; at += piece)
        stream.append(text.substr(at, piece));
    const orvel::DiffResult streamed = stream.finish();
    if (streamed.files.size() != diff.files.size())
        __builtin_trap();
    for (std::size_t f = 0; f < diff.files.size(); ++f) {
        const auto &left = diff.files[f], &right = streamed.files[f];
        if (left.newPath != right.newPath || left.status != right.status ||
            left.hunks.size() != right.hunks.size())
            __builtin_trap();
        for (std::size_t h = 0; h < left.hunks.size(); ++h) {
            const auto &one = left.hunks[h].lines, &other = right.hunks[h].lines;
            if (one.size() != other.size())
                __builtin_trap();
            for (std::size_t l = 0; l < one.size(); ++l)
                if (one[l].content != other[l].content || one[l].type != other[l].type ||
                    one[l].newLineNumber != other[l].newLineNumber)
                    __builtin_trap();
        }
    }
    for (const auto& change : orvel::GitOutputParser::parseNameStatus(text)) {
        if (change.path.empty() || change.path.size() > size)
            __builtin_trap();
    }
    return 0;
}
