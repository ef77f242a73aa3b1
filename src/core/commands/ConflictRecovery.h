// Commands such as merge, rebase, pull, cherry-pick, revert and stash apply fail when they stop on
// conflicts. This helper tells that apart from a real failure by asking git for unmerged paths.
#pragma once

#include "core/parsers/ConflictParser.h"
#include "core/process/GitExecutorProtocol.h"
#include "core/service/GitServiceError.h"
#include "core/service/OperationResults.h"

#include <exception>
#include <string>
#include <utility>

namespace orvel {

// The unmerged paths of the repository, as git's status lists them.
inline std::vector<ConflictEntry> conflictFiles(GitExecutorProtocol& git, const std::string& repoPath) {
    return GitOutputParser::parseConflictFiles(
        git.execute({"status", "--porcelain=v2", "-uall", "-z"}, repoPath));
}

// Runs `command`. When it fails with a GitServiceError and the repository then holds unmerged
// paths, answers `onConflict(conflicts)` instead; otherwise the command's error goes on.
// Errors that are not a GitServiceError, and a failing query, go to the caller as they are.
template <typename Command, typename OnConflict>
auto runWithConflictRecovery(GitExecutorProtocol& git, const std::string& repoPath, Command&& command,
                             OnConflict&& onConflict) -> decltype(command()) {
    try {
        return command();
    } catch (const GitServiceError&) {
        const std::exception_ptr failure = std::current_exception();
        auto conflicts = conflictFiles(git, repoPath);
        if (!conflicts.empty())
            return onConflict(std::move(conflicts));
        std::rethrow_exception(failure);
    }
}

// Runs one command whose stop on conflicts is an outcome rather than a failure (cherry-pick,
// revert, stash apply and pop).
inline OperationResult runOperationWithConflictRecovery(GitExecutorProtocol& git, const std::string& repoPath,
                                                        const GitExecutorProtocol::Arguments& arguments) {
    return runWithConflictRecovery(
        git, repoPath,
        [&]() -> OperationResult {
            git.execute(arguments, repoPath);
            return operation::Success{};
        },
        [](std::vector<ConflictEntry> files) -> OperationResult { return Conflicted{std::move(files)}; });
}

} // namespace orvel
