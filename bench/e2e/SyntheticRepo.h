// Makes large repositories for benchmarks through `git fast-import` and plain file writes.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orvel::bench {

struct WorkingTreeShape {
    std::size_t trackedFiles = 0;
    std::size_t modifiedFiles = 0;
    std::size_t untrackedFiles = 0;
};

// Creates `directory` as a repository with one commit of `trackedFiles` files spread over nested
// folders, checks it out, then modifies and adds files as `shape` asks. The index is refreshed
// at the end so that timed runs of status don't pay for a first stat pass.
void makeWorkingTreeRepository(const std::string& directory, const WorkingTreeShape& shape);

// Runs git with `arguments` in `directory`, stdin read from `input`; throws with git's stderr on failure.
void runGit(const std::string& directory, const std::vector<std::string>& arguments,
            const std::string& input = "/dev/null");

struct DiffHistoryShape {
    std::size_t files = 0;
    std::size_t linesPerFile = 0;
};

// Creates `directory` as a repository of two commits on "main": `files` files of code-like text,
// then the same files with lines replaced, inserted and deleted every few lines, so that
// `git diff HEAD~1 HEAD` is a long diff of many hunks. The content is the same at every run.
void makeDiffHistoryRepository(const std::string& directory, const DiffHistoryShape& shape);

// The path of the n-th generated file, relative to the repository root.
std::string generatedFilePath(std::size_t n);

} // namespace orvel::bench
