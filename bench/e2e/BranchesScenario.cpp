// branches-5000: 5,000 branches, half local and half remote-tracking, every other local branch with
// an upstream it has diverged from. `branches` through the service (queue, executor and
// parseBranches) against git's own run of the same command; the parser's share is reported on its
// own as well.
#include "e2e/BranchRepo.h"
#include "e2e/Scenario.h"

#include "core/parsers/RefParsers.h"
#include "core/service/NativeGitService.h"

#include <QCoro/QCoroTask>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace orvel::bench {

namespace {

namespace fs = std::filesystem;

int runBranches(const ScenarioOptions& options) {
    const std::size_t branches = options.tiny ? 50 : 5000;
    if (!fs::exists(fs::path(options.repo) / ".git")) {
        std::cerr << "generating " << branches << " branches in " << options.repo << "\n";
        makeBranchRepository(options.repo, branches, 0);
    }
    const std::vector<std::string> arguments{"branch", "-a", "--format",
                                             std::string(GitOutputParser::branchListFormat)};

    BenchService bench(options.repo);
    std::size_t parsedCount = 0;
    // A first run warms the file-system cache and the discovery of git.
    QCoro::waitFor(bench.service.branches(bench.repo));
    std::vector<double> ours, git, parse;
    std::string raw;
    const auto runGitBranch = [&] {
        git.push_back(milliseconds([&] { raw = gitOutput(options.repo, arguments); }));
    };
    const auto runOurs = [&] {
        ours.push_back(
            milliseconds([&] { parsedCount = QCoro::waitFor(bench.service.branches(bench.repo)).size(); }));
    };
    alternate(options.rounds, runGitBranch, runOurs);
    for (int round = 0; round < options.rounds; ++round)
        parse.push_back(milliseconds([&] { GitOutputParser::parseBranches(raw); }));

    const auto parsed = GitOutputParser::parseBranches(raw);
    std::size_t tracking = 0;
    for (const auto& branch : parsed)
        tracking += branch.upstream && branch.upstream->ahead > 0 && branch.upstream->behind > 0;
    char extra[224];
    std::snprintf(extra, sizeof extra,
                  " branches=%zu tracking=%zu raw_bytes=%zu parse_ms=%.2f parse_ratio=%.3f", parsed.size(),
                  tracking, raw.size(), median(parse), median(parse) / std::max(median(git), 1e-9));
    report(options.tiny ? "branches-tiny" : "branches-5000", ours, git, extra);
    // main, origin/main and every generated branch, each read whole; tracking ones with their distances.
    const bool complete = parsed.size() == branches + 2 && parsedCount == parsed.size() && tracking > 0;
    if (!complete)
        std::cerr << "branches-5000: expected " << branches + 2 << " branches, read " << parsed.size()
                  << "\n";
    return complete ? 0 : 1;
}

const ScenarioRegistration registration("branches-5000", runBranches);

} // namespace

} // namespace orvel::bench
