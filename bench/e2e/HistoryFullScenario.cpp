// history-full: the graph pane from its first page down to the root row of the 200,000-commit
// history of graph-2000, with git's commit-graph file written, against git printing that whole log
// with the same format. Also prints the memory high-water mark of this process after the root was
// reached (`peak_rss_mb`) and the longest the event loop stood still while pages arrived
// (`frame_ms`: the worst frame of a view scrolled into the freshly loaded pages). The memory is
// the worst of the rounds, each measured from the start of its own load.
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include "core/parsers/LogParser.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "notices/ToastManager.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <malloc.h>

#include <QCoro/QCoroTask>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace orvel::bench {

namespace {

// The kernel's high-water mark starts again from what the process holds now.
void resetPeakRss() {
    std::ofstream("/proc/self/clear_refs") << "5";
}

double peakRssMb() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmHWM:", 0) == 0)
            return std::stod(line.substr(6)) / 1024.0;
    return 0;
}

struct FullLoad {
    std::size_t rows = 0;
    double longestStallMs = 0;
};

// Opens the pane, asks for the end as Ctrl+End does, and turns the event loop until the root row
// is loaded, timing the gaps between turns of a timer that wants to fire every millisecond.
FullLoad loadToRoot(BenchService& bench, ToastManager& toasts) {
    RepoGraphPaneViewModel model(bench.repo, std::shared_ptr<GitServiceProtocol>(&bench.service, [](auto*) {}),
                                 toasts);
    FullLoad result;
    QElapsedTimer sinceTick;
    QTimer ticks;
    ticks.setInterval(1);
    QObject::connect(&ticks, &QTimer::timeout, [&] {
        result.longestStallMs = std::max(result.longestStallMs, sinceTick.nsecsElapsed() / 1e6);
        sinceTick.restart();
    });
    QCoro::waitFor(model.load());
    sinceTick.start();
    ticks.start();
    model.loadToEnd();
    while (model.isPaging() || model.hasOlderCommits())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    ticks.stop();
    // The root's selection reads its files; that read ends before the model does.
    while (model.isLoadingFileChanges())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    result.rows = model.commits().size();
    return result;
}

int runHistoryFull(const ScenarioOptions& options) {
    const HistoryShape shape = graphBenchmarkShape(options.tiny);
    if (!std::filesystem::exists(std::filesystem::path(options.repo) / ".git")) {
        std::cerr << "generating " << shape.commits << " commits in " << options.repo << "\n";
        makeHistoryRepository(options.repo, shape);
    }
    runGit(options.repo, {"commit-graph", "write", "--reachable", "--changed-paths"});
    const std::vector<std::string> arguments{"log", "--all", "--topo-order", std::string(graphFormat)};

    BenchService bench(options.repo);
    ToastManager toasts;
    std::vector<double> ours, git;
    FullLoad last;
    double worstStall = 0;
    double worstPeak = 0;
    alternate(
        options.tiny ? 1 : std::max(options.rounds, 1),
        [&] { git.push_back(milliseconds([&] { gitOutput(options.repo, arguments); })); },
        [&] {
            // Each round's peak is its own: what earlier rounds freed goes back to the system first.
            malloc_trim(0);
            resetPeakRss();
            ours.push_back(milliseconds([&] { last = loadToRoot(bench, toasts); }));
            worstStall = std::max(worstStall, last.longestStallMs);
            worstPeak = std::max(worstPeak, peakRssMb());
        });
    const auto expected = static_cast<std::size_t>(shape.commits);
    char extra[160];
    std::snprintf(extra, sizeof extra, " rows=%zu peak_rss_mb=%.1f frame_ms=%.2f", last.rows, worstPeak,
                  worstStall);
    report(options.tiny ? "history-full-tiny" : "history-full", ours, git, extra);
    return last.rows == expected ? 0 : 1;
}

const ScenarioRegistration registration("history-full", runHistoryFull);

} // namespace

} // namespace orvel::bench
