#include "core/parsers/RefParsers.h"

#include "core/parsers/LineFields.h"
#include "core/support/Log.h"

namespace orvel::GitOutputParser {

namespace {

std::optional<std::string> presentUnlessEmpty(std::string_view field) {
    if (field.empty())
        return std::nullopt;
    return std::string(field);
}

std::string_view trimmedOfBrackets(std::string_view text) {
    const auto first = text.find_first_not_of("[]");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of("[]") - first + 1);
}

int countAfter(std::string_view part, std::string_view key) {
    return readDecimal<int>(part.substr(key.size())).value_or(0);
}

// Reads "ahead 2, behind 1", "behind 1", "gone" or "", with or without brackets.
void readTrackField(std::string_view track, UpstreamInfo& upstream) {
    track = trimmedOfBrackets(track);
    upstream.ahead = 0;
    upstream.behind = 0;
    upstream.isGone = track == "gone";
    if (track.empty() || upstream.isGone)
        return;
    constexpr std::string_view separator = ", ";
    constexpr std::string_view aheadKey = "ahead ";
    constexpr std::string_view behindKey = "behind ";
    std::size_t start = 0;
    while (start <= track.size()) {
        std::size_t end = track.find(separator, start);
        if (end == std::string_view::npos)
            end = track.size();
        const std::string_view part = track.substr(start, end - start);
        if (part.starts_with(aheadKey))
            upstream.ahead = countAfter(part, aheadKey);
        else if (part.starts_with(behindKey))
            upstream.behind = countAfter(part, behindKey);
        start = end + separator.size();
    }
}

} // namespace

std::vector<BranchEntry> parseBranches(std::string_view text) {
    qCDebug(lcParser, "parseBranches: %ld chars", static_cast<long>(text.size()));
    std::vector<BranchEntry> branches;
    forEachNonEmptyLine(text, [&](std::string_view line) {
        std::array<std::string_view, 10> fields;
        if (splitNulFields(line, fields) < fields.size())
            return;
        BranchEntry& branch = branches.emplace_back();
        branch.name = fields[0];
        branch.fullRefName = fields[1];
        branch.isRemote = fields[1].starts_with("refs/remotes/");
        branch.isCurrent = fields[3] == "*";
        branch.hash = fields[2];
        if (!fields[4].empty()) {
            UpstreamInfo& upstream = branch.upstream.emplace();
            upstream.name = fields[4];
            upstream.remoteName = fields[5];
            readTrackField(fields[6], upstream);
        }
        branch.worktreePath = presentUnlessEmpty(fields[7]);
        branch.lastCommitSubject = presentUnlessEmpty(fields[8]);
        branch.lastCommitDate = readIsoDate(fields[9]);
    });
    qCDebug(lcParser, "parseBranches: %ld branches", static_cast<long>(branches.size()));
    return branches;
}

std::vector<TagEntry> parseTags(std::string_view text) {
    qCDebug(lcParser, "parseTags: %ld chars", static_cast<long>(text.size()));
    std::vector<TagEntry> tags;
    forEachNonEmptyLine(text, [&](std::string_view line) {
        std::array<std::string_view, 9> fields;
        if (splitNulFields(line, fields) < fields.size())
            return;
        tags.push_back({std::string(fields[0]), std::string(fields[1]), presentUnlessEmpty(fields[2])});
    });
    qCDebug(lcParser, "parseTags: %ld tags", static_cast<long>(tags.size()));
    return tags;
}

} // namespace orvel::GitOutputParser
