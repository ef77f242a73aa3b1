#include "graph/ui/GraphRowStyle.h"

#include "settings/ThemeEngine.h"
#include "widgets/TextContrast.h"

namespace orvel {

GraphRowStyle GraphRowStyle::current(const QPalette& palette) {
    const ThemeEngine& engine = ThemeEngine::shared();
    return from(engine.currentTheme(), engine.currentTokens(), palette);
}

GraphRowStyle GraphRowStyle::from(const Theme& theme, const ThemeTokens& tokens, const QPalette& palette) {
    const ThemeEngine& engine = ThemeEngine::shared();
    const ThemeColors& colors = theme.colors;
    // Texts stand on the rows' colour, each moved where the theme puts it too close to be read.
    const QColor base = palette.color(QPalette::Base);
    GraphRowStyle style;
    for (const auto& colour : colors.graph.lanePalette)
        style.lanes.push_back(colour.color());
    if (style.lanes.empty())
        style.lanes = tokens.lanes;
    if (style.lanes.empty())
        style.lanes.push_back(tokens.accent);
    style.nodeOutline = colors.graph.nodeOutline.color();
    style.localBranch = colors.refs.localBranch.color();
    // An outlined pill's name stands on the row itself.
    style.remoteBranch = readableOn(base, colors.refs.remoteBranch.color());
    style.tag = colors.refs.tag.color();
    style.currentBranch = colors.refs.currentBranch.color();
    // The lighter and the darker of the window and the text colours.
    const bool windowIsLight = tokens.window.lightnessF() >= tokens.fg.lightnessF();
    style.pillTextOnDark = windowIsLight ? tokens.window : tokens.fg;
    style.pillTextOnLight = windowIsLight ? tokens.fg : tokens.window;
    style.text = readableOn(base, palette.color(QPalette::Text));
    style.secondaryText = readableOn(base, tokens.fg2);
    style.tertiaryText = readableOn(base, tokens.fg3);
    style.workingTreeCount = readableOn(base, colors.status.warning.color());
    style.morePills = style.secondaryText;
    style.textFont = engine.font(ThemeFont{12, {}, {}, {}}, false);
    style.workingTreeFont = engine.font(ThemeFont{12, QStringLiteral("medium"), {}, {}}, false);
    style.workingTreeFont.setItalic(true);
    style.hashFont = engine.font(ThemeFont{11, {}, {}, {}}, true);
    style.pillFont = engine.font(ThemeFont{11, QStringLiteral("medium"), {}, {}}, false);
    return style;
}

GraphRowStyle GraphRowStyle::onSelection(const QColor& highlight) const {
    GraphRowStyle style = *this;
    for (QColor* fill : {&style.localBranch, &style.tag, &style.currentBranch})
        *fill = readableOn(highlight, *fill, shapeContrast);
    style.remoteBranch = readableOn(highlight, remoteBranch);
    style.morePills = readableOn(highlight, morePills);
    return style;
}

QColor GraphRowStyle::pillText(const QColor& fill) const {
    return readableOn(fill, fill.lightnessF() < 0.6 ? pillTextOnDark : pillTextOnLight);
}

} // namespace orvel
