// The program's texts are written in English in the code and looked up at run time in the table of
// the language in force; the key is the English text itself. The language can change while the
// program runs: switching installs the new table and every widget receives QEvent::LanguageChange.
#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <mutex>
#include <string>
#include <type_traits>

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

// Marks an English text that is kept to be looked up later, such as a failure format handed to a
// helper or a row of a table of titles: the extraction of the tables finds it as it finds the texts
// given to localized() directly.
constexpr const char* translatable(const char* key) {
    return key;
}

namespace detail {
inline QString formatArgument(const QString& text) {
    return text;
}
inline QString formatArgument(const char* text) {
    return QString::fromUtf8(text);
}
// git's bytes, decoded for display.
inline QString formatArgument(const std::string& bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}
template <typename Number>
requires std::is_arithmetic_v<Number> QString formatArgument(Number number) {
    return QString::number(number);
}
} // namespace detail

// Every argument becomes text first and all are filled in one pass, so that "%2" inside the first
// argument stays as it is and a number is never taken for a field width.
template <typename... Arguments>
QString localized(const char* key, const Arguments&... arguments) {
    return localized(key).arg(detail::formatArgument(arguments)...);
}

} // namespace orvel
