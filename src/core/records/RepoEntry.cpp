#include "core/records/RepoEntry.h"

#include <filesystem>

namespace orvel {

const char* toString(RepositoryState state) {
    switch (state) {
    case RepositoryState::clean:
        return "clean";
    case RepositoryState::merging:
        return "merging";
    case RepositoryState::rebasing:
        return "rebasing";
    case RepositoryState::cherryPicking:
        return "cherryPicking";
    case RepositoryState::reverting:
        return "reverting";
    case RepositoryState::bisecting:
        return "bisecting";
    case RepositoryState::applyingMailbox:
        return "applyingMailbox";
    }
    return "clean";
}

std::string gitDirectory(const RepoEntry& repo) {
    namespace fs = std::filesystem;
    const fs::path gitDir(repo.gitDirPath.value_or(".git"));
    std::string directory = (gitDir.is_relative() ? fs::path(repo.path) / gitDir : gitDir).string();
    if (!directory.ends_with('/'))
        directory += '/';
    return directory;
}

} // namespace orvel
