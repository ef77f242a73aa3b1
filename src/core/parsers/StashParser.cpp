#include "core/parsers/StashParser.h"

#include "core/parsers/LineFields.h"
#include "core/support/Log.h"

namespace orvel::GitOutputParser {

namespace {

// n of "stash@{n}"; 0 when the selector has no braces or no number between them.
int stashIndex(std::string_view selector) {
    const auto open = selector.find('{');
    const auto close = selector.find('}');
    if (open == std::string_view::npos || close == std::string_view::npos || close <= open)
        return 0;
    return readDecimal<int>(selector.substr(open + 1, close - open - 1)).value_or(0);
}

// "WIP on main: abc1234 subject" and "On main: message" name the branch the stash was made on.
std::optional<std::string> branchNamed(std::string_view message) {
    for (const std::string_view prefix : {std::string_view("WIP on "), std::string_view("On ")}) {
        if (!message.starts_with(prefix))
            continue;
        const std::string_view rest = message.substr(prefix.size());
        const auto colon = rest.find(": ");
        if (colon == std::string_view::npos)
            return std::nullopt;
        return std::string(rest.substr(0, colon));
    }
    return std::nullopt;
}

} // namespace

std::vector<StashEntry> parseStashList(std::string_view text) {
    qCDebug(lcParser, "parseStashList: %ld chars", static_cast<long>(text.size()));
    std::vector<StashEntry> stashes;
    forEachNonEmptyLine(text, [&](std::string_view line) {
        std::array<std::string_view, 5> fields;
        if (splitNulFields(line, fields) < fields.size())
            return;
        StashEntry& stash = stashes.emplace_back();
        stash.index = stashIndex(fields[0]);
        stash.hash = fields[1];
        // Parents: the base commit, the index state, and the untracked files when there are any.
        std::size_t parents = 0;
        std::size_t start = 0;
        const std::string_view parentField = fields[2];
        while (start < parentField.size()) {
            std::size_t end = parentField.find(' ', start);
            if (end == std::string_view::npos)
                end = parentField.size();
            if (end > start) {
                if (parents == 0)
                    stash.baseHash = parentField.substr(start, end - start);
                ++parents;
            }
            start = end + 1;
        }
        stash.includesUntracked = parents > 2;
        stash.message = fields[3];
        stash.branchName = branchNamed(fields[3]);
        stash.date = readIsoDateOrDistantPast(fields[4]);
    });
    qCDebug(lcParser, "parseStashList: %ld stashes", static_cast<long>(stashes.size()));
    return stashes;
}

} // namespace orvel::GitOutputParser
