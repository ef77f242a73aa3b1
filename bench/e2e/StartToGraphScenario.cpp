// start-to-graph: from the start of the program to its first painted graph of 2,000 rows, with the
// repository of graph-2000 opened through ORVEL_AUTOTEST_OPEN_REPO, against git printing the same
// log in the same run. Measured without git's commit-graph file (`ratio`), then with it
// (`ratio_commit_graph`), and the peak memory of one program with three such tabs open
// (`peak_rss_mb`). The program runs offscreen with a private settings folder and prints a marker
// line when ORVEL_BENCH_MARK_GRAPH asks; the tool needs the program built beside it.
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include "core/parsers/LogParser.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <spawn.h>
#include <string>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace orvel::bench {

namespace {

namespace fs = std::filesystem;

constexpr long graphLimit = 2000;
constexpr const char* markerLine = "orvel: graph painted";

struct ProgramRun {
    double millisecondsToGraphs = 0; // until the last expected marker
    double peakRssMb = 0;
    bool complete = false;
};

fs::path programPath() {
    return fs::read_symlink("/proc/self/exe").parent_path().parent_path() / "src" / "orvel";
}

double peakRssMb(pid_t pid) {
    std::ifstream status("/proc/" + std::to_string(pid) + "/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmHWM:", 0) == 0)
            return std::stod(line.substr(6)) / 1024.0;
    return 0;
}

// Starts the program on `repos` (the first through the automatic open, the others as further
// tabs), waits until each has painted its graph, and ends it.
ProgramRun runProgram(const std::vector<std::string>& repos, const fs::path& configHome) {
    std::vector<std::string> environment;
    for (char** entry = environ; *entry; ++entry)
        environment.emplace_back(*entry);
    std::string moreRepos;
    for (std::size_t i = 1; i < repos.size(); ++i)
        moreRepos += (i > 1 ? "\n" : "") + repos[i];
    environment.insert(environment.end(),
                       {"QT_QPA_PLATFORM=offscreen", "XDG_CONFIG_HOME=" + configHome.string(),
                        "ORVEL_AUTOTEST_OPEN_REPO=" + repos.front(), "ORVEL_BENCH_MARK_GRAPH=1",
                        "ORVEL_BENCH_OPEN_REPOS=" + moreRepos});
    std::vector<char*> envp;
    for (std::string& entry : environment)
        envp.push_back(entry.data());
    envp.push_back(nullptr);
    const std::string program = programPath().string();
    std::vector<char*> argv{const_cast<char*>(program.c_str()), nullptr};

    int pipeFds[2];
    if (pipe(pipeFds) != 0)
        throw std::runtime_error("pipe failed");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipeFds[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, pipeFds[0]);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    const auto start = std::chrono::steady_clock::now();
    pid_t pid = 0;
    const int spawned = posix_spawn(&pid, program.c_str(), &actions, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    close(pipeFds[1]);
    if (spawned != 0) {
        close(pipeFds[0]);
        throw std::runtime_error("cannot start " + program + ": " + std::strerror(spawned));
    }

    ProgramRun run;
    std::size_t markers = 0;
    std::string pending;
    const auto deadline = start + std::chrono::minutes(2);
    while (markers < repos.size() && std::chrono::steady_clock::now() < deadline) {
        pollfd fd{pipeFds[0], POLLIN, 0};
        if (poll(&fd, 1, 1000) <= 0)
            continue;
        char buffer[4096];
        const ssize_t length = read(pipeFds[0], buffer, sizeof buffer);
        if (length <= 0)
            break;
        pending.append(buffer, static_cast<std::size_t>(length));
        for (std::size_t end; (end = pending.find('\n')) != std::string::npos; pending.erase(0, end + 1))
            markers += pending.compare(0, end, markerLine) == 0;
    }
    run.millisecondsToGraphs =
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    run.complete = markers == repos.size();
    run.peakRssMb = peakRssMb(pid);
    kill(pid, SIGTERM);
    int status = 0;
    waitpid(pid, &status, 0);
    close(pipeFds[0]);
    return run;
}

void writeSettings(const fs::path& configHome, bool maintainCommitGraph) {
    fs::create_directories(configHome / "Orvel");
    std::ofstream(configHome / "Orvel" / "Orvel.ini")
        << "[General]\nmaintainCommitGraph=" << (maintainCommitGraph ? "true" : "false") << "\n";
}

void removeCommitGraph(const std::string& repo) {
    fs::remove(fs::path(repo) / ".git/objects/info/commit-graph");
    fs::remove_all(fs::path(repo) / ".git/objects/info/commit-graphs");
}

int runStartToGraph(const ScenarioOptions& options) {
    const HistoryShape shape = graphBenchmarkShape(options.tiny);
    if (!fs::exists(fs::path(options.repo) / ".git")) {
        std::cerr << "generating " << shape.commits << " commits in " << options.repo << "\n";
        makeHistoryRepository(options.repo, shape);
    }
    if (!fs::exists(programPath())) {
        std::cerr << "orvel-bench: start-to-graph needs the program at " << programPath() << "\n";
        return 2;
    }
    const std::vector<std::string> arguments{
        "log", "--all", "--topo-order", "-n", std::to_string(graphLimit), std::string(graphFormat)};
    const fs::path configHome =
        fs::temp_directory_path() / ("orvel-bench-config-" + std::to_string(getpid()));

    bool complete = true;
    // Each round runs git and the program back to back, alternating which goes first.
    auto measure = [&](std::vector<double>& ours, std::vector<double>& git) {
        for (int round = 0; round < options.rounds; ++round) {
            auto timeGit = [&] { git.push_back(milliseconds([&] { gitOutput(options.repo, arguments); })); };
            if (round % 2 == 0)
                timeGit();
            const ProgramRun run = runProgram({options.repo}, configHome);
            complete = complete && run.complete;
            ours.push_back(run.millisecondsToGraphs);
            if (round % 2 == 1)
                timeGit();
        }
    };

    // Without the file: the program must not write it either.
    writeSettings(configHome, false);
    removeCommitGraph(options.repo);
    std::vector<double> ours, git;
    measure(ours, git);

    runGit(options.repo, {"commit-graph", "write", "--reachable", "--changed-paths"});
    std::vector<double> oursWithGraph, gitWithGraph;
    measure(oursWithGraph, gitWithGraph);

    // Three tabs: the repository and two linked worktrees of it, which share its objects.
    std::vector<std::string> repos{options.repo};
    for (const char* name : {"bench-tab-2", "bench-tab-3"}) {
        const fs::path worktree = fs::absolute(options.repo).parent_path() / name;
        if (!fs::exists(worktree))
            runGit(options.repo, {"worktree", "add", "-q", "--detach", worktree.string()});
        repos.push_back(worktree.string());
    }
    const ProgramRun threeTabs = runProgram(repos, configHome);
    complete = complete && threeTabs.complete;
    fs::remove_all(configHome);

    char extra[160];
    std::snprintf(extra, sizeof extra, " ratio_commit_graph=%.3f ours_commit_graph_ms=%.2f peak_rss_mb=%.1f",
                  pairedRatio(oursWithGraph, gitWithGraph), median(oursWithGraph), threeTabs.peakRssMb);
    report(options.tiny ? "start-to-graph-tiny" : "start-to-graph", ours, git, extra);
    if (!complete)
        std::cerr << "orvel-bench: the program did not report every painted graph\n";
    return complete ? 0 : 1;
}

const ScenarioRegistration registration("start-to-graph", runStartToGraph);

} // namespace

} // namespace orvel::bench
