// Reads `git status --porcelain=v2 --branch --show-stash -uall -z` into file changes.
#pragma once

#include "core/records/FileChange.h"

#include <string_view>
#include <vector>

namespace orvel::GitOutputParser {

// Never fails: records it can't read are dropped. Paths come back byte for byte.
std::vector<FileChange> parseStatusResult(std::string_view text);

} // namespace orvel::GitOutputParser
