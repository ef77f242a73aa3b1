#include "core/commands/RepositoryCommands.h"

#include "core/commands/ArgumentGuard.h"
#include "core/commands/BlobCommands.h"
#include "core/parsers/PreparedMessageParser.h"
#include "core/service/GitServiceError.h"
#include "core/support/Text.h"

#include <array>
#include <filesystem>
#include <utility>

namespace orvel::RepositoryCommands {

namespace {

namespace fs = std::filesystem;

// Runs a look-up whose failure only means "no answer".
std::optional<std::string> answerOrNothing(GitExecutorProtocol& git,
                                           const GitExecutorProtocol::Arguments& arguments,
                                           const std::string& repoPath) {
    try {
        std::string answer = trimmed(git.execute(arguments, repoPath));
        if (answer.empty())
            return std::nullopt;
        return answer;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

} // namespace

RepositoryState detectState(const std::string& gitDirPath) {
    // A mailbox run has both "rebase-apply/applying" and "rebase-apply", so the order matters.
    static const std::array<std::pair<const char*, RepositoryState>, 7> markers{{
        {"MERGE_HEAD", RepositoryState::merging},
        {"rebase-apply/applying", RepositoryState::applyingMailbox},
        {"rebase-merge", RepositoryState::rebasing},
        {"rebase-apply", RepositoryState::rebasing},
        {"CHERRY_PICK_HEAD", RepositoryState::cherryPicking},
        {"REVERT_HEAD", RepositoryState::reverting},
        {"BISECT_LOG", RepositoryState::bisecting},
    }};
    const fs::path gitDir(gitDirPath);
    for (const auto& [marker, state] : markers) {
        std::error_code error;
        if (fs::exists(gitDir / marker, error))
            return state;
    }
    return RepositoryState::clean;
}

std::optional<std::string> preparedCommitMessage(const std::string& gitDirPath) {
    std::string bytes;
    try {
        bytes = BlobCommands::readFile((fs::path(gitDirPath) / "MERGE_MSG").string());
    } catch (const fs::filesystem_error&) {
        return std::nullopt;
    }
    return GitOutputParser::parsePreparedMessage(bytes);
}

RepoEntry open(GitExecutorProtocol& git, const std::string& path) {
    const std::string output =
        git.execute({"rev-parse", "--git-dir", "--git-common-dir", "--is-bare-repository"}, path);
    const std::string printed = trimmed(output);
    const auto lines = splitLines(printed);
    // git answers both directories relative to `path` when they lie below it.
    auto absolute = [&path](std::string directory) {
        return directory.starts_with('/') ? directory : (fs::path(path) / directory).string();
    };
    const std::string gitDir = absolute(lines.empty() ? std::string(".git") : trimmedBlanks(lines[0]));
    RepoEntry entry;
    entry.path = path;
    entry.commonDirPath = lines.size() > 1 ? absolute(trimmedBlanks(lines[1])) : gitDir;
    entry.isBare = lines.size() > 2 && trimmedBlanks(lines[2]) == "true";
    entry.headHash = answerOrNothing(git, {"rev-parse", "HEAD"}, path);
    entry.currentBranch = answerOrNothing(git, {"symbolic-ref", "--short", "HEAD"}, path);
    entry.gitDirPath = gitDir;
    entry.state = detectState(gitDir);
    return entry;
}

std::optional<std::string> currentBranch(GitExecutorProtocol& git, const std::string& repoPath) {
    return answerOrNothing(git, {"symbolic-ref", "--short", "HEAD"}, repoPath);
}

std::optional<std::string> defaultBranch(GitExecutorProtocol& git, const std::string& repoPath) {
    if (auto remoteHead = answerOrNothing(git, {"symbolic-ref", "refs/remotes/origin/HEAD"}, repoPath)) {
        if (const auto slash = remoteHead->rfind('/'); slash != std::string::npos)
            return remoteHead->substr(slash + 1);
    }
    const std::string listing = git.execute({"branch", "--list", "--format=%(refname:short)"}, repoPath);
    std::vector<std::string> names;
    for (const auto line : splitLines(listing)) {
        if (auto name = trimmedBlanks(line); !name.empty())
            names.push_back(std::move(name));
    }
    for (const char* preferred : {"main", "master"}) {
        for (const auto& name : names) {
            if (name == preferred)
                return name;
        }
    }
    if (names.empty())
        return std::nullopt;
    return names.front();
}

void validateCloneUrl(const std::string& url) {
    const std::string candidate = trimmedBlanks(url);
    if (candidate.empty())
        throw GitServiceError::invalidInput("URL must not be empty");
    refuseOptionLike(candidate, "URL");
}

void clone(GitExecutorProtocol& git, const std::string& url, const std::string& path) {
    git.execute({"clone", "--", url, path}, "/");
}

void init(GitExecutorProtocol& git, const std::string& path,
          const std::optional<std::string>& initialBranch) {
    if (initialBranch)
        refuseOptionLike(*initialBranch, "Branch name");
    fs::create_directories(path);
    GitExecutorProtocol::Arguments arguments{"init"};
    if (initialBranch) {
        arguments.push_back("-b");
        arguments.push_back(*initialBranch);
    }
    arguments.push_back("--");
    arguments.push_back(path);
    git.execute(arguments, path);
}

} // namespace orvel::RepositoryCommands
