#include "settings/ProcessGitBinaryProber.h"

#include "core/parsers/GitVersionParser.h"
#include "core/process/ChildProcess.h"
#include "core/queue/BackgroundWork.h"

#include <sys/stat.h>
#include <unistd.h>

namespace orvel {

namespace {

constexpr std::size_t answerLimit = 1024;

bool isExecutableFile(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && ::access(path.c_str(), X_OK) == 0;
}

std::optional<std::string> versionOf(const std::string& path) {
    if (!isExecutableFile(path))
        return std::nullopt;
    ChildRequest request;
    request.executable = path;
    request.arguments = {"--version"};
    request.environment = inheritedEnvironment();
    request.stdoutCapture = StreamCapture::capture(answerLimit);
    request.stderrCapture = StreamCapture::capture(answerLimit);
    ChildOutcome outcome;
    try {
        outcome = runChild(request);
    } catch (const std::exception&) {
        // Not startable (a script with a missing interpreter), or it said far more than git would.
        return std::nullopt;
    }
    if (!outcome.succeeded())
        return std::nullopt;
    return GitOutputParser::parseGitVersion(outcome.out);
}

} // namespace

QCoro::Task<std::optional<std::string>> ProcessGitBinaryProber::probe(std::string path) {
    auto run = runOnPool(backgroundPool(), [path = std::move(path)] { return versionOf(path); });
    co_return co_await std::move(run);
}

} // namespace orvel
