// The look of the program: the file theme in force (colours of graph, diff, refs, syntax...), the
// catalogue theme whose tokens colour the chrome, the user's font customisation, and the
// snapshot that lets the settings window preview and throw changes away. One instance, on the GUI
// thread; views repaint on themeChanged().
#pragma once

#include "settings/Theme.h"
#include "settings/ThemeTokens.h"

#include <QFont>
#include <QObject>
#include <QString>

#include <optional>
#include <vector>

namespace orvel {

class UserDefaults;

// The catalogue of compiled-in palettes; the first entry ("dala") is the default.
const std::vector<OrvelTheme>& themeCatalogue();
// The first catalogue theme with `id`, or the default one when none has it.
const OrvelTheme& catalogueTheme(const QString& id);

class ThemeEngine final : public QObject {
    Q_OBJECT

  public:
    struct Snapshot {
        QString themeID;
        QString orvelSavedThemeID;
        double fontSizeOffset = 0;
        std::optional<QString> monoFontFamily;
        std::optional<QString> uiFontFamily;
    };

    static ThemeEngine& shared();

    // Reads the stored choices and loads the built-in and external themes; called once at start,
    // before any window shows. Before it the fallback theme is in force.
    void start(UserDefaults& defaults);

    const Theme& currentTheme() const { return currentTheme_; }
    const std::vector<Theme>& builtInThemes() const { return builtInThemes_; }
    const std::vector<Theme>& externalThemes() const { return externalThemes_; }
    std::vector<Theme> allThemes() const;
    int refreshID() const { return refreshID_; }

    // The tokens of the active catalogue theme for `scheme`.
    const ThemeTokens& tokens(ColorScheme scheme) const;
    // The scheme of the application's palette now: dark when its window colour is dark.
    static ColorScheme currentColorScheme();
    const ThemeTokens& currentTokens() const { return tokens(currentColorScheme()); }

    // A theme font resolved against the customisation; `mono` picks the monospaced family.
    QFont font(const ThemeFont& themeFont, bool mono) const;
    // The font's size in the theme's points with the offset added; never below 8.
    double fontSize(const ThemeFont& themeFont) const;

    double fontSizeOffset() const { return fontSizeOffset_; }
    const std::optional<QString>& monoFontFamily() const { return monoFontFamily_; }
    const std::optional<QString>& uiFontFamily() const { return uiFontFamily_; }
    const QString& savedThemeID() const { return savedThemeID_; }
    const std::optional<QString>& pendingThemeID() const { return pendingThemeID_; }
    // The catalogue theme in force: the one being previewed, else the committed one.
    const QString& activeCatalogueID() const { return pendingThemeID_ ? *pendingThemeID_ : savedThemeID_; }
    const std::optional<Snapshot>& snapshot() const { return snapshot_; }

    void setFontSizeOffset(double value);
    void setMonoFontFamily(std::optional<QString> name);
    void setUIFontFamily(std::optional<QString> name);

    void saveSnapshot();
    // Previews `id` as the catalogue theme and, when a file theme has that id, as the file theme.
    void previewTheme(const QString& id);
    // Previews the file theme `id` and leaves the catalogue theme as it is, so that picking a file
    // theme after a palette keeps the palette.
    void previewFileTheme(const QString& id);
    void commitTheme();
    void revertTheme();

    // Throw std::runtime_error (or a file-system error) with a description for the user; on a
    // failure nothing has changed.
    void importTheme(const QString& filePath);
    void removeTheme(const QString& id);
    // AppDataLocation + "/Themes", made when asked for. Safe on any thread.
    static QString externalThemesDirectory();

    // The halves of an import and a removal: the file work, which blocks and may run on any thread,
    // and the change of the lists, on the GUI thread. They throw as importTheme and removeTheme do.
    static Theme storeThemeFile(const QString& filePath);
    void addExternalTheme(Theme theme);
    static void deleteThemeFile(const QString& id);
    void forgetExternalTheme(const QString& id);

  signals:
    // Any colour or font may have changed (refreshID has risen): views repaint.
    void themeChanged();

  private:
    ThemeEngine();
    void notifyChanged();
    const Theme* findTheme(const QString& id) const;
    void setFontFamily(std::optional<QString>& field, const QString& key, std::optional<QString> name,
                       bool mono);

    UserDefaults* defaults_ = nullptr;
    Theme currentTheme_;
    std::vector<Theme> builtInThemes_;
    std::vector<Theme> externalThemes_;
    int refreshID_ = 0;
    double fontSizeOffset_ = 0;
    std::optional<QString> monoFontFamily_;
    std::optional<QString> uiFontFamily_;
    QString savedThemeID_ = QStringLiteral("dala");
    std::optional<QString> pendingThemeID_;
    std::optional<Snapshot> snapshot_;
};

} // namespace orvel
