// Reads the stash list that `git stash list` prints with the format option below.
#pragma once

#include "core/records/StashEntry.h"

#include <string_view>
#include <vector>

namespace orvel::GitOutputParser {

// The whole option for "stash", "list", stashListFormat: selector, hash, parents, reflog subject and
// author date, NUL-separated, one stash a line.
inline constexpr std::string_view stashListFormat = "--format=%gd%x00%H%x00%P%x00%gs%x00%aI";

// Never fails: a line with fewer than five fields is dropped; an unreadable date is the distant past.
std::vector<StashEntry> parseStashList(std::string_view text);

} // namespace orvel::GitOutputParser
