// Reads the commit message git prepares in the git directory when a merge, a pick or a revert stops
// before committing (MERGE_MSG): its text without git's comment lines.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvel::GitOutputParser {

// The file's lines but those that begin with "#", each without trailing blanks, and no blank line
// before the first line of text or after the last; nothing when no text is left. Never fails.
std::optional<std::string> parsePreparedMessage(std::string_view text);

} // namespace orvel::GitOutputParser
