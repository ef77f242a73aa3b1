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

// The same, unless `directory` already holds a repository from an earlier run.
void ensureWorkingTreeRepository(const std::string& directory, const WorkingTreeShape& shape);

// The arguments of the service's status read, for git's side of a status benchmark.
const std::vector<std::string>& statusArguments();

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
struct HistoryShape {
    std::size_t commits = 0;
    std::size_t branches = 0; // local branches, besides the lines the history grows on
    std::size_t tags = 0;
    std::size_t remoteBranches = 0; // under the remote "origin", which is configured
};

// Creates `directory` as a repository whose history has `shape.commits` commits on several
// interleaved lines of development with frequent merges (some of them octopus merges) and a few
// root commits, imported in one `git fast-import` run from a handful of distinct blobs. Branches,
// tags and remote branches point at commits spread over the history; HEAD is "main".
void makeHistoryRepository(const std::string& directory, const HistoryShape& shape);

// The history of the graph benchmarks: 200,000 commits and a thousand refs, or 300 for a smoke run.
inline HistoryShape graphBenchmarkShape(bool tiny) {
    return tiny ? HistoryShape{300, 12, 12, 6} : HistoryShape{200000, 450, 450, 100};
}

struct BlameShape {
    std::size_t commits = 0;
    std::size_t lines = 0;
    std::size_t authors = 0;
};

// Creates `directory` as a repository whose one file, "blamed.txt", has `shape.lines` lines and
// `shape.commits` commits on "main": every commit after the first rewrites a scattered handful of
// lines, each commit by one of `shape.authors` authors, so that blame yields many short runs from
// many commits. The content is the same at every run.
void makeBlameRepository(const std::string& directory, const BlameShape& shape);

// The path of the n-th generated file, relative to the repository root.
std::string generatedFilePath(std::size_t n);

} // namespace orvel::bench
