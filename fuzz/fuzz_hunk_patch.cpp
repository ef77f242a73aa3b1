// Feeds arbitrary bytes to the one-hunk patch cutter. The first line names the hunk to cut (read
// as a hunk header, "@@ -15,6 +15,6 @@"); the rest is the raw diff.
#include "core/commands/HunkPatch.h"
#include "core/parsers/DiffParser.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto newline = input.find('\n');
    const std::string_view header = input.substr(0, newline);
    const std::string_view rawDiff =
        newline == std::string_view::npos ? std::string_view() : input.substr(newline + 1);

    orvel::DiffHunk hunk;
    const auto parsed =
        orvel::GitOutputParser::parseDiff("diff --git a/f b/f\n" + std::string(header) + "\n");
    if (!parsed.files.empty() && !parsed.files[0].hunks.empty())
        hunk = parsed.files[0].hunks[0];
    orvel::HunkCommands::hunkHeaderMatches(header, hunk);

    const std::string patch = orvel::HunkCommands::extractHunkPatch(rawDiff, hunk);
    if (patch.empty())
        return 0;
    if (patch.back() != '\n' || patch.size() > rawDiff.size() * 2 + 2)
        __builtin_trap();
    // The first line of the patch that begins with "@@" is the target's own header.
    std::size_t start = 0;
    while (start < patch.size()) {
        const std::size_t end = patch.find('\n', start);
        const std::string_view line(patch.data() + start, end - start);
        if (line.starts_with("@@")) {
            if (!orvel::HunkCommands::hunkHeaderMatches(line, hunk))
                __builtin_trap();
            return 0;
        }
        start = end + 1;
    }
    __builtin_trap();
}
