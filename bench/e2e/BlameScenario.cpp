// blame-2k: one file of 4,000 lines changed by 2,000 commits; `blame` through the service (git's
// porcelain output read into runs) against git blame with the same arguments.
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"

#include <QCoro/QCoroTask>

#include <cstdio>
#include <filesystem>
#include <iostream>

namespace orvel::bench {

namespace {

int runBlame(const ScenarioOptions& options) {
    const BlameShape shape = options.tiny ? BlameShape{60, 300, 4} : BlameShape{2000, 4000, 40};
    if (!std::filesystem::exists(std::filesystem::path(options.repo) / ".git")) {
        std::cerr << "generating " << shape.commits << " commits of blamed.txt in " << options.repo << "\n";
        makeBlameRepository(options.repo, shape);
    }
    const std::vector<std::string> arguments{"blame", "--porcelain", "--", "blamed.txt"};

    BenchService bench(options.repo);
    auto& service = bench.service;
    const RepoEntry& repo = bench.repo;

    std::size_t lines = 0, runs = 0;
    QCoro::waitFor(service.blame(repo, "blamed.txt")); // warms caches and the discovery of git
    std::vector<double> ours, git;
    for (int round = 0; round < options.rounds; ++round) {
        git.push_back(milliseconds([&] { gitOutput(options.repo, arguments); }));
        ours.push_back(milliseconds([&] {
            const auto entries = QCoro::waitFor(service.blame(repo, "blamed.txt"));
            runs = entries.size();
            lines = 0;
            for (const auto& entry : entries)
                lines += entry.lines.size();
        }));
    }
    char extra[96];
    std::snprintf(extra, sizeof extra, " lines=%zu runs=%zu", lines, runs);
    report(options.tiny ? "blame-tiny" : "blame-2k", ours, git, extra);
    return lines == shape.lines ? 0 : 1;
}

const ScenarioRegistration registration("blame-2k", runBlame);

} // namespace

} // namespace orvel::bench
