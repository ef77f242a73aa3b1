#include "core/parsers/PreparedMessageParser.h"

#include "core/support/Text.h"

namespace orvel::GitOutputParser {

std::optional<std::string> parsePreparedMessage(std::string_view text) {
    std::string message;
    for (std::string_view line : splitLines(text)) {
        if (line.starts_with('#'))
            continue;
        while (!line.empty() && (line.back() == ' ' || line.back() == '\t' || line.back() == '\r'))
            line.remove_suffix(1);
        if (line.empty() && message.empty())
            continue;
        message.append(line);
        message.push_back('\n');
    }
    while (!message.empty() && message.back() == '\n')
        message.pop_back();
    if (message.empty())
        return std::nullopt;
    return message;
}

} // namespace orvel::GitOutputParser
