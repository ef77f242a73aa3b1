#include "core/records/RepoEntry.h"

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

} // namespace orvel
