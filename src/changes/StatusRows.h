// How the raw status of a working tree becomes the changes page's two lists: a file changed in the
// index gives a staged row, a file changed in the work tree (or untracked, or unmerged) an unstaged
// row, so a file changed in both places shows in both lists. A submodule stays marked as one on
// either side. Pure functions.
#pragma once

#include "core/records/FileChange.h"

#include <string>
#include <vector>

namespace orvel {

struct StatusRows {
    std::vector<FileChange> staged;
    std::vector<FileChange> unstaged;
};

StatusRows splitStatusRows(const std::vector<FileChange>& files);

// The identity of a row across refreshes: a staged row is "staged:" and the path, an unstaged row
// the path alone, so the two rows of one file stay apart in a selection.
std::string rowID(const FileChange& file, bool staged);

// An untracked folder that holds a repository of its own: git lists every other untracked file
// singly and prints such a folder with a trailing slash.
bool isNestedRepository(const FileChange& file);

// Whether git knows the row's file, so that it has a blame and a history: an untracked file has
// neither.
bool hasHistory(const FileChange& file);

} // namespace orvel
