// sidebar-5000: a first sidebar load of 5,000 branches (half of them remote-tracking) and 1,000
// tags through the view model and the tree model, against git's own run of the commands the load
// makes: the branch list, the default branch's two reads, the tags and the stashes.
// filter-budget: a regular expression whose backtracking never ends on any name, over 5,000
// names; its ratio is the slowest pass over the filter's 0.1-second budget.
#include "e2e/BranchRepo.h"
#include "e2e/Scenario.h"

#include "core/parsers/RefParsers.h"
#include "core/parsers/StashParser.h"
#include "sidebar/SidebarFilterViewModel.h"
#include "sidebar/SidebarTreeModel.h"
#include "sidebar/SidebarViewModel.h"
#include "notices/ToastManager.h"

#include <QCoro/QCoroTask>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>

namespace orvel::bench {

namespace {

namespace fs = std::filesystem;

void ensureRepository(const ScenarioOptions& options, std::size_t branches, std::size_t tags) {
    if (fs::exists(fs::path(options.repo) / ".git"))
        return;
    std::cerr << "generating " << branches << " branches and " << tags << " tags in " << options.repo << "\n";
    makeBranchRepository(options.repo, branches, tags);
}

int runSidebar(const ScenarioOptions& options) {
    const std::size_t branches = options.tiny ? 50 : 5000;
    const std::size_t tags = options.tiny ? 10 : 1000;
    ensureRepository(options, branches, tags);
    // The commands of a first load in the order the service queues them; the merged-branch query
    // is not asked above 200 local branches.
    const std::vector<std::vector<std::string>> commands{
        {"branch", "-a", "--format", std::string(GitOutputParser::branchListFormat)},
        {"symbolic-ref", "refs/remotes/origin/HEAD"},
        {"branch", "--list", "--format=%(refname:short)"},
        {"tag", "-l", "--format", std::string(GitOutputParser::tagListFormat)},
        {"stash", "list", std::string(GitOutputParser::stashListFormat)},
    };

    BenchService bench(options.repo);
    auto service = std::shared_ptr<GitServiceProtocol>(&bench.service, [](GitServiceProtocol*) {});
    ToastManager toasts;
    std::size_t shown = 0, tagCount = 0;
    const auto loadOnce = [&] {
        SidebarViewModel sidebar(service, toasts);
        SidebarTreeModel tree(sidebar);
        QCoro::waitFor(sidebar.loadBranches(bench.repo));
        tree.rebuild();
        shown = static_cast<std::size_t>(tree.shownItemCount());
        tagCount = sidebar.localTags().size();
    };
    loadOnce(); // warms the file-system cache and the discovery of git
    Timing ours, git;
    alternate(
        options.rounds,
        [&] {
            git.measure([&] {
                for (const auto& arguments : commands)
                    gitOutput(options.repo, arguments);
            });
        },
        [&] { ours.measure(loadOnce); });
    char extra[96];
    std::snprintf(extra, sizeof extra, " rows=%zu tags=%zu", shown, tagCount);
    report(options.tiny ? "sidebar-tiny" : "sidebar-5000", ours, git, extra);
    // Every branch shows, main and origin/main among them, and every tag.
    const bool complete = tagCount == tags && shown == branches + 2 + tags;
    if (!complete)
        std::cerr << "sidebar-5000: expected " << branches + 2 + tags << " rows and " << tags
                  << " tags, shown " << shown << " and " << tagCount << "\n";
    return complete ? 0 : 1;
}

int runFilterBudget(const ScenarioOptions& options) {
    const std::size_t names = options.tiny ? 500 : 5000;
    SidebarLists lists;
    for (std::size_t n = 0; n < names; ++n) {
        BranchEntry branch;
        branch.name = branchName(n);
        lists.localBranches.push_back(std::move(branch));
    }
    // Nested repetition over the whole name, then a character no name ends with: the engine tries
    // every way of cutting each name before it gives up.
    const FilterQuery catastrophic{QStringLiteral("^([a-z0-9/-]+)*[!?]$"), false, true};
    const FilterQuery ordinary{QStringLiteral("feature/topic-0+4"), false, true};
    std::vector<double> passes, ordinaryPasses;
    bool timedOut = true, ordinaryFinished = true;
    for (int round = 0; round < options.rounds; ++round) {
        std::optional<SidebarFilterViewModel::Outcome> outcome;
        passes.push_back(
            milliseconds([&] { outcome = SidebarFilterViewModel::filterLists(lists, catastrophic, {}); }));
        timedOut = timedOut && outcome && outcome->timedOut;
        ordinaryPasses.push_back(
            milliseconds([&] { outcome = SidebarFilterViewModel::filterLists(lists, ordinary, {}); }));
        ordinaryFinished = ordinaryFinished && outcome && !outcome->timedOut;
    }
    const double budget =
        std::chrono::duration<double, std::milli>(SidebarFilterViewModel::regexBudget).count();
    const double slowest = *std::max_element(passes.begin(), passes.end());
    std::printf("scenario=%s ours_ms=%.2f slowest_ms=%.2f budget_ms=%.0f ratio=%.3f names=%zu timed_out=%d "
                "ordinary_ms=%.2f\n",
                options.tiny ? "filter-budget-tiny" : "filter-budget", median(passes), slowest, budget,
                slowest / budget, names, timedOut ? 1 : 0, median(ordinaryPasses));
    std::fflush(stdout);
    return timedOut && ordinaryFinished ? 0 : 1;
}

const ScenarioRegistration sidebarRegistration("sidebar-5000", runSidebar);
const ScenarioRegistration filterRegistration("filter-budget", runFilterBudget);

} // namespace

} // namespace orvel::bench
