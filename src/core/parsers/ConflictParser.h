// Reads the unmerged entries of `git status --porcelain=v2 -uall -z`.
#pragma once

#include "core/records/ConflictEntry.h"

#include <string_view>
#include <vector>

namespace orvel::GitOutputParser {

std::vector<ConflictEntry> parseConflictFiles(std::string_view text);

} // namespace orvel::GitOutputParser
