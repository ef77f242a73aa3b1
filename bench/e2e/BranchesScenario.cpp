// branches-5000: 5,000 branches, half local and half remote-tracking, every other local branch with
// an upstream it has diverged from. `branches` through the service (queue, executor and
// parseBranches) against git's own run of the same command; the parser's share is reported on its
// own as well.
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include "core/parsers/RefParsers.h"
#include "core/service/NativeGitService.h"

#include <QCoro/QCoroTask>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace orvel::bench {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t commitsInHistory = 10;

std::string branchName(std::size_t n) {
    char name[64];
    std::snprintf(name, sizeof name, "team%02zu/feature/topic-%05zu", n % 17, n);
    return name;
}

void writeCommit(std::ofstream& out, const std::string& ref, std::size_t mark, std::size_t parent) {
    const std::string subject = "Change " + std::to_string(mark) + ": adjust the generated module";
    const std::string content = "revision " + std::to_string(mark) + "\n";
    out << "commit " << ref << "\nmark :" << mark << "\ncommitter Bench <bench@orvel.invalid> "
        << 1767225600 + mark * 3600 << " +0000\ndata " << subject.size() << "\n"
        << subject << "\n";
    if (parent)
        out << "from :" << parent << "\n";
    out << "M 100644 inline file.txt\ndata " << content.size() << "\n" << content << "\n";
}

// One fast-import stream makes two lines of history that part after the third commit, main (marks
// 1 to 10) and origin/main (marks 11 to 20), and points every branch at one of their commits: local
// branch n on main past the fork, its remote counterpart on the other line, so that a tracking
// branch is both ahead and behind. Upstreams go straight into the configuration.
void makeBranchRepository(const std::string& directory, std::size_t branches) {
    fs::create_directories(directory);
    runGit(directory, {"init", "-q", "-b", "main"});
    const fs::path stream = fs::path(directory) / ".git" / "orvel-fast-import";
    {
        std::ofstream out(stream, std::ios::binary);
        for (std::size_t c = 1; c <= commitsInHistory; ++c)
            writeCommit(out, "refs/heads/main", c, c - 1);
        for (std::size_t c = 1; c <= commitsInHistory; ++c)
            writeCommit(out, "refs/remotes/origin/main", commitsInHistory + c,
                        c == 1 ? 3 : commitsInHistory + c - 1);
        const std::size_t locals = branches / 2;
        for (std::size_t n = 0; n < locals; ++n) {
            out << "reset refs/heads/" << branchName(n) << "\nfrom :" << 4 + n % 7 << "\n\n";
            out << "reset refs/remotes/origin/" << branchName(n)
                << "\nfrom :" << commitsInHistory + 1 + n % 10 << "\n\n";
        }
    }
    runGit(directory, {"fast-import", "--quiet"}, stream.string());
    fs::remove(stream);

    std::ofstream config(fs::path(directory) / ".git" / "config", std::ios::binary | std::ios::app);
    config << "[remote \"origin\"]\n\turl = " << directory << "/.no-remote\n"
           << "\tfetch = +refs/heads/*:refs/remotes/origin/*\n";
    for (std::size_t n = 0; n < branches / 2; n += 2)
        config << "[branch \"" << branchName(n) << "\"]\n\tremote = origin\n\tmerge = refs/heads/"
               << branchName(n) << "\n";
    config.close();
    runGit(directory, {"pack-refs", "--all"});
}

int runBranches(const ScenarioOptions& options) {
    const std::size_t branches = options.tiny ? 50 : 5000;
    if (!fs::exists(fs::path(options.repo) / ".git")) {
        std::cerr << "generating " << branches << " branches in " << options.repo << "\n";
        makeBranchRepository(options.repo, branches);
    }
    const std::vector<std::string> arguments{"branch", "-a", "--format",
                                             std::string(GitOutputParser::branchListFormat)};

    BenchService bench(options.repo);
    std::size_t parsedCount = 0;
    // A first run warms the file-system cache and the discovery of git.
    QCoro::waitFor(bench.service.branches(bench.repo));
    std::vector<double> ours, git, parse;
    std::string raw;
    const auto runGitBranch = [&] {
        git.push_back(milliseconds([&] { raw = gitOutput(options.repo, arguments); }));
    };
    const auto runOurs = [&] {
        ours.push_back(
            milliseconds([&] { parsedCount = QCoro::waitFor(bench.service.branches(bench.repo)).size(); }));
    };
    alternate(options.rounds, runGitBranch, runOurs);
    for (int round = 0; round < options.rounds; ++round)
        parse.push_back(milliseconds([&] { GitOutputParser::parseBranches(raw); }));

    const auto parsed = GitOutputParser::parseBranches(raw);
    std::size_t tracking = 0;
    for (const auto& branch : parsed)
        tracking += branch.upstream && branch.upstream->ahead > 0 && branch.upstream->behind > 0;
    char extra[224];
    std::snprintf(extra, sizeof extra,
                  " branches=%zu tracking=%zu raw_bytes=%zu parse_ms=%.2f parse_ratio=%.3f", parsed.size(),
                  tracking, raw.size(), median(parse), median(parse) / std::max(median(git), 1e-9));
    report(options.tiny ? "branches-tiny" : "branches-5000", ours, git, extra);
    // main, origin/main and every generated branch, each read whole; tracking ones with their distances.
    const bool complete = parsed.size() == branches + 2 && parsedCount == parsed.size() && tracking > 0;
    if (!complete)
        std::cerr << "branches-5000: expected " << branches + 2 << " branches, read " << parsed.size()
                  << "\n";
    return complete ? 0 : 1;
}

const ScenarioRegistration registration("branches-5000", runBranches);

} // namespace

} // namespace orvel::bench
