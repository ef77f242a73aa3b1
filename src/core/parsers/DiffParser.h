// Reads unified diffs (`git diff`, `git show`, `git stash show -p`) into DiffResult, and the
// `git diff-tree --name-status` listing of a commit into file changes.
#pragma once

#include "core/records/DiffResult.h"
#include "core/records/FileChange.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvel::GitOutputParser {

// One pass over the lines with a small state machine. Never fails: what it doesn't know it
// skips, and empty text gives no files. Paths are kept as git printed them, quotes and the tab
// git writes after a path with a blank included. The lines' contents point into `output`, which
// the result keeps; pass it with std::move to spare the copy.
DiffResult parseDiff(std::string output);

// "M\tpath", "R100\told\tnew", ... one line a file; lines with fewer than two fields are dropped.
std::vector<FileChange> parseNameStatus(std::string_view output);

} // namespace orvel::GitOutputParser
