// layout-200k: the lane layout over a whole history of 200,000 commits, against the time git needs
// to print that history in the graph format. The layout must take under a tenth of git's time.
#include "e2e/GraphInputs.h"
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include "core/parsers/LogParser.h"
#include "graph/LaneLayout.h"

#include <cstdio>
#include <filesystem>
#include <iostream>

namespace orvel::bench {

namespace {

int runLayout(const ScenarioOptions& options) {
    const HistoryShape shape = graphBenchmarkShape(options.tiny);
    if (!std::filesystem::exists(std::filesystem::path(options.repo) / ".git")) {
        std::cerr << "generating " << shape.commits << " commits in " << options.repo << "\n";
        const double generation = milliseconds([&] { makeHistoryRepository(options.repo, shape); });
        std::cerr << "generated in " << generation / 1000.0 << " s\n";
    }
    const std::vector<std::string> arguments{"log", "--all", "--topo-order", std::string(graphFormat)};

    std::string output;
    std::vector<double> layout, git;
    double parse = 0;
    std::size_t lanes = 0;
    std::vector<CommitRow> rows;
    GraphInputs inputs;
    const auto runGit = [&] {
        git.push_back(milliseconds([&] { output = gitOutput(options.repo, arguments); }));
        if (inputs.nodes.empty())
            parse = milliseconds(
                [&] { inputs = graphInputs(GitOutputParser::parseCommitGraph(output, {"origin"})); });
    };
    const auto runLayout = [&] {
        // The rows of a round are freed before the clock starts: their release is no part of the
        // layout, and a long-running program lays out into memory it has used before.
        rows.clear();
        rows.shrink_to_fit();
        layout.push_back(milliseconds([&] { rows = layoutCommitRows(inputs.nodes); }));
    };
    alternate(options.rounds, runGit, runLayout); // git's round comes first, so the inputs exist
    if (rows.size() != inputs.nodes.size())
        return 1;
    for (const auto& row : rows)
        lanes += row.lanes.size();
    char extra[160];
    std::snprintf(extra, sizeof extra, " commits=%zu lanes=%zu output_bytes=%zu parse_ms=%.2f",
                  inputs.nodes.size(), lanes, output.size(), parse);
    report(options.tiny ? "layout-tiny" : "layout-200k", layout, git, extra);
    return inputs.nodes.size() >= shape.commits ? 0 : 1;
}

const ScenarioRegistration registration("layout-200k", runLayout);

} // namespace

} // namespace orvel::bench
