// A question the graph pane asks before an action that moves HEAD or may conflict: the view shows
// it as an alert and, on acceptance, hands it back to the model to run.
#pragma once

#include "core/records/MergePrediction.h"

#include <QString>

#include <optional>
#include <string>

namespace orvel {

struct GraphConfirmation {
    enum class Kind { hardReset, softReset, mixedReset, cherryPick, revert };

    Kind kind = Kind::hardReset;
    std::string hash;
    bool dirtyTree = false; // a cherry-pick or revert onto uncommitted changes

    // The alert's title and message, in the current language.
    QString title() const;
    QString text() const;
    // What a cherry-pick or revert will do, as the alert says it: "Checking…" while there is no
    // prediction yet; nothing for the other kinds.
    QString predictionText(const std::optional<MergePrediction>& prediction) const;
    // The label of the accepting button.
    QString acceptLabel() const;
};

} // namespace orvel
