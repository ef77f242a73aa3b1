#include "core/commands/DiffCommands.h"

#include "core/commands/ArgumentGuard.h"
#include "core/parsers/DiffParser.h"
#include "core/support/Text.h"

#include <stdexcept>

namespace orvel::DiffCommands {

namespace {

using Arguments = GitExecutorProtocol::Arguments;

// A revision stands where git also reads options, and these commands take no "--" before it.
const std::string& revision(const std::string& name) {
    refuseOptionLike(name, "revision");
    return name;
}

DiffResult run(GitExecutorProtocol& git, const std::string& repoPath, Arguments arguments,
               std::optional<int> contextLines) {
    if (contextLines)
        arguments.push_back("-U" + std::to_string(*contextLines));
    // The lines are read while git still writes them.
    GitOutputParser::DiffStreamParser parser;
    git.executeStreaming(arguments, repoPath, [&parser](std::string_view piece) { parser.append(piece); });
    return parser.finish();
}

// The parent `index` of `hash`, or "<hash>^" when the commit has no such parent.
std::string chosenParent(GitExecutorProtocol& git, const std::string& repoPath, const std::string& hash,
                         int index) {
    const std::string parents = trimmed(git.execute({"log", "--format=%P", "-1", hash}, repoPath));
    int position = 0;
    std::size_t start = 0;
    while (start < parents.size()) {
        auto blank = parents.find(' ', start);
        if (blank == std::string::npos)
            blank = parents.size();
        if (blank > start) {
            if (position == index)
                return parents.substr(start, blank - start);
            ++position;
        }
        start = blank + 1;
    }
    return hash + "^";
}

} // namespace

DiffResult diff(GitExecutorProtocol& git, const std::string& repoPath, const DiffContext& context,
                std::optional<int> contextLines) {
    switch (context.kind) {
    case DiffContext::Case::unstaged:
        return run(git, repoPath, {"diff"}, contextLines);
    case DiffContext::Case::staged:
        return run(git, repoPath, {"diff", "--cached"}, contextLines);
    case DiffContext::Case::commit:
        if (!context.parentIndex)
            return run(git, repoPath, {"show", "--format=", revision(context.hash)}, contextLines);
        if (*context.parentIndex < 0)
            throw std::invalid_argument("negative parent index");
        return run(
            git, repoPath,
            {"diff", chosenParent(git, repoPath, revision(context.hash), *context.parentIndex), context.hash},
            contextLines);
    case DiffContext::Case::stash:
        return run(git, repoPath, {"stash", "show", "-p", revision(context.hash)}, contextLines);
    case DiffContext::Case::commitRange:
        return run(git, repoPath, {"diff", revision(context.from), revision(context.to)}, contextLines);
    }
    return {};
}

DiffResult commitDiff(GitExecutorProtocol& git, const std::string& repoPath, const std::string& hash,
                      std::optional<int> contextLines) {
    return run(git, repoPath, {"show", "--format=", "-m", "--first-parent", revision(hash)}, contextLines);
}

std::vector<FileChange> commitFileChanges(GitExecutorProtocol& git, const std::string& repoPath,
                                          const std::string& hash) {
    return GitOutputParser::parseNameStatus(
        git.execute({"diff-tree", "--root", "--no-commit-id", "-r", "--name-status",
                     "--diff-merges=first-parent", revision(hash)},
                    repoPath));
}

} // namespace orvel::DiffCommands
