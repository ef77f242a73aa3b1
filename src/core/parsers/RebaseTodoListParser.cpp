#include "core/parsers/RebaseTodoListParser.h"

#include "core/support/Log.h"
#include "core/support/Text.h"

#include <string>

namespace orvel::GitOutputParser {

std::vector<RebaseTodoEntry> parseRebaseTodoList(std::string_view text) {
    std::vector<RebaseTodoEntry> entries;
    for (const std::string_view rawLine : splitLines(text)) {
        const std::string line = trimmedBlanks(rawLine);
        const auto blank = line.find(' ');
        if (blank == std::string::npos) {
            if (!line.empty())
                qCDebug(lcParser, "parseRebaseTodoList: dropped a line without a subject");
            continue;
        }
        RebaseTodoEntry entry;
        entry.id = QUuid::createUuid();
        entry.action = RebaseAction::pick;
        entry.hash = line.substr(0, blank);
        entry.subject = line.substr(blank + 1);
        entries.push_back(std::move(entry));
    }
    return entries;
}

} // namespace orvel::GitOutputParser
