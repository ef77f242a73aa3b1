// The design tokens of one colour scheme of a catalogue theme, and the catalogue entry itself.
#pragma once

#include <QColor>
#include <QString>

#include <vector>

namespace orvel {

enum class ColorScheme { light, dark };

struct ThemeTokens {
    QColor window, panel, raised, input, fg, fg2, fg3, stroke, strokeSoft, accent, accentBright, accentText,
        add, del, mod, info;
    std::vector<QColor> lanes;
};

struct ThemePalette {
    ThemeTokens dark;
    ThemeTokens light;
};

enum class ThemeCategory {
    signature,
    elegant,
    energetic,
    nomad,
    archival,
    casual,
    colorful,
    morandi,
    accessibility,
    mecha,
    cyberpunk,
    artistic,
    surprise,
    inspiredKara,
    inspiredAkh,
    inspiredEva01,
    inspiredGithub
};

struct OrvelTheme {
    QString id;
    QString name;
    ThemeCategory category;
    QString tag;
    ThemePalette palette;
};

} // namespace orvel
