#include "core/commands/HistoryCommands.h"

#include "core/commands/UndoJournal.h"
#include "core/service/GitServiceError.h"
#include "core/support/Text.h"

namespace orvel::HistoryCommands {

RemoteNameSet remoteNames(GitExecutorProtocol& git, const std::string& repoPath) {
    RemoteNameSet names;
    const std::string output = git.execute({"remote"}, repoPath);
    for (const auto line : splitLines(output)) {
        if (std::string name = trimmedBlanks(line); !name.empty())
            names.insert(std::move(name));
    }
    return names;
}

std::vector<GraphCommit> commitGraph(GitExecutorProtocol& git, const std::string& repoPath, long limit,
                                     const RemoteNameSet& remoteNames) {
    const GitExecutorProtocol::Arguments arguments{
        "log", allButUndoRefs, "--all", undoDecorations, "--topo-order", "-n", std::to_string(limit),
        std::string(graphFormat)};
    return GitOutputParser::parseCommitGraph(git.execute(arguments, repoPath), remoteNames);
}

void streamCommitGraph(GitExecutorProtocol& git, const std::string& repoPath, long skip, std::size_t pageSize,
                       const RemoteNameSet& remoteNames,
                       const std::function<void(std::vector<GraphCommit>)>& deliver) {
    GitExecutorProtocol::Arguments arguments{"log", allButUndoRefs, "--all", undoDecorations, "--topo-order"};
    if (skip > 0)
        arguments.push_back("--skip=" + std::to_string(skip));
    arguments.emplace_back(graphFormat);
    std::string unread; // the piece after the last whole record
    std::vector<GraphCommit> page;
    const auto take = [&](std::string_view records) {
        for (auto& commit : GitOutputParser::parseCommitGraph(records, remoteNames)) {
            page.push_back(std::move(commit));
            if (page.size() == pageSize)
                deliver(std::exchange(page, {}));
        }
    };
    git.executeStreaming(arguments, repoPath, [&](std::string_view piece) {
        unread.append(piece);
        const std::size_t end = unread.rfind(graphRecordEnd);
        if (end == std::string::npos)
            return;
        take(std::string_view(unread).substr(0, end + 1));
        unread.erase(0, end + 1);
    });
    take(unread);
    if (!page.empty())
        deliver(std::move(page));
}

CommitEntry commitDetails(GitExecutorProtocol& git, const std::string& repoPath, const std::string& hash) {
    const std::string output =
        git.execute({"log", "-n", "1", std::string(historyFormat), "--end-of-options", hash}, repoPath);
    auto entries = GitOutputParser::parseCommitHistory(output);
    if (entries.empty())
        throw GitServiceError::commandFailed("log", "no commit " + hash);
    return std::move(entries.front());
}

std::optional<std::string> resolveCommit(GitExecutorProtocol& git, const std::string& repoPath,
                                         const std::string& name) {
    std::string output;
    try {
        output = git.execute({"rev-parse", "--verify", "--quiet", "--end-of-options", name + "^{commit}"},
                             repoPath);
    } catch (const GitServiceError&) {
        return std::nullopt; // --verify exits non-zero on a name that names no commit
    }
    std::string hash = trimmed(output);
    if (hash.empty())
        return std::nullopt;
    return hash;
}

std::vector<CommitEntry> commitHistory(GitExecutorProtocol& git, const std::string& repoPath, long limit) {
    const std::string output =
        git.execute({"log", "-n", std::to_string(limit), std::string(historyFormat)}, repoPath);
    return GitOutputParser::parseCommitHistory(output);
}

} // namespace orvel::HistoryCommands
