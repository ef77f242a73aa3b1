#include "graph/GraphConfirmation.h"

#include "settings/LocalizationManager.h"
#include "settings/UndoSentence.h"

namespace orvel {

namespace {

QString shortHash(const std::string& hash) {
    return QString::fromStdString(hash.substr(0, 7));
}

} // namespace

QString GraphConfirmation::title() const {
    switch (kind) {
    case Kind::hardReset:
        return localized("Hard Reset");
    case Kind::softReset:
        return localized("Soft Reset");
    case Kind::mixedReset:
        return localized("Mixed Reset");
    case Kind::cherryPick:
        return dirtyTree ? localized("Cherry-pick onto Dirty Working Tree") : localized("Cherry-pick Commit");
    case Kind::revert:
        return dirtyTree ? localized("Revert onto Dirty Working Tree") : localized("Revert Commit");
    }
    return {};
}

QString GraphConfirmation::text() const {
    switch (kind) {
    case Kind::hardReset:
        return undoableText(
            localized("Reset to %1? This will move HEAD to that commit and discard any uncommitted changes plus "
                      "any commits that are not reachable from another branch.",
                      shortHash(hash)),
            localized("Reset to %1? This will move HEAD to that commit and discard any uncommitted changes plus "
                      "any commits that are not reachable from another branch. This cannot be undone.",
                      shortHash(hash)));
    case Kind::softReset:
        return localized("Soft reset to %1? HEAD will move to that commit and any commits in between will be "
                         "squashed into staged changes. Uncommitted changes are preserved.",
                         shortHash(hash));
    case Kind::mixedReset:
        return localized(
            "Mixed reset to %1? HEAD will move to that commit and any commits in between will be "
            "unstaged. Uncommitted changes are preserved.",
            shortHash(hash));
    case Kind::cherryPick:
        if (!dirtyTree)
            return localized("Cherry-pick %1 onto the current branch?", shortHash(hash));
        return localized(
            "Cherry-pick %1 onto a working tree with uncommitted changes? Conflicts are possible.",
            shortHash(hash));
    case Kind::revert:
        if (!dirtyTree)
            return localized("Revert %1 on the current branch?", shortHash(hash));
        return localized("Revert %1 onto a working tree with uncommitted changes? Conflicts are possible.",
                         shortHash(hash));
    }
    return {};
}

QString GraphConfirmation::predictionText(const std::optional<MergePrediction>& prediction) const {
    if (kind != Kind::cherryPick && kind != Kind::revert)
        return {};
    if (!prediction)
        return localized("Checking for conflicts…");
    const bool isRevert = kind == Kind::revert;
    switch (prediction->outcome) {
    case MergePrediction::Outcome::clean:
        return isRevert ? localized("Reverting %1 will be clean.", shortHash(hash))
                        : localized("Cherry-picking %1 will be clean.", shortHash(hash));
    case MergePrediction::Outcome::conflicts: {
        const auto count = static_cast<int>(prediction->files.size());
        const auto files = shownFiles(prediction->files);
        return isRevert ? localized("Reverting %1 will conflict in %2 file(s): %3", shortHash(hash), count, files)
                        : localized("Cherry-picking %1 will conflict in %2 file(s): %3", shortHash(hash), count,
                                    files);
    }
    case MergePrediction::Outcome::unknown:
        return prediction->reason.empty() ? QString()
                                          : localized("No conflict preview: %1", prediction->reason);
    }
    return {};
}

QString GraphConfirmation::acceptLabel() const {
    switch (kind) {
    case Kind::hardReset:
        return localized("Hard Reset");
    case Kind::softReset:
        return localized("Soft Reset");
    case Kind::mixedReset:
        return localized("Mixed Reset");
    case Kind::cherryPick:
        return localized("Cherry-pick");
    case Kind::revert:
        return localized("Revert");
    }
    return {};
}

} // namespace orvel
