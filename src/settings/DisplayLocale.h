// The locale that dates are written in: the system's under English, and the language's own under
// any other, so that a date reads in the language of the texts around it and follows a switch.
#pragma once

#include "settings/LocalizationManager.h"

#include <QLocale>

namespace orvel {

inline QLocale displayLocale() {
    const QString language = LocalizationManager::shared().currentLanguage();
    return language == QLatin1String("en") ? QLocale() : QLocale(language);
}

} // namespace orvel
