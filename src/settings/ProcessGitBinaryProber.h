// Asks a file for its version by running it with "--version" as a plain child process, not through
// the executor: the file is a candidate, not yet the git the program runs.
#pragma once

#include "settings/GitBinaryProberProtocol.h"

namespace orvel {

class ProcessGitBinaryProber final : public GitBinaryProberProtocol {
  public:
    // Nothing for a path that is not an executable file, a program that cannot be started, exits
    // with a failure or does not answer as git does. The run waits on the background pool.
    QCoro::Task<std::optional<std::string>> probe(std::string path) override;
};

} // namespace orvel
