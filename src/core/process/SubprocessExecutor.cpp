#include "core/process/SubprocessExecutor.h"

#include "core/process/ChildProcess.h"
#include "core/service/GitServiceError.h"
#include "core/support/Text.h"
#include "core/support/UserDefaults.h"

#include <limits>

#include <unistd.h>

namespace orvel {

namespace {

constexpr std::string_view pathPrefix = "/opt/homebrew/bin:/opt/homebrew/sbin:/usr/local/bin:";
constexpr std::string_view pathDefault = "/usr/bin:/bin";

std::string_view keyOf(std::string_view entry) {
    return entry.substr(0, entry.find('='));
}

void setEntry(std::vector<std::string>& environment, std::string_view key, std::string_view value) {
    std::string entry = std::string(key) + "=" + std::string(value);
    for (auto& existing : environment) {
        if (keyOf(existing) == key) {
            existing = std::move(entry);
            return;
        }
    }
    environment.push_back(std::move(entry));
}

bool hasEntry(const std::vector<std::string>& environment, std::string_view key) {
    for (const auto& existing : environment) {
        if (keyOf(existing) == key)
            return true;
    }
    return false;
}

ChildOutcome runProbe(const std::string& executable, std::vector<std::string> arguments) {
    ChildRequest request;
    request.executable = executable;
    request.arguments = std::move(arguments);
    request.environment = inheritedEnvironment();
    request.stdoutCapture = StreamCapture::capture(SubprocessExecutor::probeLimit);
    request.stderrCapture = StreamCapture::discarded();
    return runChild(request);
}

std::string discoverOnThisMachine() {
    return discoverGitPath([](const std::string& path) { return ::access(path.c_str(), X_OK) == 0; },
                           []() -> std::optional<std::string> {
                               try {
                                   auto outcome = runProbe("/usr/bin/which", {"git"});
                                   if (outcome.succeeded())
                                       return trimmed(outcome.out);
                               } catch (const std::exception&) {
                               }
                               return std::nullopt;
                           });
}

} // namespace

std::string commandWord(const GitExecutorProtocol::Arguments& arguments) {
    if (arguments.empty())
        return "git";
    for (const auto& argument : arguments) {
        if (!argument.starts_with('-'))
            return argument;
    }
    return arguments.front();
}

std::vector<std::string> gitEnvironment(const std::vector<std::string>& inherited,
                                        const std::optional<std::string>& askpassScriptPath,
                                        const GitExecutorProtocol::Environment& overrides) {
    std::string searchPath(pathDefault);
    for (const auto& entry : inherited) {
        if (keyOf(entry) == "PATH" && entry.size() > 5)
            searchPath = entry.substr(5);
    }
    std::vector<std::string> environment = inherited;
    setEntry(environment, "PATH", std::string(pathPrefix) + searchPath);
    setEntry(environment, "GIT_TERMINAL_PROMPT", "0");
    // A desktop program has no terminal for an editor: where git would open one on a message it
    // prepared (a resolved rebase step, a merge), ":" tells it to take that message as it stands.
    // Callers that need an editor (the interactive rebase's plan and rewords) set their own.
    setEntry(environment, "GIT_EDITOR", ":");
    setEntry(environment, "LC_ALL", "C");
    // The reads that run behind the user's back (status after every file change) must not take
    // the index lock for their optional refresh, or a commit typed in a terminal at that moment
    // fails with "index.lock: File exists".
    setEntry(environment, "GIT_OPTIONAL_LOCKS", "0");
    if (askpassScriptPath) {
        setEntry(environment, "GIT_ASKPASS", *askpassScriptPath);
        setEntry(environment, "SSH_ASKPASS", *askpassScriptPath);
        // Without "force" ssh asks on a terminal when it has one instead of the program.
        setEntry(environment, "SSH_ASKPASS_REQUIRE", "force");
        // Programs that git starts must still reach the real display, so an inherited one stays.
        if (!hasEntry(environment, "DISPLAY"))
            setEntry(environment, "DISPLAY", ":0");
    }
    for (const auto& [key, value] : overrides)
        setEntry(environment, key, value);
    return environment;
}

std::string discoverGitPath(const std::function<bool(const std::string&)>& isExecutable,
                            const std::function<std::optional<std::string>()>& runWhich) {
    for (const char* candidate : {"/opt/homebrew/bin/git", "/usr/local/bin/git"}) {
        if (isExecutable(candidate))
            return candidate;
    }
    if (auto found = runWhich())
        return *found;
    return "/usr/bin/git";
}

SubprocessExecutor::SubprocessExecutor(std::optional<std::string> askpassScriptPath,
                                       const UserDefaults& defaults) {
    const std::string configured = defaults.string("gitBinaryPath").toStdString();
    if (!configured.empty())
        userOverride_ = configured;
    if (askpassScriptPath && !askpassScriptPath->empty())
        askpassScriptPath_ = std::move(askpassScriptPath);
}

std::string SubprocessExecutor::resolvedGitPath() {
    std::shared_future<std::string> discovery;
    {
        std::lock_guard lock(mutex_);
        if (userOverride_)
            return *userOverride_;
        if (!discovery_.valid())
            discovery_ = std::async(std::launch::async, discoverOnThisMachine).share();
        discovery = discovery_;
    }
    return discovery.get();
}

std::string SubprocessExecutor::execute(const Arguments& arguments, const std::string& repoPath) {
    return run(arguments, repoPath, {}, nullptr);
}

std::string SubprocessExecutor::executeWithEnvironment(const Arguments& arguments,
                                                       const std::string& repoPath,
                                                       const Environment& environment) {
    return run(arguments, repoPath, environment, nullptr);
}

void SubprocessExecutor::executeStreaming(const Arguments& arguments, const std::string& repoPath,
                                          const std::function<void(std::string_view)>& consume) {
    run(arguments, repoPath, {}, &consume);
}

std::string SubprocessExecutor::run(const Arguments& arguments, const std::string& repoPath,
                                    const Environment& environment,
                                    const std::function<void(std::string_view)>* consume) {
    ChildRequest request;
    request.executable = resolvedGitPath();
    request.arguments.reserve(arguments.size() + 2);
    request.arguments.push_back("-C");
    request.arguments.push_back(repoPath);
    request.arguments.insert(request.arguments.end(), arguments.begin(), arguments.end());
    const std::string word = commandWord(arguments);
    std::optional<std::string> askpass;
    {
        std::lock_guard lock(mutex_);
        askpass = askpassScriptPath_;
    }
    request.environment = gitEnvironment(inheritedEnvironment(), askpass, environment);
    // Streamed output is handed on as it comes and kept by no one here: its reader bounds what it
    // holds (the history's page channel waits while pages queue), so only captured output has a cap.
    // The whole history of a very large repository is far more than the cap in one run.
    request.stdoutCapture = consume ? StreamCapture::streamed(std::numeric_limits<std::size_t>::max(), *consume)
                                    : StreamCapture::capture(stdoutLimit);
    request.stderrCapture = StreamCapture::capture(stderrLimit);

    ChildOutcome outcome;
    try {
        outcome = runChild(request);
    } catch (const OutputLimitExceeded& overrun) {
        throw GitServiceError::commandFailed(word,
                                             std::string("output exceeded 100 MB limit: ") + overrun.what());
    }
    if (!outcome.succeeded())
        throw GitServiceError::commandFailed(word, std::move(outcome.err));
    return std::move(outcome.out);
}

std::string SubprocessExecutor::gitVersion() {
    return trimmed(runProbe(resolvedGitPath(), {"--version"}).out);
}

void SubprocessExecutor::setGitPathOverride(const std::optional<std::string>& path) {
    if (!path) {
        std::lock_guard lock(mutex_);
        userOverride_.reset();
        discovery_ = {};
        return;
    }
    bool runs = false;
    try {
        runs = runProbe(*path, {"--version"}).succeeded();
    } catch (const std::exception&) {
    }
    if (!runs)
        throw GitServiceError::invalidGitPath(*path);
    std::lock_guard lock(mutex_);
    userOverride_ = *path;
}

} // namespace orvel
