#include "core/commands/ConflictSideCommands.h"

namespace orvel::ConflictSideCommands {

namespace {

void takeSide(GitExecutorProtocol& git, const std::string& repoPath, const std::string& path,
              const char* side) {
    git.execute({"checkout", side, "--", path}, repoPath);
    git.execute({"add", "--", path}, repoPath);
}

} // namespace

void resolveUsingOurs(GitExecutorProtocol& git, const std::string& repoPath, const std::string& path) {
    takeSide(git, repoPath, path, "--ours");
}

void resolveUsingTheirs(GitExecutorProtocol& git, const std::string& repoPath, const std::string& path) {
    takeSide(git, repoPath, path, "--theirs");
}

} // namespace orvel::ConflictSideCommands
