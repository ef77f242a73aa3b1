#include "e2e/SyntheticRepo.h"

#include "core/process/ChildProcess.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace orvel::bench {

namespace fs = std::filesystem;

void runGit(const std::string& directory, const std::vector<std::string>& arguments, const std::string& input) {
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
