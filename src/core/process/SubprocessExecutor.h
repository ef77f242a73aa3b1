// Runs git as a child process: finds the executable, builds its environment, bounds its output and
// turns a failure into a GitServiceError. Safe to call from several threads at once.
#pragma once

#include "core/process/GitExecutorProtocol.h"

#include <cstddef>
#include <functional>
#include <future>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

class UserDefaults;

class SubprocessExecutor final : public GitExecutorProtocol {
  public:
    static constexpr std::size_t stdoutLimit = 104'857'600;
    static constexpr std::size_t stderrLimit = 52'428'800;
    static constexpr std::size_t probeLimit = 1024;

    // Reads the user default "gitBinaryPath"; a non-empty value wins over discovery.
    SubprocessExecutor(std::optional<std::string> askpassScriptPath, const UserDefaults& defaults);

    std::string execute(const Arguments& arguments, const std::string& repoPath) override;
    std::string executeWithEnvironment(const Arguments& arguments, const std::string& repoPath,
                                       const Environment& environment) override;
    void executeStreaming(const Arguments& arguments, const std::string& repoPath,
                          const std::function<void(std::string_view)>& consume) override;
    std::string resolvedGitPath() override;
    std::string gitVersion() override;
    void setGitPathOverride(const std::optional<std::string>& path) override;

  private:
    // One run of git; stdout goes to `consume` when it is given, into the answer otherwise.
    std::string run(const Arguments& arguments, const std::string& repoPath, const Environment& environment,
                    const std::function<void(std::string_view)>* consume);

    std::optional<std::string> userOverride_;
    std::shared_future<std::string> discovery_;
    std::optional<std::string> askpassScriptPath_;
    std::mutex mutex_;
};

// The word that names a command in error texts: the first argument that is not an option.
std::string commandWord(const GitExecutorProtocol::Arguments& arguments);

// The environment of a repository command, built from the inherited "KEY=VALUE" entries.
std::vector<std::string> gitEnvironment(const std::vector<std::string>& inherited,
                                        const std::optional<std::string>& askpassScriptPath,
                                        const GitExecutorProtocol::Environment& overrides = {});

// Finds git: the two well-known install places, then `which git`, then "/usr/bin/git".
// `isExecutable` and `runWhich` stand in for the file system and the child run, for tests.
std::string discoverGitPath(const std::function<bool(const std::string&)>& isExecutable,
                            const std::function<std::optional<std::string>()>& runWhich);

} // namespace orvel
