#include "widgets/TokenPalette.h"

#include "widgets/TextContrast.h"

namespace orvel {

// Lists and text fields sit on the panel colour, buttons and tooltips on the raised one; selected
// text takes the window colour, moved where a theme's accent is too close to it to be read.
QPalette tokenPalette(const ThemeTokens& tokens) {
    QPalette palette(tokens.raised, tokens.window); // derives the bevel shades from the button colour
    const QColor selectedText = readableOn(tokens.accent, tokens.window);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const bool disabled = group == QPalette::Disabled;
        const QColor& text = disabled ? tokens.fg3 : tokens.fg;
        palette.setColor(group, QPalette::WindowText, text);
        palette.setColor(group, QPalette::Text, text);
        palette.setColor(group, QPalette::ButtonText, text);
        palette.setColor(group, QPalette::Base, disabled ? tokens.window : tokens.panel);
        palette.setColor(group, QPalette::AlternateBase, tokens.raised);
        palette.setColor(group, QPalette::ToolTipBase, tokens.raised);
        palette.setColor(group, QPalette::ToolTipText, tokens.fg);
        palette.setColor(group, QPalette::PlaceholderText, tokens.fg3);
        palette.setColor(group, QPalette::BrightText, tokens.accentText);
        palette.setColor(group, QPalette::Highlight, disabled ? tokens.fg3 : tokens.accent);
        palette.setColor(group, QPalette::HighlightedText, selectedText);
        palette.setColor(group, QPalette::Link, tokens.accentText);
        palette.setColor(group, QPalette::LinkVisited, tokens.accentBright);
    }
    return palette;
}

} // namespace orvel
