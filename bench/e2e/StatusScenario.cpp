// status-100k: 100,000 tracked files, 10,000 modified and 10,000 untracked; `status` through the
// service against git status with the same arguments, and the memory of the parsed result.
#include "e2e/AllocationCounter.h"
#include "e2e/Scenario.h"
#include "e2e/SyntheticRepo.h"

#include "core/parsers/StatusParser.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"

#include <QCoro/QCoroTask>

#include <algorithm>
#include <cstdio>

namespace orvel::bench {

namespace {

int runStatus(const ScenarioOptions& options) {
    const WorkingTreeShape shape =
        options.tiny ? WorkingTreeShape{200, 20, 20} : WorkingTreeShape{100000, 10000, 10000};
    ensureWorkingTreeRepository(options.repo, shape);
    const std::vector<std::string>& arguments = statusArguments();

    BenchService bench(options.repo);
    auto& service = bench.service;
    const RepoEntry& repo = bench.repo;

    std::size_t files = 0;
    std::vector<double> ours, git;
    QCoro::waitFor(service.status(repo)); // warms the file-system cache and the discovery of git
    alternate(
        options.rounds, [&] { git.push_back(milliseconds([&] { gitOutput(options.repo, arguments); })); },
        [&] {
            ours.push_back(milliseconds([&] { files = QCoro::waitFor(service.status(repo)).files.size(); }));
        });

    const std::string raw = gitOutput(options.repo, arguments);
    const std::size_t before = liveHeapBytes();
    const auto parsed = GitOutputParser::parseStatusResult(raw);
    const std::size_t parsedBytes = liveHeapBytes() - before;
    char extra[160];
    std::snprintf(extra, sizeof extra, " files=%zu raw_bytes=%zu parsed_bytes=%zu memory_ratio=%.2f",
                  parsed.size(), raw.size(), parsedBytes,
                  double(parsedBytes) / double(std::max<std::size_t>(raw.size(), 1)));
    report(options.tiny ? "status-tiny" : "status-100k", ours, git, extra);
    return files == parsed.size() ? 0 : 1;
}

const ScenarioRegistration registration("status-100k", runStatus);

} // namespace

} // namespace orvel::bench
