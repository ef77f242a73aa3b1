// The colours and fonts a graph row is painted with, resolved from the theme once and again on
// every theme or palette change, so that painting a row parses no colour.
#pragma once

#include "settings/Theme.h"
#include "settings/ThemeTokens.h"

#include <QColor>
#include <QFont>
#include <QPalette>

#include <vector>

namespace orvel {

struct GraphRowStyle {
    std::vector<QColor> lanes; // never empty
    QColor nodeOutline;
    QColor localBranch, remoteBranch, tag, currentBranch;
    // The outline and text of the pill that counts the refs left out of a cell.
    QColor morePills;
    // Text on a filled pill, and the texts of the columns.
    QColor pillTextOnDark, pillTextOnLight;
    QColor text, secondaryText, tertiaryText, workingTreeCount;
    QFont textFont, workingTreeFont, hashFont, pillFont;

    // From the current theme, the catalogue's tokens and `palette` for the texts.
    static GraphRowStyle current(const QPalette& palette);
    static GraphRowStyle from(const Theme& theme, const ThemeTokens& tokens, const QPalette& palette);
    // The style of a selected row: the refs' colours moved off the selection's `highlight`, so that
    // a filled pill keeps its shape and an outlined pill's name can be read.
    GraphRowStyle onSelection(const QColor& highlight) const;

    const QColor& lane(int colorIndex) const {
        return lanes[static_cast<std::size_t>(colorIndex) % lanes.size()];
    }
    // The text colour that reads on a pill filled with `fill`.
    QColor pillText(const QColor& fill) const;
};

} // namespace orvel
