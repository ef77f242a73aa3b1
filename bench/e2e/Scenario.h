// What every benchmark scenario shares: its options, registration by name, timing, and the one
// report line "scenario=<name> ours_ms=<x> git_ms=<y> ratio=<x/y>".
#pragma once

#include "core/records/RepoEntry.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace orvel::bench {

struct ScenarioOptions {
    std::string repo;  // an existing repository, or where to generate one
    bool tiny = false; // a small repository for a smoke run
    int rounds = 7;
};

using ScenarioFunction = std::function<int(const ScenarioOptions&)>;

std::map<std::string, ScenarioFunction>& scenarios();

// Registers a scenario at start-up: `static ScenarioRegistration r("name", run);` in its own file.
struct ScenarioRegistration {
    ScenarioRegistration(const std::string& name, ScenarioFunction run) {
        scenarios().emplace(name, std::move(run));
    }
};

// The git service as the program builds it, with default settings, and the repository it runs on.
struct BenchService {
    explicit BenchService(const std::string& repoPath);

    InMemoryUserDefaults defaults;
    NativeGitService service;
    RepoEntry repo;
};

double milliseconds(const std::function<void()>& work);

// CPU time, user and system, of this process and of the children it has waited for.
double cpuMilliseconds();

// The wall-clock and CPU times of one side, a pair per run. CPU time counts git's child as well,
// and a loaded machine disturbs it far less than the wall clock.
struct Timing {
    std::vector<double> wall;
    std::vector<double> cpu;

    void measure(const std::function<void()>& work);
};
double median(std::vector<double> values);

// The median of the per-round ratios ours[i] / git[i]. Each pair ran back to back, so a machine
// whose speed drifts over minutes disturbs this less than the ratio of the two medians.
double pairedRatio(const std::vector<double>& ours, const std::vector<double>& git);

// Runs git with `arguments` in `repo` under the environment the executor gives git, capturing
// stdout as the executor does; this is git's own time for the same output.
std::string gitOutput(const std::string& repo, const std::vector<std::string>& arguments);

// Runs `rounds` rounds of both sides, git first in even rounds and ours first in odd ones, so that
// neither side always runs on the caches and the freshly released memory that the other left.
void alternate(int rounds, const std::function<void()>& runGit, const std::function<void()>& runOurs);

// Prints the report line with `paired_ratio`; `extra` is appended as further key=value pairs.
void report(const std::string& scenario, const std::vector<double>& ours, const std::vector<double>& git,
            const std::string& extra = {});

// The report line of two timed sides, with the CPU figures after the wall-clock ones.
void report(const std::string& scenario, const Timing& ours, const Timing& git,
            const std::string& extra = {});

} // namespace orvel::bench
