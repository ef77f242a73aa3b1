#include "e2e/SyntheticRepo.h"

#include "core/process/ChildProcess.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <vector>

namespace orvel::bench {

namespace fs = std::filesystem;

void runGit(const std::string& directory, const std::vector<std::string>& arguments,
            const std::string& input) {
    ChildRequest request;
    request.stdinPath = input;
    request.executable = "/usr/bin/git";
    request.arguments = {"-C", directory};
    request.arguments.insert(request.arguments.end(), arguments.begin(), arguments.end());
    request.environment = inheritedEnvironment();
    request.stdoutCapture = StreamCapture::discarded();
    request.stderrCapture = StreamCapture::capture(1 << 20);
    const ChildOutcome outcome = runChild(request);
    if (!outcome.succeeded())
        throw std::runtime_error("git " + arguments.front() + " failed: " + outcome.err);
}

namespace {

std::string fileContent(std::size_t n) {
    return "file " + std::to_string(n) + "\nthe second line of every generated file\n";
}

void writeFile(const fs::path& path, const std::string& content) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary | std::ios::trunc) << content;
}

// splitmix64: a fixed seed gives the same repository at every run.
class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}
    std::uint64_t next() {
        std::uint64_t z = (state_ += 0x9e3779b97f4a7c15ull);
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ull;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebull;
        return z ^ (z >> 31);
    }
    std::size_t below(std::size_t bound) { return static_cast<std::size_t>(next() % bound); }

  private:
    std::uint64_t state_;
};

// A line of source code as it commonly looks: indented statements, braces, comments and blank
// lines, about 35 characters on average.
std::string codeLine(Random& random) {
    static const char* const words[] = {"value",  "count", "result", "index", "buffer", "entry",
                                        "parent", "child", "offset", "range", "name",   "status",
                                        "items",  "node",  "state",  "path"};
    auto word = [&] { return std::string(words[random.below(std::size(words))]); };
    const std::size_t kind = random.below(100);
    if (kind < 10)
        return {};
    std::string line(4 * random.below(4), ' ');
    if (kind < 22)
        line += "}";
    else if (kind < 36)
        line += "if (" + word() + " != nullptr && " + word() + "->" + word() + "()) {";
    else if (kind < 52)
        line += "return " + word() + "(" + word() + ", " + word() + ");";
    else if (kind < 72)
        line += "auto " + word() + " = " + word() + "." + word() + "(" + word() + ");";
    else if (kind < 86)
        line += "// the " + word() + " of each " + word() + " before the " + word();
    else
        line += word() + "." + word() + " += " + std::to_string(random.below(1000)) + ";";
    return line;
}

void appendLines(std::string& text, const std::vector<std::string>& lines) {
    for (const auto& line : lines)
        text += line + "\n";
}

} // namespace

void makeDiffHistoryRepository(const std::string& directory, const DiffHistoryShape& shape) {
    fs::create_directories(directory);
    runGit(directory, {"init", "-q", "-b", "main"});
    const fs::path stream = fs::path(directory) / ".git" / "orvel-fast-import";
    {
        // Both versions of each file go out as marked blobs as they are made; the two commits
        // then name them by mark, so that no version is held in memory.
        std::ofstream out(stream, std::ios::binary);
        auto blob = [&](std::size_t mark, const std::vector<std::string>& lines) {
            std::string content;
            appendLines(content, lines);
            out << "blob\nmark :" << mark << "\ndata " << content.size() << "\n" << content << "\n";
        };
        Random random(20260101);
        for (std::size_t n = 0; n < shape.files; ++n) {
            std::vector<std::string> lines;
            for (std::size_t i = 0; i < shape.linesPerFile; ++i)
                lines.push_back(codeLine(random));
            blob(2 * n + 1, lines);
            // Every few lines an edit: lines replaced, inserted or deleted.
            std::vector<std::string> changed;
            for (std::size_t i = 0; i < lines.size();) {
                const std::size_t gap = 3 + random.below(18);
                for (std::size_t k = 0; k < gap && i < lines.size(); ++k)
                    changed.push_back(lines[i++]);
                const std::size_t removed = random.below(4), added = random.below(4);
                i += std::min(removed, lines.size() - i);
                for (std::size_t k = 0; k < added; ++k)
                    changed.push_back(codeLine(random));
            }
            blob(2 * n + 2, changed);
        }
        for (const std::size_t version : {1, 2}) {
            const std::string message = version == 1 ? "base" : "changes";
            out << "commit refs/heads/main\ncommitter Bench <bench@orvel.invalid> 1767225600 +0000\n"
                << "data " << message.size() << "\n"
                << message << "\n";
            for (std::size_t n = 0; n < shape.files; ++n)
                out << "M 100644 :" << 2 * n + version << " " << generatedFilePath(n) << "\n";
            out << "\n";
        }
    }
    runGit(directory, {"fast-import", "--quiet"}, stream.string());
    fs::remove(stream);
    runGit(directory, {"reset", "-q", "--hard", "main"});
}

void makeBlameRepository(const std::string& directory, const BlameShape& shape) {
    fs::create_directories(directory);
    runGit(directory, {"init", "-q", "-b", "main"});
    Random random(20260202);
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < shape.lines; ++i)
        lines.push_back(codeLine(random));

    // Every commit carries the whole file, so one stream of a large history runs into gigabytes.
    // It goes to fast-import in pieces of about 64 MB instead, each a private file removed after
    // its run; a piece after the first continues "main" from where the previous one left it.
    const fs::path stream = fs::path(directory) / ".git" / "orvel-fast-import";
    struct RemoveStream {
        const fs::path& path;
        ~RemoveStream() {
            std::error_code ignored;
            fs::remove(path, ignored);
        }
    } removeStream{stream};
    constexpr std::size_t pieceBytes = 64u << 20;
    std::string content;
    std::size_t commit = 0;
    while (commit < shape.commits) {
        {
            std::ofstream out(stream, std::ios::binary | std::ios::trunc);
            fs::permissions(stream, fs::perms::owner_read | fs::perms::owner_write);
            std::size_t written = 0;
            const std::size_t first = commit;
            for (; commit < shape.commits && written < pieceBytes; ++commit) {
                if (commit > 0)
                    for (std::size_t k = 0; k < 8; ++k)
                        lines[random.below(lines.size())] = codeLine(random);
                content.clear();
                for (const auto& line : lines) {
                    content += line;
                    content += '\n';
                }
                const std::size_t author = commit % std::max<std::size_t>(shape.authors, 1);
                const std::string message = "change " + std::to_string(commit);
                out << "commit refs/heads/main\n"
                    << "author Author " << author << " <a" << author << "@orvel.invalid> "
                    << 1767225600 + commit * 60 << " +0000\ncommitter Bench <bench@orvel.invalid> "
                    << 1767225600 + commit * 60 << " +0000\n"
                    << "data " << message.size() << "\n"
                    << message << "\n";
                if (commit == first && first > 0)
                    out << "from refs/heads/main^0\n";
                out << "M 100644 inline blamed.txt\ndata " << content.size() << "\n" << content << "\n\n";
                written += content.size();
            }
        }
        runGit(directory, {"fast-import", "--quiet"}, stream.string());
    }
    runGit(directory, {"reset", "-q", "--hard", "main"});
}

std::string generatedFilePath(std::size_t n) {
    char path[96];
    std::snprintf(path, sizeof path, "src/module%03zu/component%02zu/source_file_%06zu.txt", n / 1000 % 1000,
                  n / 50 % 20, n);
    return path;
}

void ensureWorkingTreeRepository(const std::string& directory, const WorkingTreeShape& shape) {
    if (fs::exists(fs::path(directory) / ".git"))
        return;
    std::cerr << "generating " << shape.trackedFiles << " files in " << directory << "\n";
    makeWorkingTreeRepository(directory, shape);
}

const std::vector<std::string>& statusArguments() {
    static const std::vector<std::string> arguments{"status",       "--porcelain=v2", "--branch",
                                                    "--show-stash", "-uall",          "-z"};
    return arguments;
}

void makeWorkingTreeRepository(const std::string& directory, const WorkingTreeShape& shape) {
    fs::create_directories(directory);
    runGit(directory, {"init", "-q", "-b", "main"});

    // The import stream goes through a file on stdin, so nothing has to write into a pipe.
    const fs::path stream = fs::path(directory) / ".git" / "orvel-fast-import";
    {
        std::ofstream out(stream, std::ios::binary);
        out << "commit refs/heads/main\ncommitter Bench <bench@orvel.invalid> 1767225600 +0000\n"
            << "data 17\nsynthetic content\n";
        for (std::size_t n = 0; n < shape.trackedFiles; ++n) {
            const std::string content = fileContent(n);
            out << "M 100644 inline " << generatedFilePath(n) << "\ndata " << content.size() << "\n"
                << content << "\n";
        }
        out << "\n";
    }
    runGit(directory, {"fast-import", "--quiet"}, stream.string());
    fs::remove(stream);
    runGit(directory, {"reset", "-q", "--hard", "main"});

    for (std::size_t n = 0; n < shape.modifiedFiles && n < shape.trackedFiles; ++n) {
        const std::size_t index = n * (shape.trackedFiles / std::max<std::size_t>(shape.modifiedFiles, 1));
        writeFile(fs::path(directory) / generatedFilePath(index), fileContent(index) + "a local change\n");
    }
    for (std::size_t n = 0; n < shape.untrackedFiles; ++n) {
        const std::string path = "untracked/" + generatedFilePath(n);
        writeFile(fs::path(directory) / path, "untracked " + std::to_string(n) + "\n");
    }
    ChildRequest refresh;
    refresh.executable = "/usr/bin/git";
    refresh.arguments = {"-C", directory, "update-index", "-q", "--refresh"};
    refresh.environment = inheritedEnvironment();
    refresh.stdoutCapture = StreamCapture::discarded();
    refresh.stderrCapture = StreamCapture::discarded();
    runChild(refresh); // exits 1 while files are modified, which is the point
}

} // namespace orvel::bench

namespace orvel::bench {

void makeHistoryRepository(const std::string& directory, const HistoryShape& shape) {
    fs::create_directories(directory);
    runGit(directory, {"init", "-q", "-b", "main"});
    runGit(directory, {"config", "remote.origin.url", "https://example.invalid/history.git"});
    runGit(directory, {"config", "remote.origin.fetch", "+refs/heads/*:refs/remotes/origin/*"});

    constexpr std::size_t blobCount = 16;
    constexpr std::size_t lineCount = 24; // lines of development that grow side by side
    constexpr std::size_t fileCount = 64;
    // A fixed linear congruential generator, so that every run makes the same history.
    std::uint64_t state = 0x5eed;
    auto next = [&state](std::size_t bound) {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<std::size_t>((state >> 33) % bound);
    };
    const std::size_t firstCommitMark = blobCount + 1;
    std::vector<std::size_t> tips(lineCount, 0); // mark of each line's last commit, 0 for none

    const fs::path stream = fs::path(directory) / ".git" / "orvel-fast-import";
    {
        std::ofstream out(stream, std::ios::binary);
        for (std::size_t blob = 1; blob <= blobCount; ++blob) {
            const std::string content = "generated content " + std::to_string(blob) + "\n";
            out << "blob\nmark :" << blob << "\ndata " << content.size() << "\n" << content << "\n";
        }
        const std::size_t rootEvery = std::max<std::size_t>(shape.commits / 4, 1);
        std::size_t orphanToMerge = 0;
        for (std::size_t n = 0; n < shape.commits; ++n) {
            const std::size_t mark = firstCommitMark + n;
            // Now and then a root commit on a branch of its own, which main merges soon after.
            const bool orphan = n > 0 && n % rootEvery == 0;
            // "main" is line 0 and gets a third of the commits, so that HEAD's history is long.
            const std::size_t line = next(3) == 0 ? 0 : next(lineCount);
            const std::string ref = orphan      ? "refs/heads/orphan-" + std::to_string(n)
                                    : line == 0 ? "refs/heads/main"
                                                : "refs/heads/line-" + std::to_string(line);
            const std::string message = "Generated change " + std::to_string(n) + "\n\nOn line " +
                                        std::to_string(line) + " of the synthetic history.\n";
            const std::uint64_t time = 1700000000ULL + n * 60;
            out << "commit " << ref << "\nmark :" << mark << "\nauthor Author " << n % 50 << " <author"
                << n % 50 << "@example.invalid> " << time
                << " +0000\ncommitter Bench <bench@example.invalid> " << time << " +0000\ndata "
                << message.size() << "\n"
                << message;
            if (orphan) {
                out << "M 100644 :1 file-0.txt\n\n";
                orphanToMerge = mark;
                continue;
            }
            // A line's first commit starts from some earlier commit.
            const std::size_t parent = tips[line] != 0 ? tips[line] : n > 0 ? firstCommitMark + next(n) : 0;
            if (parent != 0)
                out << "from :" << parent << "\n";
            // One commit in eight merges other lines' tips; one merge in ten is an octopus.
            std::vector<std::size_t> merged;
            if (parent != 0 && next(8) == 0) {
                const std::size_t count = next(10) == 0 ? 3 : 1;
                for (std::size_t m = 0; m < count; ++m) {
                    const std::size_t other = tips[next(lineCount)];
                    if (other != 0 && other != parent &&
                        std::find(merged.begin(), merged.end(), other) == merged.end())
                        merged.push_back(other);
                }
            }
            if (line == 0 && orphanToMerge != 0) {
                merged.push_back(orphanToMerge);
                orphanToMerge = 0;
            }
            for (const std::size_t other : merged)
                out << "merge :" << other << "\n";
            out << "M 100644 :" << 1 + next(blobCount) << " file-" << next(fileCount) << ".txt\n\n";
            tips[line] = mark;
        }
        auto pointAt = [&](const std::string& ref, std::size_t i, std::size_t count) {
            // Spread over the history, denser towards the newest commits like real refs.
            const std::size_t back = shape.commits * i / std::max<std::size_t>(count, 1) / 4;
            out << "reset " << ref << "\nfrom :" << firstCommitMark + shape.commits - 1 - back << "\n\n";
        };
        for (std::size_t i = 0; i < shape.branches; ++i)
            pointAt("refs/heads/feature/topic-" + std::to_string(i), i, shape.branches);
        for (std::size_t i = 0; i < shape.tags; ++i)
            pointAt("refs/tags/v" + std::to_string(i / 100) + "." + std::to_string(i % 100), i, shape.tags);
        for (std::size_t i = 0; i < shape.remoteBranches; ++i)
            pointAt("refs/remotes/origin/topic-" + std::to_string(i), i, shape.remoteBranches);
    }
    runGit(directory, {"fast-import", "--quiet", "--active-branches=" + std::to_string(lineCount + 1)},
           stream.string());
    fs::remove(stream);
    runGit(directory, {"reset", "-q", "--hard", "main"});
}

} // namespace orvel::bench
