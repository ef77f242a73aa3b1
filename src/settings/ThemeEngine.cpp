#include "settings/ThemeEngine.h"

#include "core/support/UserDefaults.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

namespace orvel {

ThemeEngine& ThemeEngine::shared() {
    static ThemeEngine engine;
    return engine;
}

ThemeEngine::ThemeEngine() : currentTheme_(fallbackTheme()) {}

void ThemeEngine::start(UserDefaults& defaults) {
    defaults_ = &defaults;
    fontSizeOffset_ = defaults.value(QStringLiteral("themeFontSize"), 0.0).toDouble();
    const auto family = [&](const char* key) -> std::optional<QString> {
        const QVariant value = defaults.value(QString::fromLatin1(key));
        return value.isValid() ? std::optional<QString>(value.toString()) : std::nullopt;
    };
    monoFontFamily_ = family("themeMonoFontFamily");
    uiFontFamily_ = family("themeUIFontFamily");
    savedThemeID_ = defaults.string(QStringLiteral("orvelThemeID"), QStringLiteral("dala"));
}

std::vector<Theme> ThemeEngine::allThemes() const {
    std::vector<Theme> themes = builtInThemes_;
    themes.insert(themes.end(), externalThemes_.begin(), externalThemes_.end());
    return themes;
}

const ThemeTokens& ThemeEngine::tokens(ColorScheme scheme) const {
    const QString& active = pendingThemeID_.value_or(savedThemeID_);
    const auto& catalogue = themeCatalogue();
    auto found = std::find_if(catalogue.begin(), catalogue.end(),
                              [&](const OrvelTheme& theme) { return theme.id == active; });
    const OrvelTheme& theme = found != catalogue.end() ? *found : catalogue.front();
    return scheme == ColorScheme::dark ? theme.palette.dark : theme.palette.light;
}

ColorScheme ThemeEngine::currentColorScheme() {
    return QGuiApplication::palette().color(QPalette::Window).lightnessF() < 0.5 ? ColorScheme::dark
                                                                                : ColorScheme::light;
}

// Sizes are in the theme's points, where 13 is the application font's size; no font goes below 8.
QFont ThemeEngine::font(const ThemeFont& themeFont, bool mono) const {
    const double size = std::max(themeFont.size + fontSizeOffset_, 8.0);
    const std::optional<QString>& custom = mono ? monoFontFamily_ : uiFontFamily_;
    const std::optional<QString> family = custom ? custom : themeFont.family;
    QFont font = family ? QFont(*family)
                 : mono || themeFont.design == QLatin1String("monospaced")
                     ? QFontDatabase::systemFont(QFontDatabase::FixedFont)
                     : QGuiApplication::font();
    font.setPointSizeF(QGuiApplication::font().pointSizeF() * size / 13.0);
    if (themeFont.weight == QLatin1String("bold"))
        font.setWeight(QFont::Bold);
    else if (themeFont.weight == QLatin1String("semibold"))
        font.setWeight(QFont::DemiBold);
    else if (themeFont.weight == QLatin1String("medium"))
        font.setWeight(QFont::Medium);
    else if (themeFont.weight == QLatin1String("light"))
        font.setWeight(QFont::Light);
    return font;
}

} // namespace orvel
