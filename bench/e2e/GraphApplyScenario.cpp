// graph-apply-2000: what the graph pane does with a load once git has answered (the working-tree
// row, the lane layout, the ref pills spread down their lines, the row texts) for 2,000 commits
// carrying 1,000 refs, against git printing the same log. It must take under a tenth of git's time.
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include "core/parsers/LogParser.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "notices/ToastManager.h"

#include <QCoro/QCoroTask>

#include <cstdio>
#include <filesystem>
#include <iostream>

namespace orvel::bench {

namespace {

constexpr long graphLimit = 2000;

std::size_t refCount(const std::vector<GraphCommit>& commits) {
    std::size_t count = 0;
    for (const auto& commit : commits)
        count += commit.refs.size();
    return count;
}

// The newest commits of a history carry fewer refs than the whole: refs spread evenly over the
// loaded commits bring them up to `wanted`, in the generator's mix of local branches, tags and
// remote branches (45, 45 and 10 in a hundred).
void addRefsUpTo(std::vector<GraphCommit>& commits, std::size_t wanted) {
    std::size_t count = refCount(commits);
    for (std::size_t i = 0; count < wanted && !commits.empty(); ++i, ++count) {
        const GraphRefType type = i % 20 < 9    ? GraphRefType::localBranch
                                  : i % 20 < 18 ? GraphRefType::tag
                                                : GraphRefType::remoteBranch;
        const std::string name =
            (type == GraphRefType::remoteBranch ? "origin/bench-" : "bench-") + std::to_string(i);
        commits[(i * 7) % commits.size()].refs.push_back({name, type, false});
    }
}

int runGraphApply(const ScenarioOptions& options) {
    const HistoryShape shape = graphBenchmarkShape(options.tiny);
    if (!std::filesystem::exists(std::filesystem::path(options.repo) / ".git")) {
        std::cerr << "generating " << shape.commits << " commits in " << options.repo << "\n";
        makeHistoryRepository(options.repo, shape);
    }
    const std::vector<std::string> arguments{
        "log", "--all", "--topo-order", "-n", std::to_string(graphLimit), std::string(graphFormat)};

    BenchService bench(options.repo);
    std::vector<GraphCommit> loaded = QCoro::waitFor(bench.service.commitGraph(bench.repo, graphLimit));
    const std::size_t wantedRefs = options.tiny ? 150 : 1000;
    addRefsUpTo(loaded, wantedRefs);

    ToastManager toasts;
    RepoGraphPaneViewModel model(bench.repo,
                                 std::shared_ptr<GitServiceProtocol>(&bench.service, [](auto*) {}), toasts);
    model.setWorkingTreeCounts(1, 2);
    Timing ours, git;
    const auto runGit = [&] { git.measure([&] { gitOutput(options.repo, arguments); }); };
    const auto runOurs = [&] {
        std::vector<GraphCommit> input = loaded; // the copy is the load's, not part of the work
        ours.measure([&] { model.applyCommits(std::move(input)); });
    };
    alternate(options.rounds, runGit, runOurs);

    std::size_t pills = 0;
    for (const auto& row : model.refsByRow())
        pills += row.size();
    char extra[128];
    std::snprintf(extra, sizeof extra, " commits=%zu refs=%zu rows=%zu pills=%zu", loaded.size(),
                  refCount(loaded), model.commits().size(), pills);
    report(options.tiny ? "graph-apply-tiny" : "graph-apply-2000", ours, git, extra);
    return model.commits().size() == loaded.size() + 1 && refCount(loaded) >= wantedRefs ? 0 : 1;
}

const ScenarioRegistration registration("graph-apply-2000", runGraphApply);

} // namespace

} // namespace orvel::bench
