#include "app/Appearance.h"

#include "settings/ThemeEngine.h"
#include "widgets/TokenPalette.h"

#include <QApplication>
#include <QPalette>

#include <optional>

namespace orvel {

namespace {

std::optional<ColorScheme>& chosenScheme() {
    static std::optional<ColorScheme> scheme;
    return scheme;
}

void applyPalette() {
    if (const std::optional<ColorScheme> scheme = chosenScheme())
        QApplication::setPalette(tokenPalette(ThemeEngine::shared().tokens(*scheme)));
    else
        QApplication::setPalette(QPalette()); // no role set: the desktop's palette
}

} // namespace

void applyAppearance(const QString& appearance) {
    static const QMetaObject::Connection followsTheme =
        QObject::connect(&ThemeEngine::shared(), &ThemeEngine::themeChanged, qApp, [] {
            if (chosenScheme())
                applyPalette();
        });
    Q_UNUSED(followsTheme);
    chosenScheme() = appearance == QLatin1String("dark")    ? std::optional(ColorScheme::dark)
                     : appearance == QLatin1String("light") ? std::optional(ColorScheme::light)
                                                            : std::nullopt;
    applyPalette();
}

} // namespace orvel
