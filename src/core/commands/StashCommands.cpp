#include "core/commands/StashCommands.h"

#include "core/commands/ConflictRecovery.h"
#include "core/parsers/StashParser.h"
#include "core/support/Text.h"

namespace orvel::StashCommands {

namespace {

using Arguments = GitExecutorProtocol::Arguments;

std::string selector(long index) {
    return "stash@{" + std::to_string(index) + "}";
}

} // namespace

void stashSave(GitExecutorProtocol& git, const std::string& repoPath,
               const std::optional<std::string>& message, bool includeUntracked) {
    Arguments arguments{"stash", "push"};
    if (includeUntracked)
        arguments.push_back("--include-untracked");
    if (message) {
        arguments.push_back("-m");
        arguments.push_back(*message);
    }
    git.execute(arguments, repoPath);
}

OperationResult stashPop(GitExecutorProtocol& git, const std::string& repoPath) {
    return runOperationWithConflictRecovery(git, repoPath, {"stash", "pop"});
}

OperationResult stashApply(GitExecutorProtocol& git, const std::string& repoPath, long index) {
    return runOperationWithConflictRecovery(git, repoPath, {"stash", "apply", selector(index)});
}

void stashDrop(GitExecutorProtocol& git, const std::string& repoPath, long index) {
    git.execute({"stash", "drop", selector(index)}, repoPath);
}

std::vector<StashEntry> stashList(GitExecutorProtocol& git, const std::string& repoPath) {
    return GitOutputParser::parseStashList(
        git.execute({"stash", "list", std::string(GitOutputParser::stashListFormat)}, repoPath));
}

void stashFile(GitExecutorProtocol& git, const std::string& repoPath, const std::string& path) {
    std::string status;
    try {
        status = git.execute({"status", "--porcelain=v1", "--", path}, repoPath);
    } catch (const GitServiceError&) {
        // Read as a clean path: the stash below then decides what there is to save.
    }
    const bool untracked = trimmedBlanks(status).starts_with("??");
    Arguments arguments{"stash", "push"};
    if (untracked)
        arguments.push_back("--include-untracked");
    arguments.push_back("--");
    arguments.push_back(path);
    git.execute(arguments, repoPath);
}

} // namespace orvel::StashCommands
