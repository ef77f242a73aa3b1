#include "workspace/RepositoryWatchPaths.h"

#include <algorithm>
#include <filesystem>

namespace orvel {

namespace {

std::string withoutTrailingSlash(std::string path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    return path;
}

bool isInside(const std::string& path, const std::string& folder) {
    return path == folder || (path.starts_with(folder) && path[folder.size()] == '/');
}

} // namespace

std::vector<std::string> repositoryWatchPaths(const RepoEntry& repo) {
    // The common directory first: a linked worktree's own git directory lies inside it.
    std::vector<std::string> candidates{repo.path};
    if (repo.commonDirPath)
        candidates.push_back(*repo.commonDirPath);
    candidates.push_back(gitDirectory(repo));
    std::vector<std::string> paths;
    for (std::string& candidate : candidates) {
        std::string path = withoutTrailingSlash(std::filesystem::path(candidate).lexically_normal().string());
        const bool covered = std::ranges::any_of(
            paths, [&path](const std::string& watched) { return isInside(path, watched); });
        if (!covered)
            paths.push_back(std::move(path));
    }
    return paths;
}

} // namespace orvel
