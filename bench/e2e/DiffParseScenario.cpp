// diff-parse: `parseDiff` on the diff between the two commits of a generated repository, about
// 100 MB of text, against git's own time to print that diff. Reports the parse's throughput and
// its peak heap, the text included, and checks the counts against `git diff --shortstat`.
#include "e2e/AllocationCounter.h"
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include "core/parsers/DiffParser.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"

#include <QCoro/QCoroTask>

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <malloc.h>
#include <sys/resource.h>

namespace orvel::bench {

namespace {

struct Totals {
    std::size_t files = 0, hunks = 0, lines = 0;
    long additions = 0, deletions = 0;
};

Totals totalsOf(const DiffResult& diff) {
    Totals totals;
    totals.files = diff.files.size();
    for (const auto& file : diff.files) {
        totals.hunks += file.hunks.size();
        totals.additions += file.additions;
        totals.deletions += file.deletions;
        for (const auto& hunk : file.hunks)
            totals.lines += hunk.lines.size();
    }
    return totals;
}

// " 5 files changed, 120 insertions(+), 80 deletions(-)"
long shortstatNumber(const std::string& text, const std::string& word) {
    const auto at = text.find(word);
    if (at == std::string::npos)
        return 0;
    const auto start = text.rfind(' ', at - 2);
    return std::stol(text.substr(start + 1, at - start - 1));
}

struct Usage {
    double userMs = 0, systemMs = 0;
    long minorFaults = 0;
    Usage operator-(const Usage& other) const {
        return {userMs - other.userMs, systemMs - other.systemMs, minorFaults - other.minorFaults};
    }
};

Usage usage() {
    rusage self{};
    ::getrusage(RUSAGE_THREAD, &self);
    auto ms = [](const timeval& time) { return time.tv_sec * 1000.0 + time.tv_usec / 1000.0; };
    return {ms(self.ru_utime), ms(self.ru_stime), self.ru_minflt};
}

int runDiffParse(const ScenarioOptions& options) {
    const DiffHistoryShape shape = options.tiny ? DiffHistoryShape{20, 120} : DiffHistoryShape{7300, 560};
    if (!std::filesystem::exists(std::filesystem::path(options.repo) / ".git")) {
        std::cerr << "generating " << shape.files << " files of " << shape.linesPerFile << " lines in "
                  << options.repo << "\n";
        makeDiffHistoryRepository(options.repo, shape);
    }
    const std::vector<std::string> arguments{"diff", "HEAD~1", "HEAD"};

    std::string raw;
    std::vector<double> ours, git;
    const auto runGit = [&] {
        git.push_back(milliseconds([&] { raw = gitOutput(options.repo, arguments); }));
    };
    const auto runParse = [&] {
        // The service hands git's output over with std::move; so does the timed run.
        std::string output = raw;
        DiffResult parsed;
        ours.push_back(milliseconds([&] { parsed = GitOutputParser::parseDiff(std::move(output)); }));
    };
    alternate(options.rounds, runGit, runParse); // git's round comes first, so the text exists

    // The same parse once the allocator holds enough memory already, as in a program that has
    // parsed a large diff before: the difference to the rounds above is the kernel's first touch
    // of fresh pages, which the allocator otherwise returns after every round.
    ::mallopt(M_TRIM_THRESHOLD, 1 << 30);
    ::mallopt(M_MMAP_THRESHOLD, 1 << 30);
    std::vector<double> warm;
    for (int round = 0; round < options.rounds + 1; ++round) {
        std::string output = raw;
        DiffResult parsed;
        const double ms = milliseconds([&] { parsed = GitOutputParser::parseDiff(std::move(output)); });
        if (round > 0) // the first round brings the pages in
            warm.push_back(ms);
    }

    // Memory: the heap's peak while parsing, counting the text itself, which the result keeps.
    // The CPU time splits into our own work and the kernel's, which is mostly first touches of
    // fresh pages (the minor faults).
    std::string output = raw;
    const std::size_t before = liveHeapBytes();
    resetPeakHeapBytes();
    const Usage start = usage();
    DiffResult parsed = GitOutputParser::parseDiff(std::move(output));
    const Usage spent = usage() - start;
    const std::size_t peakBytes = peakHeapBytes() - before + raw.size();
    const std::size_t keptBytes = liveHeapBytes() - before + raw.size();
    const Totals totals = totalsOf(parsed);

    // The whole operation through the service (git, the queue and the parse, which reads the lines
    // while git writes them), alternating with git's own run of the same diff.
    BenchService bench(options.repo);
    std::size_t serviceFiles = 0;
    std::vector<double> service, serviceGit;
    alternate(
        options.rounds,
        [&] { serviceGit.push_back(milliseconds([&] { gitOutput(options.repo, arguments); })); },
        [&] {
            // Until the result is in the caller's hands; letting it go is the caller's later work.
            DiffResult kept;
            service.push_back(milliseconds([&] {
                kept = QCoro::waitFor(
                    bench.service.diff(bench.repo, DiffContext::commitRange("HEAD~1", "HEAD"), std::nullopt));
            }));
            serviceFiles = kept.files.size();
        });
    const double serviceMs = median(service);

    const std::string shortstat = gitOutput(options.repo, {"diff", "--shortstat", "HEAD~1", "HEAD"});
    const bool countsAgree = shortstatNumber(shortstat, "insertion") == totals.additions &&
                             shortstatNumber(shortstat, "deletion") == totals.deletions &&
                             shortstatNumber(shortstat, "file") == static_cast<long>(totals.files) &&
                             serviceFiles == totals.files;

    const double parseMs = median(ours);
    auto megabytesPerSecondAt = [&](double ms) {
        return ms > 0 ? (double(raw.size()) / 1e6) / (ms / 1000.0) : 0.0;
    };
    const double megabytesPerSecond = megabytesPerSecondAt(parseMs);
    char extra[520];
    std::snprintf(
        extra, sizeof extra,
        " mb_per_s=%.0f warm_mb_per_s=%.0f raw_bytes=%zu peak_bytes=%zu memory_ratio=%.2f kept_ratio=%.2f "
        "files=%zu "
        "hunks=%zu lines=%zu parse_user_ms=%.1f parse_sys_ms=%.1f parse_minor_faults=%ld service_ms=%.2f "
        "service_ratio=%.3f counts_agree=%s",
        megabytesPerSecond, megabytesPerSecondAt(median(warm)), raw.size(), peakBytes,
        double(peakBytes) / double(std::max<std::size_t>(raw.size(), 1)),
        double(keptBytes) / double(std::max<std::size_t>(raw.size(), 1)), totals.files, totals.hunks,
        totals.lines, spent.userMs, spent.systemMs, spent.minorFaults, serviceMs,
        pairedRatio(service, serviceGit), countsAgree ? "yes" : "no");
    report(options.tiny ? "diff-parse-tiny" : "diff-parse", ours, git, extra);
    return countsAgree ? 0 : 1;
}

const ScenarioRegistration registration("diff-parse", runDiffParse);

} // namespace

} // namespace orvel::bench
