// status-10k-list: a working tree with 10,000 changed files (5,000 modified, 5,000 untracked); a
// refresh of the changes page's model, from the status read to both lists' item models holding
// their rows, against git's own status with the same arguments. A new model each round, so every
// round builds the lists rather than finding them equal.
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include "changes/ChangesPaneViewModel.h"
#include "changes/FileTreeModel.h"
#include "notices/ToastManager.h"

#include <QCoro/QCoroTask>

#include <cstdio>

namespace orvel::bench {

namespace {

int runStatusList(const ScenarioOptions& options) {
    const WorkingTreeShape shape =
        options.tiny ? WorkingTreeShape{200, 20, 20} : WorkingTreeShape{20000, 5000, 5000};
    ensureWorkingTreeRepository(options.repo, shape);
    const std::vector<std::string>& arguments = statusArguments();

    BenchService bench(options.repo);
    // The bench owns the service; the model only borrows it.
    const std::shared_ptr<GitServiceProtocol> service(&bench.service, [](GitServiceProtocol*) {});
    ToastManager toasts;
    int rows = 0;
    const auto refresh = [&] {
        ChangesPaneViewModel model(bench.repo, service, toasts);
        FileTreeModel staged, unstaged;
        QObject::connect(&model, &ChangesPaneViewModel::listsChanged, [&] {
            staged.setFiles(model.filteredStagedFiles());
            unstaged.setFiles(model.filteredUnstagedFiles());
        });
        QCoro::waitFor(model.refreshStatus());
        rows = staged.rowCount() + unstaged.rowCount();
    };
    std::vector<double> ours, git;
    refresh(); // warms the file-system cache and the discovery of git
    alternate(
        options.rounds, [&] { git.push_back(milliseconds([&] { gitOutput(options.repo, arguments); })); },
        [&] { ours.push_back(milliseconds(refresh)); });

    char extra[64];
    std::snprintf(extra, sizeof extra, " rows=%d", rows);
    report(options.tiny ? "status-list-tiny" : "status-10k-list", ours, git, extra);
    const auto changed = static_cast<int>(shape.modifiedFiles + shape.untrackedFiles);
    return rows == changed ? 0 : 1;
}

const ScenarioRegistration registration("status-10k-list", runStatusList);

} // namespace

} // namespace orvel::bench
