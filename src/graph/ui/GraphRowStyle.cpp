#include "graph/ui/GraphRowStyle.h"

#include "settings/ThemeEngine.h"

namespace orvel {

GraphRowStyle GraphRowStyle::current(const QPalette& palette) {
    const ThemeEngine& engine = ThemeEngine::shared();
    const ThemeColors& colors = engine.currentTheme().colors;
    const ThemeTokens& tokens = engine.currentTokens();
    GraphRowStyle style;
    for (const auto& colour : colors.graph.lanePalette)
        style.lanes.push_back(colour.color());
    if (style.lanes.empty())
        style.lanes = tokens.lanes;
    if (style.lanes.empty())
        style.lanes.push_back(tokens.accent);
    style.nodeOutline = colors.graph.nodeOutline.color();
    style.localBranch = colors.refs.localBranch.color();
    style.remoteBranch = colors.refs.remoteBranch.color();
    style.tag = colors.refs.tag.color();
    style.currentBranch = colors.refs.currentBranch.color();
    // The lighter and the darker of the window and the text colours.
    const bool windowIsLight = tokens.window.lightnessF() >= tokens.fg.lightnessF();
    style.pillTextOnDark = windowIsLight ? tokens.window : tokens.fg;
    style.pillTextOnLight = windowIsLight ? tokens.fg : tokens.window;
    style.text = palette.color(QPalette::Text);
    style.secondaryText = tokens.fg2;
    style.tertiaryText = tokens.fg3;
    style.workingTreeCount = colors.status.warning.color();
    style.textFont = engine.font(ThemeFont{12, {}, {}, {}}, false);
    style.workingTreeFont = engine.font(ThemeFont{12, QStringLiteral("medium"), {}, {}}, false);
    style.workingTreeFont.setItalic(true);
    style.hashFont = engine.font(ThemeFont{11, {}, {}, {}}, true);
    style.pillFont = engine.font(ThemeFont{11, QStringLiteral("medium"), {}, {}}, false);
    return style;
}

const QColor& GraphRowStyle::pillText(const QColor& fill) const {
    return fill.lightnessF() < 0.6 ? pillTextOnDark : pillTextOnLight;
}

} // namespace orvel
