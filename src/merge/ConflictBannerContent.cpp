#include "merge/ConflictBannerContent.h"

#include "settings/LocalizationManager.h"

namespace orvel {

ConflictBannerContent conflictBannerContent(RepositoryState state) {
    switch (state) {
    case RepositoryState::merging:
        return {QStringLiteral("vcs-merge"), localized("Merging: resolve conflicts and commit"),
                localized("Abort Merge"), false, true};
    case RepositoryState::rebasing:
        return {QStringLiteral("vcs-rebase"), localized("Rebasing: resolve conflicts and continue"),
                localized("Abort Rebase"), true, true};
    case RepositoryState::cherryPicking:
        return {QStringLiteral("edit-redo"), localized("Cherry-picking: resolve conflicts and commit"),
                localized("Abort Cherry-pick"), false, true};
    case RepositoryState::reverting:
        return {QStringLiteral("edit-undo"), localized("Reverting: resolve conflicts and commit"),
                localized("Abort Revert"), false, true};
    case RepositoryState::clean:
    case RepositoryState::bisecting:
    case RepositoryState::applyingMailbox:
        break;
    }
    return {QStringLiteral("dialog-warning"), QString(), localized("Abort"), false, false};
}

} // namespace orvel
