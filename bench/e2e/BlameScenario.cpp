// blame-20k: one file of 20,000 lines touched by 2,000 commits; `blame` through the service (git's
// porcelain output read into runs) against git blame with the same arguments. The two run in
// alternating order, so that neither always inherits the other's warm caches. Besides the wall-clock
// medians the line reports the CPU time of both (this process and its children), which a loaded
// machine disturbs far less, and the parser's own share.
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include "core/parsers/BlameParser.h"
#include "core/service/NativeGitService.h"

#include <QCoro/QCoroTask>

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <sys/resource.h>

namespace orvel::bench {

namespace {

// CPU time, user and system, of this process and of the children it has waited for.
double cpuMilliseconds() {
    double total = 0;
    for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage{};
        ::getrusage(who, &usage);
        for (const timeval& time : {usage.ru_utime, usage.ru_stime})
            total += double(time.tv_sec) * 1e3 + double(time.tv_usec) / 1e3;
    }
    return total;
}

struct Timing {
    std::vector<double> wall;
    std::vector<double> cpu;

    void measure(const std::function<void()>& work) {
        const double cpuBefore = cpuMilliseconds();
        wall.push_back(milliseconds(work));
        cpu.push_back(cpuMilliseconds() - cpuBefore);
    }
};

int runBlame(const ScenarioOptions& options) {
    const BlameShape shape = options.tiny ? BlameShape{60, 300, 4} : BlameShape{2000, 20000, 40};
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
    Timing ours, git;
    std::string raw;
    const auto runGitBlame = [&] { raw = gitOutput(options.repo, arguments); };
    const auto runOurs = [&] {
        const auto entries = QCoro::waitFor(service.blame(repo, "blamed.txt"));
        runs = entries.size();
        lines = 0;
        for (const auto& entry : entries)
            lines += entry.lines.size();
    };
    for (int round = 0; round < options.rounds; ++round) {
        if (round % 2 == 0) {
            git.measure(runGitBlame);
            ours.measure(runOurs);
        } else {
            ours.measure(runOurs);
            git.measure(runGitBlame);
        }
    }

    std::vector<double> parse;
    for (int round = 0; round < std::max(options.rounds, 5); ++round)
        parse.push_back(milliseconds([&] { GitOutputParser::parseBlame(raw); }));

    const double gitCpu = std::max(median(git.cpu), 1e-9);
    char extra[256];
    std::snprintf(extra, sizeof extra,
                  " lines=%zu runs=%zu raw_bytes=%zu paired_ratio=%.3f ours_cpu_ms=%.1f git_cpu_ms=%.1f"
                  " cpu_ratio=%.3f paired_cpu_ratio=%.3f parse_ms=%.2f parse_ratio=%.4f",
                  lines, runs, raw.size(), pairedRatio(ours.wall, git.wall), median(ours.cpu), gitCpu,
                  median(ours.cpu) / gitCpu, pairedRatio(ours.cpu, git.cpu), median(parse),
                  median(parse) / std::max(median(git.wall), 1e-9));
    report(options.tiny ? "blame-tiny" : "blame-20k", ours.wall, git.wall, extra);
    return lines == shape.lines ? 0 : 1;
}

const ScenarioRegistration registration("blame-20k", runBlame);

} // namespace

} // namespace orvel::bench
