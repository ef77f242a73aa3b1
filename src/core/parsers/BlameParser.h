// Reads `git blame --porcelain` into runs of consecutive lines that one commit last changed.
#pragma once

#include "core/records/BlameEntry.h"

#include <string_view>
#include <vector>

namespace orvel::GitOutputParser {

// Never fails: lines it can't place are dropped. A commit's details, which git prints only where
// the commit first appears, are carried to all its later lines.
std::vector<BlameEntry> parseBlame(std::string_view text);

} // namespace orvel::GitOutputParser
