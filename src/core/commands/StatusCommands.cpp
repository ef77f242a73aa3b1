#include "core/commands/StatusCommands.h"

#include "core/parsers/StatusParser.h"

namespace orvel::StatusCommands {

StatusResult status(GitExecutorProtocol& git, const std::string& repoPath) {
    const std::string output =
        git.execute({"status", "--porcelain=v2", "--branch", "--show-stash", "-uall", "-z"}, repoPath);
    return StatusResult{GitOutputParser::parseStatusResult(output)};
}

} // namespace orvel::StatusCommands
