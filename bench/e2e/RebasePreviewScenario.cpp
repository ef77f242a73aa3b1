// rebase-preview-50: a branch of 50 commits, each changing its own file, to be rebased onto a main
// line that changed every one of those files elsewhere (and two of them on the same lines), so that
// every step is a real three-way merge. Ours predicts the whole plan through the service; git's
// side runs, for the same steps, the commands git 2.39 needs for a pick on a tree (`commit-tree`
// for the throw-away base, then `merge-tree`), each step on the tree the one before left; every
// round of ours starts from an empty cache of steps. The line also reports merge-tree's share
// alone and one re-prediction after two rows swapped places, in the middle, at the end and at the
// start of the plan, each after the plan as it was had been predicted into the same cache.
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include "core/commands/MergePredictionCache.h"
#include "core/parsers/MergeTreeParser.h"
#include "core/service/NativeGitService.h"

#include <QCoro/QCoroTask>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace orvel::bench {

namespace {

std::string fileText(std::size_t file, const std::string& top, const std::string& bottom) {
    std::string text = top + "\n";
    for (int line = 0; line < 40; ++line)
        text += "file " + std::to_string(file) + " line " + std::to_string(line) + "\n";
    return text + bottom + "\n";
}

void write(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

// main and topic fork after one commit of `files` files; main then rewrites each file's last
// line, topic each file's first line in a commit of its own, and main also the first line of
// files 10 and 30, where topic's steps conflict.
void makeRebaseRepository(const std::string& directory, std::size_t files) {
    std::filesystem::create_directories(directory);
    runGit(directory, {"init", "-q", "-b", "main"});
    const auto name = [](std::size_t file) { return "f" + std::to_string(file) + ".txt"; };
    for (std::size_t file = 0; file < files; ++file)
        write(directory + "/" + name(file), fileText(file, "top", "bottom"));
    runGit(directory, {"add", "-A"});
    runGit(directory, {"commit", "-q", "-m", "base"});
    runGit(directory, {"checkout", "-q", "-b", "topic"});
    for (std::size_t file = 0; file < files; ++file) {
        write(directory + "/" + name(file), fileText(file, "topic top", "bottom"));
        runGit(directory, {"commit", "-q", "-a", "-m", "topic changes " + name(file)});
    }
    runGit(directory, {"checkout", "-q", "main"});
    for (std::size_t file = 0; file < files; ++file) {
        const bool clash = file == 10 || file == 30;
        write(directory + "/" + name(file), fileText(file, clash ? "main top" : "top", "main bottom"));
    }
    runGit(directory, {"commit", "-q", "-a", "-m", "main changes every file"});
    runGit(directory, {"checkout", "-q", "topic"});
}

int runRebasePreview(const ScenarioOptions& options) {
    const std::size_t steps = options.tiny ? 8 : 50;
    if (!std::filesystem::exists(std::filesystem::path(options.repo) / ".git")) {
        std::cerr << "generating a " << steps << "-step rebase in " << options.repo << "\n";
        makeRebaseRepository(options.repo, steps);
    }
    BenchService bench(options.repo);
    auto& service = bench.service;
    RebasePlan plan{"main", QCoro::waitFor(service.rebaseTodoList(bench.repo, "main"))};
    if (plan.entries.size() != steps)
        return 1;
    // The plan with the rows at `row` and the one after it swapped.
    const auto swappedAt = [&plan](std::size_t row) {
        RebasePlan swapped = plan;
        std::swap(swapped.entries[row], swapped.entries[row + 1]);
        return swapped;
    };

    // The steps as git's side runs them: each commit, its parent, and the tree the plan starts on.
    const auto trimmedLine = [](std::string text) { return text.substr(0, text.find('\n')); };
    std::vector<std::pair<std::string, std::string>> picks; // commit, parent
    for (const auto& entry : plan.entries)
        picks.emplace_back(trimmedLine(gitOutput(options.repo, {"rev-parse", entry.hash})),
                           trimmedLine(gitOutput(options.repo, {"rev-parse", entry.hash + "^"})));
    const std::string ontoTree = trimmedLine(gitOutput(options.repo, {"rev-parse", "main^{tree}"}));
    const std::vector<std::string> identity{"-c", "user.name=bench", "-c", "user.email=bench@localhost"};
    std::vector<std::string> oursCommits(steps);
    const auto runGitSteps = [&](bool makeCommits) {
        std::string tree = ontoTree;
        for (std::size_t i = 0; i < steps; ++i) {
            if (makeCommits) {
                auto arguments = identity;
                arguments.insert(arguments.end(), {"commit-tree", "-m", "x", "-p", picks[i].second, tree});
                oursCommits[i] = trimmedLine(gitOutput(options.repo, arguments));
            }
            const auto merged = GitOutputParser::parseMergeTree(
                gitOutput(options.repo, {"merge-tree", "--write-tree", "--name-only", "--no-messages", "-z",
                                         oursCommits[i], picks[i].first}));
            tree = merged ? merged->tree : tree;
        }
    };

    std::size_t conflicts = 0;
    const auto runOurs = [&] {
        conflicts = 0;
        const auto cache = std::make_shared<MergePredictionCache>();
        for (const auto& prediction : QCoro::waitFor(service.predictRebase(bench.repo, plan, cache)))
            conflicts += prediction.outcome == MergePrediction::Outcome::conflicts;
    };
    runOurs(); // warms caches and the discovery of git
    Timing ours, git, mergeTreeOnly;
    alternate(options.rounds, [&] { git.measure([&] { runGitSteps(true); }); }, [&] { ours.measure(runOurs); });
    for (int round = 0; round < options.rounds; ++round)
        mergeTreeOnly.measure([&] { runGitSteps(false); });
    // The median time to predict the plan swapped at `row`, with the plan as it was predicted first.
    const auto repredicted = [&](std::size_t row) {
        const RebasePlan changed = swappedAt(row);
        std::vector<double> times;
        for (int round = 0; round < options.rounds; ++round) {
            const auto cache = std::make_shared<MergePredictionCache>();
            QCoro::waitFor(service.predictRebase(bench.repo, plan, cache));
            times.push_back(
                milliseconds([&] { QCoro::waitFor(service.predictRebase(bench.repo, changed, cache)); }));
        }
        return median(times);
    };

    char extra[300];
    std::snprintf(
        extra, sizeof extra,
        " steps=%zu conflicts=%zu merge_tree_only_ms=%.2f reprediction_ms=%.2f reprediction_end_ms=%.2f"
        " reprediction_start_ms=%.2f",
        steps, conflicts, median(mergeTreeOnly.wall), repredicted(steps / 2), repredicted(steps - 2),
        repredicted(0));
    report(options.tiny ? "rebase-preview-tiny" : "rebase-preview-50", ours, git, extra);
    return conflicts == (options.tiny ? 0U : 2U) ? 0 : 1;
}

const ScenarioRegistration registration("rebase-preview-50", runRebasePreview);

} // namespace

} // namespace orvel::bench
