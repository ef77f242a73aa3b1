// Feeds arbitrary bytes to the highlighter in every language (the first byte picks it) and to the
// side-by-side pairing of a diff parsed from the same bytes: tokens must stay inside the text,
// sorted and apart, and every line of a hunk must land in at most one row side.
#include "core/parsers/DiffParser.h"
#include "diff/DiffDisplayRows.h"
#include "diff/SyntaxHighlighter.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const auto language = orvel::SourceLanguage(data[0] % (int(orvel::SourceLanguage::unknown) + 1));
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data + 1), qsizetype(size - 1));
    int end = 0;
    for (const orvel::SyntaxToken& token : orvel::highlightTokens(text, language)) {
        if (token.start < end || token.length <= 0 || token.start + token.length > text.size())
            __builtin_trap();
        end = token.start + token.length;
    }
    const auto diff =
        orvel::GitOutputParser::parseDiff(std::string(reinterpret_cast<const char*>(data + 1), size - 1));
    for (const auto& file : diff.files) {
        std::size_t lines = 0;
        for (const auto& hunk : file.hunks)
            lines += hunk.lines.size() + 1;
        if (orvel::sideBySideRows(file).size() > lines || orvel::unifiedRows(file).size() != lines)
            __builtin_trap();
    }
    return 0;
}
