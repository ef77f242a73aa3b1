// What creating a branch does with the working tree's uncommitted changes.
#pragma once

#include <QString>

namespace orvel {

enum class LocalChangesOption { dontChange, stashAndReapply, discard };

// "Don't change", "Stash and reapply" or "Discard", localised.
QString displayText(LocalChangesOption option);

} // namespace orvel
