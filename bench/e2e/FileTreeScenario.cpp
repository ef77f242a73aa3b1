// file-tree-100k: one commit that adds 100,000 files in nested folders; the history's file list of
// that commit (the service's commitFileChanges, then the list sorted and the directory tree built
// as the detail pane shows them) against git's own diff-tree with the same arguments.
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include "changes/FileTree.h"

#include <QCoro/QCoroTask>

#include <cstdio>

namespace orvel::bench {

namespace {

int runFileTree(const ScenarioOptions& options) {
    const WorkingTreeShape shape =
        options.tiny ? WorkingTreeShape{200, 0, 0} : WorkingTreeShape{100000, 0, 0};
    ensureWorkingTreeRepository(options.repo, shape);
    const std::vector<std::string> arguments{"diff-tree", "--root",        "--no-commit-id",
                                             "-r",        "--name-status", "HEAD"};

    BenchService bench(options.repo);
    std::size_t files = 0;
    std::size_t topLevel = 0;
    std::vector<double> ours, git, shaping;
    const auto showFiles = [&] {
        auto changes = QCoro::waitFor(bench.service.commitFileChanges(bench.repo, "HEAD"));
        shaping.push_back(milliseconds([&] {
            sortFileChanges(changes, FileChangesSortOrder::ascend);
            topLevel = buildFileTree(changes).size();
        }));
        files = changes.size();
    };
    showFiles(); // warms the object cache and the discovery of git
    shaping.clear();
    alternate(
        options.rounds, [&] { git.push_back(milliseconds([&] { gitOutput(options.repo, arguments); })); },
        [&] { ours.push_back(milliseconds(showFiles)); });

    char extra[128];
    std::snprintf(extra, sizeof extra, " files=%zu top_level=%zu tree_ms=%.2f", files, topLevel,
                  median(shaping));
    report(options.tiny ? "file-tree-tiny" : "file-tree-100k", ours, git, extra);
    return files == shape.trackedFiles ? 0 : 1;
}

const ScenarioRegistration registration("file-tree-100k", runFileTree);

} // namespace

} // namespace orvel::bench
