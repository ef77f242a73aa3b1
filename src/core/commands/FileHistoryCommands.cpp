#include "core/commands/FileHistoryCommands.h"

#include "core/parsers/BlameParser.h"
#include "core/parsers/LogParser.h"

namespace orvel::FileHistoryCommands {

std::vector<BlameEntry> blame(GitExecutorProtocol& git, const std::string& repoPath,
                              const std::string& path) {
    return GitOutputParser::parseBlame(git.execute({"blame", "--porcelain", "--", path}, repoPath));
}

std::vector<CommitEntry> fileHistory(GitExecutorProtocol& git, const std::string& repoPath,
                                     const std::string& path, long limit) {
    const std::string output = git.execute(
        {"log", "--follow", "-n", std::to_string(limit), std::string(historyFormat), "--", path}, repoPath);
    return GitOutputParser::parseCommitHistory(output);
}

} // namespace orvel::FileHistoryCommands
