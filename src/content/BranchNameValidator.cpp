#include "content/BranchNameValidator.h"

#include "core/support/UserDefaults.h"
#include "settings/LocalizationManager.h"

#include <QTextBoundaryFinder>

namespace orvel {

namespace BranchNameValidator {

namespace {

using enum ErrorCase;

// User-perceived characters: a "\r\n" pair is one, as is a letter with its combining marks.
std::vector<QString> graphemes(const QString& text) {
    std::vector<QString> result;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype start = 0;
    while (finder.toNextBoundary() != -1) {
        result.push_back(text.mid(start, finder.position() - start));
        start = finder.position();
    }
    return result;
}

bool isControl(const QString& character) {
    if (character == QLatin1String("\r\n"))
        return true;
    return character.size() == 1 && (character[0].unicode() < 32 || character[0].unicode() == 127);
}

} // namespace

std::vector<ValidationError> validate(const QString& name) {
    if (name.isEmpty())
        return {{empty, {}}};
    std::vector<ValidationError> errors;
    const auto add = [&errors](ErrorCase kind, QString character = {}) {
        errors.push_back({kind, character});
    };
    const std::vector<QString> characters = graphemes(name);
    if (characters.size() >= 256)
        add(tooLong);
    if (name.startsWith(QLatin1Char('-')))
        add(startsWithDash);
    if (name.startsWith(QLatin1Char('.')))
        add(startsWithDot);
    if (name.endsWith(QLatin1Char('.')))
        add(endsWithDot);
    if (name.endsWith(QLatin1Char('/')))
        add(endsWithSlash);
    if (name.endsWith(QLatin1String(".lock")))
        add(endsWithLockExtension);
    if (name.contains(QLatin1String("..")))
        add(containsConsecutiveDots);
    if (name.contains(QLatin1String("//")))
        add(containsConsecutiveSlashes);
    if (name.contains(QLatin1String("@{")))
        add(containsAtBrace);
    if (name == QLatin1String("@"))
        add(isSingleAt);
    for (const QString& character : characters) {
        if (isControl(character)) {
            add(containsInvalidCharacter, character);
            break;
        }
        if (character == QLatin1String(" ")) {
            add(containsSpace);
            break;
        }
        if (character.size() == 1 && QStringView(u"~^:?*[\\").contains(character[0])) {
            add(containsInvalidCharacter, character);
            break;
        }
    }
    const auto components = name.split(QLatin1Char('/'));
    for (const QString& component : components) {
        if (component.startsWith(QLatin1Char('.'))) {
            add(componentStartsWithDot);
            break;
        }
    }
    return errors;
}

std::optional<QString> message(const ValidationError& error) {
    switch (error.kind) {
    case tooLong:
        return localized("Must be 255 characters or fewer");
    case endsWithDot:
        return localized("Cannot end with '.'");
    case endsWithSlash:
        return localized("Cannot end with '/'");
    case endsWithLockExtension:
        return localized("Cannot end with '.lock'");
    case containsConsecutiveDots:
        return localized("Cannot contain '..'");
    case containsConsecutiveSlashes:
        return localized("Cannot contain '//'");
    case containsAtBrace:
        return localized("Cannot contain '@{'");
    case isSingleAt:
        return localized("'@' alone is not valid");
    case componentStartsWithDot:
        return localized("Path components cannot start with '.'");
    case containsInvalidCharacter:
    case empty:
    case startsWithDash:
    case startsWithDot:
    case containsSpace:
        return std::nullopt;
    }
    return std::nullopt;
}

QString reason(const ValidationError& error) {
    if (auto text = message(error))
        return *text;
    switch (error.kind) {
    case empty:
        return localized("Cannot be empty");
    case startsWithDash:
        return localized("Cannot start with '-'");
    case startsWithDot:
        return localized("Cannot start with '.'");
    case containsSpace:
        return localized("Cannot contain spaces");
    default:
        return isControl(error.character) ? localized("Cannot contain control characters")
                                          : localized("Cannot contain '%1'", error.character);
    }
}

QString spaceReplacement(const UserDefaults& defaults) {
    const QString stored = defaults.string(QStringLiteral("branchSpaceReplacement"), QStringLiteral("-"));
    return stored.isEmpty() ? QStringLiteral("-") : stored;
}

} // namespace BranchNameValidator

QString sanitize(const QString& text, const QString& replacement) {
    QString replaced = text;
    replaced.replace(QLatin1Char(' '), replacement);
    QString cleaned;
    cleaned.reserve(replaced.size());
    for (const QChar character : replaced) {
        const bool refused =
            QStringView(u"~^:\\?*[] ").contains(character) || character.category() == QChar::Other_Control;
        if (!refused)
            cleaned.append(character);
    }
    qsizetype start = 0;
    while (start < cleaned.size() &&
           (cleaned[start] == QLatin1Char('.') || cleaned[start] == QLatin1Char('-')))
        ++start;
    return cleaned.mid(start);
}

QString normalizedBranchName(const QString& text, const QString& replacement) {
    QString name = sanitize(text, replacement);
    const auto trimmed = [](QChar character) {
        return character == QLatin1Char('.') || character == QLatin1Char('-') ||
               character == QLatin1Char('/');
    };
    qsizetype start = 0;
    qsizetype end = name.size();
    while (start < end && trimmed(name[start]))
        ++start;
    while (end > start && trimmed(name[end - 1]))
        --end;
    name = name.mid(start, end - start);
    while (name.contains(QLatin1String("..")))
        name.replace(QLatin1String(".."), QLatin1String("."));
    while (name.contains(QLatin1String("//")))
        name.replace(QLatin1String("//"), QLatin1String("/"));
    if (name.endsWith(QLatin1String(".lock")))
        name.chop(5);
    return name;
}

} // namespace orvel
