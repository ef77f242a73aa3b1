#include "settings/LocalizationManager.h"

#include "core/support/Log.h"
#include "core/support/UserDefaults.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace orvel {

LocalizationManager& LocalizationManager::shared() {
    static LocalizationManager manager;
    return manager;
}

void LocalizationManager::start(UserDefaults& defaults) {
    const QString code = defaults.string(QStringLiteral("appLanguage"), QStringLiteral("en"));
    load(code);
}

QString LocalizationManager::currentLanguage() const {
    std::lock_guard guard(lock_);
    return currentLanguage_;
}

QString LocalizationManager::localized(const char* key) const {
    std::shared_ptr<QTranslator> bundle;
    {
        std::lock_guard guard(lock_);
        bundle = currentBundle_;
    }
    if (!bundle)
        return QString::fromUtf8(key);
    // The build puts every message of a table in the empty context: the key is the English text,
    // wherever in the code it stands.
    const QString translation = bundle->translate("", key);
    return translation.isEmpty() ? QString::fromUtf8(key) : translation;
}

void LocalizationManager::switchLanguage(const QString& code, UserDefaults& defaults) {
    load(code);
    defaults.setValue(QStringLiteral("appLanguage"), code);
    qCDebug(lcApp, "op=locale.switched lang=%s", qPrintable(code));
    emit languageChanged();
}

namespace {

// Qt's own table of the language in force, for the texts that Qt's widgets and dialogs show
// themselves (a tab's close button, a line edit's menu); the program's lookup never reads it. Like
// the manager, there is one for the process.
std::unique_ptr<QTranslator> qtBundle;

// Qt's table of the language where the system keeps Qt's translations, or none.
std::unique_ptr<QTranslator> qtTable(const QString& code) {
    if (code == QLatin1String("en"))
        return nullptr;
    auto table = std::make_unique<QTranslator>();
    if (!table->load(QLocale(code), QStringLiteral("qtbase"), QStringLiteral("_"),
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        return nullptr;
    return table;
}

} // namespace

// English has no table. Another language's table is a compiled translation in the resources; a
// missing one logs once and leaves every text in English, while the language still changes.
void LocalizationManager::load(const QString& code) {
    std::shared_ptr<QTranslator> bundle;
    if (code != QLatin1String("en")) {
        bundle = std::make_shared<QTranslator>();
        if (!bundle->load(QStringLiteral(":/i18n/orvel_%1.qm").arg(code))) {
            qCCritical(lcApp, "op=locale.loadFailed lang=%s", qPrintable(code));
            bundle.reset();
        }
    }
    std::shared_ptr<QTranslator> previous;
    {
        std::lock_guard guard(lock_);
        currentLanguage_ = code;
        previous = std::exchange(currentBundle_, bundle);
    }
    if (auto* application = QCoreApplication::instance()) {
        if (qtBundle)
            application->removeTranslator(qtBundle.get());
        qtBundle = qtTable(code);
        if (qtBundle)
            application->installTranslator(qtBundle.get());
        if (previous)
            application->removeTranslator(previous.get());
        if (bundle)
            application->installTranslator(bundle.get());
    }
}

} // namespace orvel
