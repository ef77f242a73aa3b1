#include "core/commands/StagingCommands.h"

#include "core/parsers/LogParser.h"
#include "core/service/GitServiceError.h"
#include "core/support/Text.h"

namespace orvel::StagingCommands {

namespace {

using Arguments = GitExecutorProtocol::Arguments;

Arguments withPaths(Arguments arguments, const std::vector<std::string>& paths) {
    arguments.insert(arguments.end(), paths.begin(), paths.end());
    return arguments;
}

// Resets to HEAD when there is one and the reset works; otherwise removes from the index.
void resetOrRemove(GitExecutorProtocol& git, const std::string& repoPath, const Arguments& reset,
                   const Arguments& remove) {
    try {
        git.execute({"rev-parse", "--verify", "HEAD"}, repoPath);
        git.execute(reset, repoPath);
        return;
    } catch (const GitServiceError&) {
        // No commit yet, or a reset that failed: the removal gets its chance.
    }
    git.execute(remove, repoPath);
}

// Runs the commit, then reads back the commit it made with the history format.
CommitEntry commitAndReadBack(GitExecutorProtocol& git, const std::string& repoPath, Arguments arguments,
                              const std::string& message, bool sign, const char* commandWord) {
    if (sign)
        arguments.push_back("-S");
    arguments.push_back("-m");
    arguments.push_back(message);
    git.execute(arguments, repoPath);
    auto entries =
        GitOutputParser::parseCommitHistory(git.execute({"log", "-1", std::string(historyFormat)}, repoPath));
    if (entries.empty())
        throw GitServiceError::parseFailed(commandWord, "no commit returned from log -1");
    return std::move(entries.front());
}

} // namespace

void stage(GitExecutorProtocol& git, const std::string& repoPath, const std::string& path) {
    git.execute({"add", "--", path}, repoPath);
}

void stageFiles(GitExecutorProtocol& git, const std::string& repoPath,
                const std::vector<std::string>& paths) {
    if (paths.empty())
        return;
    git.execute(withPaths({"add", "--"}, paths), repoPath);
}

void stageAll(GitExecutorProtocol& git, const std::string& repoPath) {
    git.execute({"add", "-A"}, repoPath);
}

void unstage(GitExecutorProtocol& git, const std::string& repoPath, const std::string& path) {
    resetOrRemove(git, repoPath, {"reset", "HEAD", "--", path}, {"rm", "--cached", "--", path});
}

void unstageFiles(GitExecutorProtocol& git, const std::string& repoPath,
                  const std::vector<std::string>& paths) {
    if (paths.empty())
        return;
    resetOrRemove(git, repoPath, withPaths({"reset", "HEAD", "--"}, paths),
                  withPaths({"rm", "--cached", "--"}, paths));
}

void unstageAll(GitExecutorProtocol& git, const std::string& repoPath) {
    resetOrRemove(git, repoPath, {"reset", "HEAD"}, {"rm", "--cached", "-r", "."});
}

void discardChanges(GitExecutorProtocol& git, const std::string& repoPath, const std::string& path,
                    bool includeStaged) {
    if (includeStaged)
        git.execute({"restore", "--staged", "--worktree", "--", path}, repoPath);
    else
        git.execute({"restore", "--worktree", "--", path}, repoPath);
}

CommitEntry commit(GitExecutorProtocol& git, const std::string& repoPath, const std::string& message,
                   bool sign) {
    return commitAndReadBack(git, repoPath, {"commit"}, message, sign, "commit");
}

CommitEntry amendCommit(GitExecutorProtocol& git, const std::string& repoPath, const std::string& message,
                        bool sign) {
    return commitAndReadBack(git, repoPath, {"commit", "--amend"}, message, sign, "commit --amend");
}

} // namespace orvel::StagingCommands
