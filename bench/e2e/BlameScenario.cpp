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

namespace orvel::bench {

namespace {

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
    alternate(
        options.rounds, [&] { git.measure(runGitBlame); }, [&] { ours.measure(runOurs); });

    std::vector<double> parse;
    for (int round = 0; round < std::max(options.rounds, 5); ++round)
        parse.push_back(milliseconds([&] { GitOutputParser::parseBlame(raw); }));

    char extra[160];
    std::snprintf(extra, sizeof extra, " lines=%zu runs=%zu raw_bytes=%zu parse_ms=%.2f parse_ratio=%.4f",
                  lines, runs, raw.size(), median(parse), median(parse) / std::max(median(git.wall), 1e-9));
    report(options.tiny ? "blame-tiny" : "blame-20k", ours, git, extra);
    return lines == shape.lines ? 0 : 1;
}

const ScenarioRegistration registration("blame-20k", runBlame);

} // namespace

} // namespace orvel::bench
