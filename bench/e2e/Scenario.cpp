#include "e2e/Scenario.h"

#include "core/process/ChildProcess.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <sys/resource.h>

namespace orvel::bench {

std::map<std::string, ScenarioFunction>& scenarios() {
    static std::map<std::string, ScenarioFunction> registry;
    return registry;
}

BenchService::BenchService(const std::string& repoPath)
    : service(std::make_shared<SubprocessExecutor>(std::nullopt, defaults), std::make_shared<GitOpRunner>()) {
    repo.path = repoPath;
}

double milliseconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double cpuMilliseconds() {
    double total = 0;
    for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage{};
        ::getrusage(who, &usage);
        for (const timeval& time : {usage.ru_utime, usage.ru_stime})
            total += double(time.tv_sec) * 1e3 + double(time.tv_usec) / 1e3;
    }
    return total;
}

void Timing::measure(const std::function<void()>& work) {
    const double cpuBefore = cpuMilliseconds();
    wall.push_back(milliseconds(work));
    cpu.push_back(cpuMilliseconds() - cpuBefore);
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.empty() ? 0.0 : values[values.size() / 2];
}

double pairedRatio(const std::vector<double>& ours, const std::vector<double>& git) {
    std::vector<double> ratios;
    for (std::size_t i = 0; i < std::min(ours.size(), git.size()); ++i) {
        if (git[i] > 0)
            ratios.push_back(ours[i] / git[i]);
    }
    return median(std::move(ratios));
}

std::string gitOutput(const std::string& repo, const std::vector<std::string>& arguments) {
    ChildRequest request;
    request.executable = "/usr/bin/git";
    request.arguments = {"-C", repo};
    request.arguments.insert(request.arguments.end(), arguments.begin(), arguments.end());
    request.environment = gitEnvironment(inheritedEnvironment(), std::nullopt);
    request.stdoutCapture = StreamCapture::capture(SubprocessExecutor::stdoutLimit);
    request.stderrCapture = StreamCapture::capture(SubprocessExecutor::stderrLimit);
    return runChild(request).out;
}

void alternate(int rounds, const std::function<void()>& runGit, const std::function<void()>& runOurs) {
    for (int round = 0; round < rounds; ++round) {
        const bool gitFirst = round % 2 == 0;
        (gitFirst ? runGit : runOurs)();
        (gitFirst ? runOurs : runGit)();
    }
}

void report(const std::string& scenario, const std::vector<double>& ours, const std::vector<double>& git,
            const std::string& extra) {
    const double oursMs = median(ours), gitMs = median(git);
    std::printf("scenario=%s ours_ms=%.2f git_ms=%.2f ratio=%.3f paired_ratio=%.3f%s\n", scenario.c_str(),
                oursMs, gitMs, gitMs > 0 ? oursMs / gitMs : 0.0, pairedRatio(ours, git), extra.c_str());
    std::fflush(stdout);
}

void report(const std::string& scenario, const Timing& ours, const Timing& git, const std::string& extra) {
    const double gitCpu = std::max(median(git.cpu), 1e-9);
    char cpu[160];
    std::snprintf(cpu, sizeof cpu, " ours_cpu_ms=%.1f git_cpu_ms=%.1f cpu_ratio=%.3f paired_cpu_ratio=%.3f",
                  median(ours.cpu), gitCpu, median(ours.cpu) / gitCpu, pairedRatio(ours.cpu, git.cpu));
    report(scenario, ours.wall, git.wall, cpu + extra);
}

} // namespace orvel::bench
