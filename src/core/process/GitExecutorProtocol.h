// The interface through which the service runs git. Calls block until git has ended, so they are
// made only from the operation queue's worker threads, never from the GUI thread.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

class GitExecutorProtocol {
  public:
    using Arguments = std::vector<std::string>;
    using Environment = std::map<std::string, std::string>;

    virtual ~GitExecutorProtocol() = default;

    // Runs git "-C" repoPath arguments...; returns stdout unchanged, throws on a non-zero exit.
    virtual std::string execute(const Arguments& arguments, const std::string& repoPath) = 0;
    // As execute, with `environment` laid over the usual environment of git.
    virtual std::string executeWithEnvironment(const Arguments& arguments, const std::string& repoPath,
                                               const Environment& environment) = 0;
    // As execute, with stdout handed to `consume` in pieces while git still writes, so that its
    // reader works alongside git. By default the whole output comes in one piece at the end.
    virtual void executeStreaming(const Arguments& arguments, const std::string& repoPath,
                                  const std::function<void(std::string_view)>& consume) {
        consume(execute(arguments, repoPath));
    }
    virtual std::string resolvedGitPath() = 0;
    virtual std::string gitVersion() = 0;
    virtual void setGitPathOverride(const std::optional<std::string>& path) = 0;
};

} // namespace orvel
