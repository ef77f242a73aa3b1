#include "core/commands/CommitGraphCommands.h"

#include "core/support/Text.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <sstream>

namespace orvel::CommitGraphCommands {

namespace fs = std::filesystem;

namespace {

std::optional<fs::file_time_type> modified(const fs::path& path) {
    std::error_code error;
    const auto time = fs::last_write_time(path, error);
    return error ? std::nullopt : std::optional(time);
}

// Where the objects and refs are: the git directory itself, or the one its "commondir" names.
fs::path commonDirectory(const fs::path& gitDir) {
    std::ifstream file(gitDir / "commondir");
    if (!file)
        return gitDir;
    std::stringstream text;
    text << file.rdbuf();
    const fs::path common = trimmed(text.str());
    return common.is_absolute() ? common : gitDir / common;
}

// The newest change to a ref: a loose ref file, a directory under refs/ (a ref made or removed
// changes its directory), or packed-refs.
std::optional<fs::file_time_type> newestRefChange(const fs::path& common) {
    std::optional<fs::file_time_type> newest = modified(common / "packed-refs");
    auto consider = [&newest](const fs::path& path) {
        if (const auto time = modified(path); time && (!newest || *time > *newest))
            newest = time;
    };
    consider(common / "refs");
    std::error_code error;
    for (fs::recursive_directory_iterator it(common / "refs", error), end; !error && it != end;
         it.increment(error))
        consider(it->path());
    return newest;
}

} // namespace

bool isCommitGraphStale(const fs::path& gitDir) {
    const fs::path common = commonDirectory(gitDir);
    const fs::path info = common / "objects" / "info";
    std::optional<fs::file_time_type> written = modified(info / "commit-graph");
    if (const auto chain = modified(info / "commit-graphs" / "commit-graph-chain");
        chain && (!written || *chain > *written))
        written = chain;
    if (!written)
        return true;
    const auto refs = newestRefChange(common);
    return refs && *refs > *written;
}

void writeCommitGraph(GitExecutorProtocol& git, const std::string& repoPath) {
    git.execute({"commit-graph", "write", "--reachable", "--changed-paths"}, repoPath);
}

} // namespace orvel::CommitGraphCommands
