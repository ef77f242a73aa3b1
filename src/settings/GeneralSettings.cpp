#include "settings/GeneralSettings.h"

#include "core/support/UserDefaults.h"
#include "core/support/Version.h"
#include "settings/LocalizationManager.h"

#include <QLocale>

namespace orvel {

namespace {

// The settings file keeps every value as text, so a number or a truth value may come back as a
// string; a value of another kind counts as absent.
int storedInteger(const UserDefaults& store, const QString& key, int fallback) {
    bool isInteger = false;
    const int value = store.value(key).toString().toInt(&isInteger);
    return isInteger ? value : fallback;
}

bool storedBoolean(const UserDefaults& store, const QString& key, bool fallback) {
    const QVariant value = store.value(key);
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    const QString text = value.toString();
    if (text == QLatin1String("true") || text == QLatin1String("false"))
        return text == QLatin1String("true");
    return fallback;
}

QString storedString(const UserDefaults& store, const QString& key, const QString& fallback) {
    const QVariant value = store.value(key);
    return value.typeId() == QMetaType::QString ? value.toString() : fallback;
}

// The locale's language, as the code of a supported language when one matches it in language and
// script ("zh_CN" is "zh-Hans"), otherwise as its bare code; a locale without one is English.
QString localeLanguage() {
    const QLocale locale;
    if (locale.language() == QLocale::C || locale.language() == QLocale::AnyLanguage)
        return QStringLiteral("en");
    for (const SupportedLanguage& supported : LocalizationManager::supportedLanguages) {
        const QLocale candidate(QString::fromLatin1(supported.code));
        if (candidate.language() == locale.language() && candidate.script() == locale.script())
            return QString::fromLatin1(supported.code);
    }
    return QLocale::languageToCode(locale.language());
}

// In the order of the enumeration.
struct InitFileNames {
    const char* rawValue;
    const char* fileName;
};
constexpr InitFileNames initFileNames[] = {
    {"gitkeep", ".gitkeep"}, {"readme", "README.md"}, {"gitignore", ".gitignore"}};

} // namespace

QString rawValue(EmptyRepoInitFile file) {
    return QLatin1String(initFileNames[static_cast<std::size_t>(file)].rawValue);
}

QString initialFileName(EmptyRepoInitFile file) {
    return QLatin1String(initFileNames[static_cast<std::size_t>(file)].fileName);
}

EmptyRepoInitFile emptyRepoInitFileOf(const QString& stored) {
    for (EmptyRepoInitFile file : allEmptyRepoInitFiles)
        if (stored == rawValue(file) || stored == initialFileName(file))
            return file;
    return EmptyRepoInitFile::gitkeep;
}

QString defaultEmptyRepoInitDescription() {
    const QString version = orvelVersion.empty() ? QStringLiteral("0") : QString(QLatin1String(orvelVersion));
    return QStringLiteral("Init by Orvel ") + version + QStringLiteral(" - Git GUI");
}

GeneralSettings GeneralSettings::defaults() {
    GeneralSettings settings;
    settings.language = localeLanguage();
    settings.emptyRepoInitDesc = defaultEmptyRepoInitDescription();
    return settings;
}

GeneralSettings GeneralSettings::read(const UserDefaults& store) {
    const GeneralSettings fallback = defaults();
    GeneralSettings settings;
    settings.appearance = storedString(store, QStringLiteral("appearance"), fallback.appearance);
    settings.language = storedString(store, QStringLiteral("language"), fallback.language);
    settings.autoFetchInterval =
        storedInteger(store, QStringLiteral("autoFetchInterval"), fallback.autoFetchInterval);
    settings.autoPrune = storedBoolean(store, QStringLiteral("autoPrune"), fallback.autoPrune);
    settings.branchSpaceReplacement =
        storedString(store, QStringLiteral("branchSpaceReplacement"), fallback.branchSpaceReplacement);
    settings.largeFileSizeMB =
        storedInteger(store, QStringLiteral("largeFileSizeMB"), fallback.largeFileSizeMB);
    settings.largeFileLineCountK =
        storedInteger(store, QStringLiteral("largeFileLineCountK"), fallback.largeFileLineCountK);
    settings.emptyRepoInitMessage =
        storedString(store, QStringLiteral("emptyRepoInitMessage"), fallback.emptyRepoInitMessage);
    settings.emptyRepoInitDesc =
        storedString(store, QStringLiteral("emptyRepoInitDesc"), fallback.emptyRepoInitDesc);
    settings.emptyRepoInitFile = emptyRepoInitFileOf(
        storedString(store, QStringLiteral("emptyRepoInitFile"), rawValue(fallback.emptyRepoInitFile)));
    return settings;
}

void GeneralSettings::write(UserDefaults& store) const {
    store.setValue(QStringLiteral("appearance"), appearance);
    store.setValue(QStringLiteral("language"), language);
    store.setValue(QStringLiteral("autoFetchInterval"), autoFetchInterval);
    store.setValue(QStringLiteral("autoPrune"), autoPrune);
    store.setValue(QStringLiteral("branchSpaceReplacement"), branchSpaceReplacement);
    store.setValue(QStringLiteral("largeFileSizeMB"), largeFileSizeMB);
    store.setValue(QStringLiteral("largeFileLineCountK"), largeFileLineCountK);
    store.setValue(QStringLiteral("emptyRepoInitMessage"), emptyRepoInitMessage);
    store.setValue(QStringLiteral("emptyRepoInitDesc"), emptyRepoInitDesc);
    store.setValue(QStringLiteral("emptyRepoInitFile"), rawValue(emptyRepoInitFile));
}

} // namespace orvel
