#include "e2e/SyntheticRepo.h"

#include "core/process/ChildProcess.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

namespace orvel::bench {

namespace fs = std::filesystem;

namespace {

void runGit(const std::string& directory, std::vector<std::string> arguments, const std::string& input = "/dev/null") {
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

std::string fileContent(std::size_t n) {
    return "file " + std::to_string(n) + "\nthe second line of every generated file\n";
}

void writeFile(const fs::path& path, const std::string& content) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary | std::ios::trunc) << content;
}

} // namespace

std::string generatedFilePath(std::size_t n) {
    char path[96];
    std::snprintf(path, sizeof path, "src/module%03zu/component%02zu/source_file_%06zu.txt", n / 1000 % 1000,
                  n / 50 % 20, n);
    return path;
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
            out << "M 100644 inline " << generatedFilePath(n) << "\ndata " << content.size() << "\n" << content << "\n";
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
            out << "commit " << ref << "\nmark :" << mark << "\nauthor Author " << n % 50 << " <author" << n % 50
                << "@example.invalid> " << time << " +0000\ncommitter Bench <bench@example.invalid> " << time
                << " +0000\ndata " << message.size() << "\n"
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
                    if (other != 0 && other != parent && std::find(merged.begin(), merged.end(), other) == merged.end())
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
