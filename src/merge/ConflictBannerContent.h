// What the conflict banner shows for each state of the repository: an icon, one line, and the
// title of the abort it offers. Only a rebase can be carried on from the banner; the other states
// end with a commit.
#pragma once

#include "core/records/RepoEntry.h"

#include <QString>

namespace orvel {

struct ConflictBannerContent {
    QString iconName;   // freedesktop name, with a bundled fallback
    QString text;       // localised; empty for the states the banner cannot end
    QString abortTitle; // localised; also the confirming button's text
    bool offersContinue = false;
    bool offersAbort = false; // whether the confirmed abort runs anything
};

ConflictBannerContent conflictBannerContent(RepositoryState state);

} // namespace orvel
