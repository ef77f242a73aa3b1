// Reads unified diffs (`git diff`, `git show`, `git stash show -p`) into DiffResult, and the
// `git diff-tree --name-status` listing of a commit into file changes.
#pragma once

#include "core/records/DiffResult.h"
#include "core/records/FileChange.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orvel::GitOutputParser {

// One pass over the lines with a small state machine. Never fails: what it doesn't know it
// skips, and empty text gives no files. Paths are kept as git printed them, quotes and the tab
// git writes after a path with a blank included. The lines' contents point into `output`, which
// the result keeps; pass it with std::move to spare the copy.
DiffResult parseDiff(std::string output);

namespace detail {
class DiffReader;
}

// The same parse fed piece by piece while git still writes, so that reading the lines overlaps
// git's own work instead of following it. Pieces are gathered in blocks that never move once
// written; each line's content points into its block, and a line cut between two pieces is
// carried over whole into the next block.
class DiffStreamParser {
  public:
    DiffStreamParser();
    ~DiffStreamParser();
    DiffStreamParser(const DiffStreamParser&) = delete;
    DiffStreamParser& operator=(const DiffStreamParser&) = delete;

    void append(std::string_view bytes);
    // Reads a last line without a newline and hands over the result.
    DiffResult finish();

  private:
    void startBlock(std::size_t incoming);
    void readLines(bool atEnd);

    std::unique_ptr<detail::DiffReader> reader_;
    std::shared_ptr<std::string> block_;
    std::size_t nextCapacity_;
    std::size_t read_ = 0;    // the first byte of the block not yet read as a line
    std::size_t scanned_ = 0; // no newline lies between read_ and this
};

// "M\tpath", "R100\told\tnew", ... one line a file; lines with fewer than two fields are dropped.
std::vector<FileChange> parseNameStatus(std::string_view output);

} // namespace orvel::GitOutputParser
