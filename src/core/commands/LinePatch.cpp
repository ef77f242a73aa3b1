#include "core/commands/LinePatch.h"

#include "core/commands/HunkPatch.h"
#include "core/parsers/DiffParser.h"

#include <algorithm>
#include <map>
#include <set>

namespace orvel::HunkCommands {

namespace {

struct PatchLine {
    char sign; // ' ', '-' or '+'
    std::string_view content;
    std::string_view marker; // the "\ No newline at end of file" line behind it, if any
};

struct FileNames {
    std::string_view oldName;
    std::string_view newName;
};

// The names of the file's two sides as git printed them in its "--- " and "+++ " lines.
FileNames fileNames(const std::vector<std::string_view>& header) {
    FileNames names;
    for (const std::string_view line : header) {
        if (line.starts_with("--- "))
            names.oldName = line.substr(4);
        else if (line.starts_with("+++ "))
            names.newName = line.substr(4);
    }
    // git ends a name holding a blank with a tab in these two lines, but not in "diff --git".
    for (std::string_view* name : {&names.oldName, &names.newName})
        if (name->ends_with('\t'))
            name->remove_suffix(1);
    return names;
}

// The patch's header. A patch changes lines of one file in place, so both of its sides carry one
// name, the new side's (the old side's for a deleted file): a rename is not the patch's to repeat.
// Where the file comes or goes, when the side the patch applies to doesn't exist or the patch
// `removesFile`, the header keeps git's two sides, one of them /dev/null, and the file's mode, so
// that it creates the file with the chosen lines or removes it.
std::string patchHeader(const std::vector<std::string_view>& lines, const FileNames& names,
                        PatchDirection direction, bool removesFile) {
    const auto [oldName, newName] = names;
    const bool comesOrGoes =
        (direction == PatchDirection::forward ? oldName : newName) == "/dev/null" || removesFile;
    const std::string_view name = newName == "/dev/null" ? oldName : newName;
    std::string header;
    header.append("diff --git ").append(name).append(" ").append(name).append("\n");
    if (comesOrGoes)
        for (const std::string_view line : lines)
            if (line.starts_with("new file mode ") || line.starts_with("deleted file mode "))
                header.append(line).append("\n");
    header.append("--- ").append(comesOrGoes ? oldName : name).append("\n");
    header.append("+++ ").append(comesOrGoes ? newName : name).append("\n");
    return header;
}

bool sameLines(const DiffHunk& shown, const DiffHunk& read) {
    return shown.oldStart == read.oldStart && shown.oldCount == read.oldCount &&
           shown.newStart == read.newStart && shown.newCount == read.newCount &&
           std::equal(shown.lines.begin(), shown.lines.end(), read.lines.begin(), read.lines.end(),
                      [](const DiffLine& left, const DiffLine& right) {
                          return left.type == right.type && left.content == right.content;
                      });
}

// The lines of `hunk` as the patch writes them, in git's orientation (`--reverse` turns them).
std::vector<PatchLine> patchLines(const DiffHunk& hunk, const std::set<int>& chosen,
                                  PatchDirection direction) {
    const DiffLineType baseType =
        direction == PatchDirection::forward ? DiffLineType::deletion : DiffLineType::addition;
    const char baseSign = direction == PatchDirection::forward ? '-' : '+';
    const char resultSign = direction == PatchDirection::forward ? '+' : '-';
    std::vector<PatchLine> lines;
    lines.reserve(hunk.lines.size() + 1);
    bool previousKept = false;
    for (std::size_t index = 0; index < hunk.lines.size(); ++index) {
        const DiffLine& line = hunk.lines[index];
        switch (line.type) {
        case DiffLineType::noNewlineAtEnd:
            // The marker belongs to the line before it and goes where that line goes.
            if (previousKept)
                lines.back().marker = line.content;
            previousKept = false;
            break;
        case DiffLineType::context:
            lines.push_back({' ', line.content, {}});
            previousKept = true;
            break;
        case DiffLineType::addition:
        case DiffLineType::deletion:
            if (chosen.contains(int(index)))
                lines.push_back({line.type == DiffLineType::addition ? '+' : '-', line.content, {}});
            else if (line.type == baseType)
                lines.push_back({' ', line.content, {}});
            previousKept = chosen.contains(int(index)) || line.type == baseType;
            break;
        }
    }
    // A line that ended its file without a newline is no longer last on the side the patch makes
    // when a line of that side comes after it there, so on that side it gains its newline. A line
    // of both sides keeps the missing newline on the side the patch is applied to: it splits into
    // the line as it is there and the line with its newline.
    bool resultFollows = false;
    for (std::size_t index = lines.size(); index-- > 0;) {
        PatchLine& line = lines[index];
        const bool onResult = line.sign == ' ' || line.sign == resultSign;
        if (onResult && resultFollows && !line.marker.empty()) {
            if (line.sign == resultSign) {
                line.marker = {};
            } else {
                line.sign = baseSign;
                lines.insert(lines.begin() + std::ptrdiff_t(index) + 1, {resultSign, line.content, {}});
            }
        }
        resultFollows = resultFollows || onResult;
    }
    return lines;
}

void appendLine(std::string& patch, char sign, std::string_view content) {
    patch += sign;
    patch += content;
    patch += '\n';
}

} // namespace

LinePatch buildLinePatch(std::string_view rawDiff, const std::vector<HunkLines>& chosen,
                         PatchDirection direction) {
    const std::vector<std::string_view> headerLines = patchHeaderLines(rawDiff);
    const FileNames names = fileNames(headerLines);
    if (names.oldName.empty() || names.newName.empty() || chosen.empty())
        return {};
    const DiffResult parsed = GitOutputParser::parseDiff(std::string(rawDiff));
    if (parsed.files.size() != 1)
        return {};
    const std::vector<DiffHunk>& hunks = parsed.files.front().hunks;
    // The chosen places by the hunk's position in the file, so that the patch's hunks stand in order.
    std::map<std::size_t, std::set<int>> places;
    for (const HunkLines& each : chosen) {
        const auto found = std::find_if(hunks.begin(), hunks.end(),
                                        [&](const DiffHunk& read) { return sameLines(each.hunk, read); });
        if (found == hunks.end())
            return {};
        std::set<int>& set = places[std::size_t(found - hunks.begin())];
        for (const int place : each.lines) {
            if (place < 0 || std::size_t(place) >= found->lines.size())
                return {};
            set.insert(place);
        }
    }

    const bool forward = direction == PatchDirection::forward;
    const char baseSign = forward ? '-' : '+';
    const char resultSign = forward ? '+' : '-';
    std::string body;
    // How far the side the patch makes has moved from the other by the hunks before.
    long shift = 0;
    // The lines the patch leaves on the side it makes.
    long resultLines = 0;
    for (const auto& [index, set] : places) {
        const DiffHunk& hunk = hunks[index];
        const std::vector<PatchLine> lines = patchLines(hunk, set, direction);
        if (std::all_of(lines.begin(), lines.end(), [](const PatchLine& line) { return line.sign == ' '; }))
            continue;
        long baseCount = 0;
        long resultCount = 0;
        for (const PatchLine& line : lines) {
            baseCount += line.sign != resultSign;
            resultCount += line.sign != baseSign;
        }
        // An empty side names the line before the place where it would be.
        const long baseStart = forward ? hunk.oldStart : hunk.newStart;
        const long place = (baseCount > 0 ? baseStart : baseStart + 1) + shift;
        const long resultStart = resultCount > 0 ? place : place - 1;
        shift += resultCount - baseCount;
        resultLines += resultCount;
        const auto range = [](long start, long count) {
            return std::to_string(start) + "," + std::to_string(count);
        };
        body += "@@ -" + (forward ? range(baseStart, baseCount) : range(resultStart, resultCount)) + " +" +
                (forward ? range(resultStart, resultCount) : range(baseStart, baseCount)) + " @@\n";
        for (const PatchLine& line : lines) {
            appendLine(body, line.sign, line.content);
            if (!line.marker.empty()) {
                body += line.marker;
                body += '\n';
            }
        }
    }
    if (body.empty())
        return {};
    // A file missing on the side the patch makes is one hunk of changes in git's diff: the patch
    // leaves none of its lines exactly when every one of them is chosen.
    const bool removesFile = resultLines == 0 && (forward ? names.newName : names.oldName) == "/dev/null";
    return {patchHeader(headerLines, names, direction, removesFile) + body, removesFile};
}

} // namespace orvel::HunkCommands
