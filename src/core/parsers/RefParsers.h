// Reads the branch and tag listings that `git branch -a` and `git tag -l` print with the format
// strings below. The commands that run them use these constants, so that the fields the parsers
// count on are the fields git prints.
#pragma once

#include "core/records/BranchEntry.h"
#include "core/records/TagEntry.h"

#include <string_view>
#include <vector>

namespace orvel::GitOutputParser {

// For "branch", "-a", "--format", branchListFormat: one line a branch, ten NUL-terminated fields.
inline constexpr std::string_view branchListFormat =
    "%(refname:short)%00%(refname)%00%(objectname)%00%(HEAD)%00%(upstream:short)%00%(upstream:remotename)%00"
    "%(upstream:track,nobracket)%00%(worktreepath)%00%(contents:subject)%00%(committerdate:iso-strict)%00";

// For "tag", "-l", "--format", tagListFormat: one line a tag, nine NUL-terminated fields; a signature
// spills over further lines, which have too few fields to be read as tags.
inline constexpr std::string_view tagListFormat =
    "%(refname:short)%00%(objectname)%00%(*objectname)%00%(objecttype)%00%(taggername)%00%(taggeremail)%00"
    "%(taggerdate:iso-strict)%00%(contents:subject)%00%(contents:signature)%00";

// Never fail: a line with fewer than ten fields is dropped; an unreadable date leaves the date absent.
std::vector<BranchEntry> parseBranches(std::string_view text);

// Never fails: a line with fewer than nine fields is dropped.
std::vector<TagEntry> parseTags(std::string_view text);

} // namespace orvel::GitOutputParser
