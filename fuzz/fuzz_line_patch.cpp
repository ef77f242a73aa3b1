// Feeds arbitrary bytes to the line-patch builder. The first line picks the direction and the
// chosen lines (each byte a place, taken in turn from the hunks); the rest is the raw diff, whose
// own parse stands for the hunks as the pane showed them. A patch that comes out must be one file
// whose every hunk holds exactly the lines its header counts.
#include "core/commands/LinePatch.h"
#include "core/parsers/DiffParser.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace orvel;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto newline = input.find('\n');
    const std::string_view choice = input.substr(0, newline);
    const std::string_view rawDiff =
        newline == std::string_view::npos ? std::string_view() : input.substr(newline + 1);

    const DiffResult shown = GitOutputParser::parseDiff(std::string(rawDiff));
    std::vector<HunkLines> chosen;
    if (!shown.files.empty())
        for (const DiffHunk& hunk : shown.files.front().hunks)
            chosen.push_back({hunk, {}});
    for (std::size_t i = 1; i < choice.size() && !chosen.empty(); ++i) {
        HunkLines& hunk = chosen[i % chosen.size()];
        // Now and then a place outside the hunk, which must be refused.
        hunk.lines.push_back(int(static_cast<unsigned char>(choice[i])) - 2);
    }
    const auto direction = !choice.empty() && (choice[0] & 1) ? HunkCommands::PatchDirection::reverse
                                                              : HunkCommands::PatchDirection::forward;

    const std::string patch = HunkCommands::buildLinePatch(rawDiff, chosen, direction).text;
    if (patch.empty())
        return 0;
    if (patch.back() != '\n')
        __builtin_trap();
    const DiffResult written = GitOutputParser::parseDiff(patch);
    if (written.files.size() != 1 || written.files.front().hunks.empty())
        __builtin_trap();
    for (const DiffHunk& hunk : written.files.front().hunks) {
        int oldLines = 0;
        int newLines = 0;
        bool changes = false;
        for (const DiffLine& line : hunk.lines) {
            oldLines += line.type == DiffLineType::context || line.type == DiffLineType::deletion;
            newLines += line.type == DiffLineType::context || line.type == DiffLineType::addition;
            changes = changes || line.type == DiffLineType::addition || line.type == DiffLineType::deletion;
        }
        if (oldLines != hunk.oldCount || newLines != hunk.newCount || !changes)
            __builtin_trap();
    }
    return 0;
}
