// discard-journal: Discard All over 1,000 modified files, with the undo journal keeping their bytes
// against the same discard with the journal turned off. The ratio is the cost of the journal.
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include <QCoro/QCoroTask>

#include <cstdio>
#include <fstream>
#include <sstream>

namespace orvel::bench {

namespace {

// The paths git sees as modified in the work tree.
std::vector<std::string> modifiedPaths(const std::string& repo) {
    std::vector<std::string> paths;
    std::istringstream in(gitOutput(repo, {"diff", "--name-only"}));
    for (std::string line; std::getline(in, line);)
        if (!line.empty())
            paths.push_back(line);
    return paths;
}

// Changes every file again, so that each round has the same discard ahead of it.
void modify(const std::string& repo, const std::vector<std::string>& paths, int round) {
    for (const std::string& path : paths)
        std::ofstream(repo + "/" + path, std::ios::app) << "round " << round << "\n";
}

int runDiscardJournal(const ScenarioOptions& options) {
    const std::size_t files = options.tiny ? 50 : 1000;
    ensureWorkingTreeRepository(options.repo, {files * 2, files, 0});
    const std::vector<std::string> paths = modifiedPaths(options.repo);

    BenchService bench(options.repo);
    int round = 0;
    std::size_t failures = 0;
    const auto discardAll = [&](UndoLimits limits) {
        modify(options.repo, paths, ++round);
        bench.service.setUndoLimits(limits);
        return milliseconds(
            [&] { failures += QCoro::waitFor(bench.service.discardPaths(bench.repo, paths, {})).size(); });
    };
    std::vector<double> journalled, alone;
    alternate(
        options.rounds, [&] { alone.push_back(discardAll({0, 0})); },
        [&] { journalled.push_back(discardAll(UndoLimits{})); });

    char extra[64];
    std::snprintf(extra, sizeof extra, " files=%zu failures=%zu", paths.size(), failures);
    report(options.tiny ? "discard-journal-tiny" : "discard-journal", journalled, alone, extra);
    return paths.size() == files && failures == 0 ? 0 : 1;
}

const ScenarioRegistration registration("discard-journal", runDiscardJournal);

} // namespace

} // namespace orvel::bench
