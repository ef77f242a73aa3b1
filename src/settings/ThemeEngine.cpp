#include "settings/ThemeEngine.h"

#include "core/support/AtomicFile.h"
#include "core/support/Log.h"
#include "core/support/UserDefaults.h"
#include "settings/LocalizationManager.h"
#include "settings/ThemeDecoder.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <QStandardPaths>

#include <algorithm>
#include <stdexcept>

namespace orvel {

namespace {

const QString themeSuffix = QStringLiteral(".theme.json");

// A theme is a few kilobytes; a larger file is not read, so that no stray file stalls the program.
constexpr qint64 maximumThemeFileSize = 1024 * 1024;

QByteArray readThemeFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error(localized("Could not read %1: %2", path, file.errorString()).toStdString());
    if (file.size() > maximumThemeFileSize)
        throw std::runtime_error(localized("%1 is too large to be a theme.", path).toStdString());
    return file.readAll();
}

// The theme's id names its file in the themes folder, so it must be a plain file name.
void requireFileNameID(const QString& id) {
    if (id.isEmpty() || id.startsWith(u'.') || id.startsWith(u'-') || id.contains(u'/') ||
        id.contains(QChar(0)))
        throw std::runtime_error(localized("\"%1\" can't be the id of a theme.", id).toStdString());
}

void logLoadFailure(const std::exception& error) {
    qCCritical(lcUi, "op=theme.load reason=%s", redactForLog(error.what()).c_str());
}

// A file that can't be read or decoded is logged and skipped.
void appendTheme(std::vector<Theme>& themes, const QString& path, bool isBuiltIn) {
    try {
        themes.push_back(decodeTheme(readThemeFile(path), isBuiltIn));
    } catch (const std::exception& error) {
        logLoadFailure(error);
    }
}

// The entries of `folder` with the extension "json", in listing order. Two files with one id both
// stay.
std::vector<Theme> loadThemeFolder(const QString& folder, bool isBuiltIn) {
    std::vector<Theme> themes;
    const QFileInfoList entries = QDir(folder).entryInfoList(QDir::Files, QDir::Unsorted);
    for (const QFileInfo& entry : entries) {
        if (entry.suffix() == QLatin1String("json"))
            appendTheme(themes, entry.filePath(), isBuiltIn);
    }
    return themes;
}

// The first source that gives at least one theme wins: the resources' "Themes" folder, any
// ".theme.json" elsewhere in the resources, then the source tree of a development build.
std::vector<Theme> loadBuiltInThemes() {
    if (auto themes = loadThemeFolder(QStringLiteral(":/Themes"), true); !themes.empty())
        return themes;
    std::vector<Theme> themes;
    QDirIterator resources(QStringLiteral(":/"), QDir::Files, QDirIterator::Subdirectories);
    while (resources.hasNext()) {
        if (const QString path = resources.next(); path.endsWith(themeSuffix))
            appendTheme(themes, path, true);
    }
    if (!themes.empty())
        return themes;
    const QString sourceFolder = QFileInfo(QStringLiteral(__FILE__)).absolutePath();
    for (const QString& candidate : {sourceFolder + QStringLiteral("/../resources/Themes"),
                                     QDir::currentPath() + QStringLiteral("/src/resources/Themes")}) {
        if (!QFileInfo(candidate).isDir())
            continue;
        themes = loadThemeFolder(candidate, true);
        if (!themes.empty()) {
            qCDebug(lcUi, "op=theme.init count=%ld source=sourceTree", static_cast<long>(themes.size()));
            return themes;
        }
    }
    qCCritical(lcUi, "op=theme.init reason=noThemeFilesFound fallback=true");
    return {fallbackTheme()};
}

} // namespace

ThemeEngine& ThemeEngine::shared() {
    static ThemeEngine engine;
    return engine;
}

ThemeEngine::ThemeEngine() : currentTheme_(fallbackTheme()) {}

// Every field is set again, so that a second call (a test's fresh store) starts from scratch.
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
    pendingThemeID_.reset();
    snapshot_.reset();

    builtInThemes_ = loadBuiltInThemes();
    externalThemes_.clear();
    try {
        externalThemes_ = loadThemeFolder(externalThemesDirectory(), false);
    } catch (const std::exception& error) {
        logLoadFailure(error);
    }

    const QString selected = defaults.string(QStringLiteral("selectedThemeID"), QStringLiteral("orvel"));
    if (const Theme* theme = findTheme(selected))
        currentTheme_ = *theme;
    else
        currentTheme_ = builtInThemes_.empty() ? fallbackTheme() : builtInThemes_.front();
    qCDebug(lcUi, "op=theme.init builtIn=%ld external=%ld activeId=%s",
            static_cast<long>(builtInThemes_.size()), static_cast<long>(externalThemes_.size()),
            qPrintable(currentTheme_.id));
    notifyChanged();
}

void ThemeEngine::notifyChanged() {
    ++refreshID_;
    emit themeChanged();
}

// Built-in themes first: an external theme with a built-in one's id is found after it.
const Theme* ThemeEngine::findTheme(const QString& id) const {
    for (const std::vector<Theme>* themes : {&builtInThemes_, &externalThemes_}) {
        const auto found =
            std::find_if(themes->begin(), themes->end(), [&](const Theme& theme) { return theme.id == id; });
        if (found != themes->end())
            return &*found;
    }
    return nullptr;
}

std::vector<Theme> ThemeEngine::allThemes() const {
    std::vector<Theme> themes = builtInThemes_;
    themes.insert(themes.end(), externalThemes_.begin(), externalThemes_.end());
    return themes;
}

const OrvelTheme& catalogueTheme(const QString& id) {
    const auto& catalogue = themeCatalogue();
    const auto found = std::find_if(catalogue.begin(), catalogue.end(),
                                    [&](const OrvelTheme& theme) { return theme.id == id; });
    return found != catalogue.end() ? *found : catalogue.front();
}

const ThemeTokens& ThemeEngine::tokens(ColorScheme scheme) const {
    const OrvelTheme& theme = catalogueTheme(activeCatalogueID());
    return scheme == ColorScheme::dark ? theme.palette.dark : theme.palette.light;
}

ColorScheme ThemeEngine::currentColorScheme() {
    return QGuiApplication::palette().color(QPalette::Window).lightnessF() < 0.5 ? ColorScheme::dark
                                                                                 : ColorScheme::light;
}

double ThemeEngine::fontSize(const ThemeFont& themeFont) const {
    return std::max(themeFont.size + fontSizeOffset_, 8.0);
}

// Sizes are in the theme's points, where 13 is the application font's size. A family, the user's
// or the theme's, is used as named with the weight applied; without one the system font of the
// design is used.
QFont ThemeEngine::font(const ThemeFont& themeFont, bool mono) const {
    const std::optional<QString>& custom = mono ? monoFontFamily_ : uiFontFamily_;
    const std::optional<QString> family = custom ? custom : themeFont.family;
    QFont font;
    if (family)
        font = QFont(*family);
    else if (mono || themeFont.design == QLatin1String("monospaced"))
        font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    else if (themeFont.design == QLatin1String("serif"))
        font = QFont(QStringLiteral("serif"));
    else
        font = QGuiApplication::font();
    font.setPointSizeF(QGuiApplication::font().pointSizeF() * fontSize(themeFont) / 13.0);
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

void ThemeEngine::setFontSizeOffset(double value) {
    fontSizeOffset_ = value;
    if (defaults_)
        defaults_->setValue(QStringLiteral("themeFontSize"), value);
    qCDebug(lcUi, "op=font.customized size=%f", value);
    notifyChanged();
}

void ThemeEngine::setMonoFontFamily(std::optional<QString> name) {
    setFontFamily(monoFontFamily_, QStringLiteral("themeMonoFontFamily"), std::move(name), true);
}

void ThemeEngine::setUIFontFamily(std::optional<QString> name) {
    setFontFamily(uiFontFamily_, QStringLiteral("themeUIFontFamily"), std::move(name), false);
}

// A family of none removes the key, so that the theme's own font is used again.
void ThemeEngine::setFontFamily(std::optional<QString>& field, const QString& key,
                                std::optional<QString> name, bool mono) {
    field = std::move(name);
    if (defaults_) {
        if (field)
            defaults_->setValue(key, *field);
        else
            defaults_->remove(key);
    }
    qCDebug(lcUi, "op=font.customized family=%s mono=%s", qPrintable(field.value_or(QString())),
            mono ? "true" : "false");
    notifyChanged();
}

void ThemeEngine::saveSnapshot() {
    snapshot_ = Snapshot{currentTheme_.id, savedThemeID_, fontSizeOffset_, monoFontFamily_, uiFontFamily_};
    qCDebug(lcUi, "op=snapshot.saved themeId=%s", qPrintable(currentTheme_.id));
}

// An id that only the catalogue knows changes the tokens and leaves the file theme as it is.
void ThemeEngine::previewTheme(const QString& id) {
    pendingThemeID_ = id;
    if (const Theme* theme = findTheme(id))
        currentTheme_ = *theme;
    qCDebug(lcUi, "op=theme.preview themeId=%s", qPrintable(id));
    notifyChanged();
}

void ThemeEngine::previewFileTheme(const QString& id) {
    if (const Theme* theme = findTheme(id))
        currentTheme_ = *theme;
    qCDebug(lcUi, "op=theme.preview themeId=%s", qPrintable(id));
    notifyChanged();
}

void ThemeEngine::commitTheme() {
    if (defaults_)
        defaults_->setValue(QStringLiteral("selectedThemeID"), currentTheme_.id);
    if (pendingThemeID_) {
        savedThemeID_ = *std::exchange(pendingThemeID_, std::nullopt);
        if (defaults_)
            defaults_->setValue(QStringLiteral("orvelThemeID"), savedThemeID_);
    }
    snapshot_.reset();
    qCDebug(lcUi, "op=theme.commit themeId=%s", qPrintable(currentTheme_.id));
    qCDebug(lcUi, "op=snapshot.cleared themeId=%s", qPrintable(currentTheme_.id));
}

void ThemeEngine::revertTheme() {
    if (!snapshot_) {
        qCDebug(lcUi, "op=theme.revert hadSnapshot=false");
        return;
    }
    const Snapshot snapshot = *std::exchange(snapshot_, std::nullopt);
    pendingThemeID_.reset();
    if (currentTheme_.id != snapshot.themeID) {
        if (const Theme* theme = findTheme(snapshot.themeID)) {
            currentTheme_ = *theme;
            if (defaults_)
                defaults_->setValue(QStringLiteral("selectedThemeID"), currentTheme_.id);
        }
    }
    if (savedThemeID_ != snapshot.orvelSavedThemeID) {
        savedThemeID_ = snapshot.orvelSavedThemeID;
        if (defaults_)
            defaults_->setValue(QStringLiteral("orvelThemeID"), savedThemeID_);
    }
    setFontSizeOffset(snapshot.fontSizeOffset);
    setMonoFontFamily(snapshot.monoFontFamily);
    setUIFontFamily(snapshot.uiFontFamily);
    qCDebug(lcUi, "op=theme.revert hadSnapshot=true themeId=%s", qPrintable(currentTheme_.id));
}

void ThemeEngine::importTheme(const QString& filePath) {
    addExternalTheme(storeThemeFile(filePath));
}

void ThemeEngine::removeTheme(const QString& id) {
    deleteThemeFile(id);
    forgetExternalTheme(id);
}

// The bytes are kept as read, not encoded again, and replace a file of the same id.
Theme ThemeEngine::storeThemeFile(const QString& filePath) {
    const QByteArray bytes = readThemeFile(filePath);
    Theme theme = decodeTheme(bytes, false);
    requireFileNameID(theme.id);
    const QString target = externalThemesDirectory() + u'/' + theme.id + themeSuffix;
    replaceFileAtomically(QFile::encodeName(target).toStdString(),
                          std::string_view(bytes.data(), bytes.size()));
    return theme;
}

// A re-import moves the theme to the end of the list, and when that theme is in force its new
// colours show at once. An id that a built-in theme has too is allowed: lookups find the built-in
// one first.
void ThemeEngine::addExternalTheme(Theme theme) {
    std::erase_if(externalThemes_, [&](const Theme& external) { return external.id == theme.id; });
    if (!currentTheme_.isBuiltIn && currentTheme_.id == theme.id)
        currentTheme_ = theme;
    externalThemes_.push_back(std::move(theme));
    notifyChanged();
}

void ThemeEngine::deleteThemeFile(const QString& id) {
    requireFileNameID(id);
    QFile file(externalThemesDirectory() + u'/' + id + themeSuffix);
    if (!file.remove())
        throw std::runtime_error(
            localized("Could not remove the theme %1: %2", id, file.errorString()).toStdString());
}

// The theme in force falls back to the first built-in one, which is stored as the choice.
void ThemeEngine::forgetExternalTheme(const QString& id) {
    std::erase_if(externalThemes_, [&](const Theme& external) { return external.id == id; });
    if (currentTheme_.id == id) {
        currentTheme_ = builtInThemes_.empty() ? fallbackTheme() : builtInThemes_.front();
        if (defaults_)
            defaults_->setValue(QStringLiteral("selectedThemeID"), currentTheme_.id);
    }
    notifyChanged();
}

// Made with its parent folders whenever it is asked for.
QString ThemeEngine::externalThemesDirectory() {
    const QString base = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (base.isEmpty())
        throw std::runtime_error(localized("There is no folder for application data.").toStdString());
    const QString folder = base + QStringLiteral("/Themes");
    if (!QDir().mkpath(folder))
        throw std::runtime_error(localized("Could not create the folder %1.", folder).toStdString());
    return folder;
}

} // namespace orvel
