// The program's texts are written in English in the code and looked up at run time in the table of
// the language in force; the key is the English text itself. The language can change while the
// program runs: switching installs the new table and every widget receives QEvent::LanguageChange.
#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <mutex>
#include <utility>

class QTranslator;

namespace orvel {

class UserDefaults;

struct SupportedLanguage {
    const char* code;
    const char* displayName;
};

class LocalizationManager final : public QObject {
    Q_OBJECT

  public:
    static constexpr SupportedLanguage supportedLanguages[] = {{"en", "English"}, {"zh-Hans", "简体中文"}};

    static LocalizationManager& shared();

    // Reads "appLanguage" (absent: "en") and loads its table; the program calls it once at start.
    void start(UserDefaults& defaults);

    QString currentLanguage() const;

    // The translation of an English text, or the text itself where the table has none. Safe from
    // any thread.
    QString localized(const char* key) const;

    void switchLanguage(const QString& code, UserDefaults& defaults);

  signals:
    void languageChanged();

  private:
    LocalizationManager() = default;
    void load(const QString& code);

    mutable std::mutex lock_;
    QString currentLanguage_ = QStringLiteral("en");
    std::shared_ptr<QTranslator> currentBundle_;
};

// The lookup every view and model uses for a user-visible text. Formats take Qt's numbered
// markers ("Deleted branch %1"), filled after the lookup so a translation may reorder them.
inline QString localized(const char* key) {
    return LocalizationManager::shared().localized(key);
}

template <typename... Arguments>
QString localized(const char* key, Arguments&&... arguments) {
    return localized(key).arg(std::forward<Arguments>(arguments)...);
}

} // namespace orvel
