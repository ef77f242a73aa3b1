#include "core/parsers/GitVersionParser.h"

#include "core/support/Text.h"

namespace orvel::GitOutputParser {

std::optional<std::string> parseGitVersion(std::string_view text) {
    constexpr std::string_view prefix = "git version ";
    const std::string answer = trimmed(text.substr(0, text.find('\n')));
    if (!answer.starts_with(prefix))
        return std::nullopt;
    return answer.substr(answer.rfind(' ') + 1);
}

} // namespace orvel::GitOutputParser
