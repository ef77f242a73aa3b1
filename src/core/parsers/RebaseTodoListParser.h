// Reads the commits an interactive rebase would replay from `git log --oneline --reverse`: one
// line per commit, oldest first, the abbreviated hash, a blank, the subject.
#pragma once

#include "core/records/RebasePlan.h"

#include <string_view>
#include <vector>

namespace orvel::GitOutputParser {

// Never fails. Each line is trimmed of blanks and tabs; an empty line or one without a blank is
// dropped. The hash is the text before the first blank, the subject all after it. Every entry
// gets a fresh id and the action pick.
std::vector<RebaseTodoEntry> parseRebaseTodoList(std::string_view text);

} // namespace orvel::GitOutputParser
