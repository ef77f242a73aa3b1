// Reads what `git --version` prints: "git version 2.39.5".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvel::GitOutputParser {

// The last word of the first line, trimmed and split at single spaces ("2.39.5"); nothing when the text is
// not git's answer, that is, when it does not begin with "git version ", so that another program that happens
// to accept "--version" is not taken for git.
std::optional<std::string> parseGitVersion(std::string_view text);

} // namespace orvel::GitOutputParser
