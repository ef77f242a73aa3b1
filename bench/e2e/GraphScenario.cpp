// graph-2000: a history of 200,000 commits with a thousand branches and tags and frequent merges;
// a graph load as the graph pane makes it (`commitGraph(2000)` through the service, then the
// lane layout) against git printing the same log with the same arguments.
#include "e2e/GraphInputs.h"
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include "core/parsers/LogParser.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "graph/LaneLayout.h"

#include <QCoro/QCoroTask>

#include <cstdio>
#include <filesystem>
#include <iostream>

namespace orvel::bench {

namespace {

constexpr long graphLimit = 2000;

int runGraph(const ScenarioOptions& options) {
    const HistoryShape shape = graphBenchmarkShape(options.tiny);
    if (!std::filesystem::exists(std::filesystem::path(options.repo) / ".git")) {
        std::cerr << "generating " << shape.commits << " commits in " << options.repo << "\n";
        const double generation = milliseconds([&] { makeHistoryRepository(options.repo, shape); });
        std::cerr << "generated in " << generation / 1000.0 << " s\n";
    }
    const std::vector<std::string> arguments{
        "log", "--all", "--topo-order", "-n", std::to_string(graphLimit), std::string(graphFormat)};

    BenchService bench(options.repo);
    auto& service = bench.service;
    const RepoEntry& repo = bench.repo;

    std::size_t rows = 0, commits = 0;
    Timing ours, git;
    QCoro::waitFor(service.commitGraph(repo, graphLimit)); // warms the caches and the remote list
    const auto runGit = [&] { git.measure([&] { gitOutput(options.repo, arguments); }); };
    const auto runOurs = [&] {
        ours.measure([&] {
            const auto loaded = QCoro::waitFor(service.commitGraph(repo, graphLimit));
            const GraphInputs inputs = graphInputs(loaded);
            commits = loaded.size();
            rows = layoutCommitRows(inputs.nodes).size();
        });
    };
    alternate(options.rounds, runGit, runOurs);
    char extra[96];
    std::snprintf(extra, sizeof extra, " commits=%zu rows=%zu", commits, rows);
    report(options.tiny ? "graph-tiny" : "graph-2000", ours, git, extra);
    const std::size_t expected = std::min<std::size_t>(shape.commits, graphLimit);
    return commits == expected && rows == expected ? 0 : 1;
}

const ScenarioRegistration registration("graph-2000", runGraph);

} // namespace

} // namespace orvel::bench
