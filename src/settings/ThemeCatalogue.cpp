// The compiled-in catalogue of palettes, in the order the theme picker shows them.
#include "settings/ThemeEngine.h"

#include <QStringList>

namespace orvel {

namespace {

// Sixteen colours in token order (window ... info), "RRGGBB" or "RRGGBB/opacity", then the lanes.
ThemeTokens tokens(const char* colours, const char* lanes) {
    const auto colour = [](const QString& text) {
        const QStringList parts = text.split(u'/');
        QColor value = parseThemeColor(parts.front());
        if (parts.size() > 1)
            value.setAlphaF(parts[1].toFloat());
        return value;
    };
    const QStringList values = QString::fromLatin1(colours).split(u' ', Qt::SkipEmptyParts);
    ThemeTokens t;
    QColor* fields[] = {&t.window, &t.panel,  &t.raised,       &t.input,  &t.fg,          &t.fg2,
                        &t.fg3,    &t.stroke, &t.strokeSoft,   &t.accent, &t.accentBright, &t.accentText,
                        &t.add,    &t.del,    &t.mod,          &t.info};
    for (int index = 0; index < 16 && index < values.size(); ++index)
        *fields[index] = colour(values[index]);
    for (const QString& lane : QString::fromLatin1(lanes).split(u' ', Qt::SkipEmptyParts))
        t.lanes.push_back(colour(lane));
    return t;
}

std::vector<OrvelTheme> makeCatalogue() {
    return {
        {QStringLiteral("dala"), QStringLiteral("Dala"), ThemeCategory::signature,
         QStringLiteral("Petrol teal, brushed gold, hairline ornament — the steppe"),
         {tokens("0A2B28 0D3632 134541 0A302C EBE1CB B9B19F 8A8472 E9CF82/0.12 E9CF82/0.25 C89A3A D8B155 "
                 "E9CF82 6FBF7A D46A6A D8B155 5DB7C9",
                 "D8B155 2FB3A4 C389FF D46A6A"),
          tokens("F3ECD8 ECE3C9 E2D6B5 F7F0DD 2D2414 5C5134 8A7E58 4F3C14/0.14 4F3C14/0.25 8C6415 A87A25 "
                 "6B4C0F 2F7A3C A63E3E 8C6415 2C6C80",
                 "8C6415 0F6659 6A3AA8 A63E3E")}},
    };
}

} // namespace

const std::vector<OrvelTheme>& themeCatalogue() {
    static const std::vector<OrvelTheme> catalogue = makeCatalogue();
    return catalogue;
}

} // namespace orvel
