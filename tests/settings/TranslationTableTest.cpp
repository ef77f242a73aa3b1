// The Simplified Chinese table against the program's own sources: every English text given to
// localized() or marked translatable() has a finished translation, the same one wherever the
// table files it, and every translation keeps its source's numbered markers and accelerator, so
// that no text reaches the screen in English or loses a value that is filled into it.
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <map>
#include <set>

#include <gtest/gtest.h>

namespace {

const QString sourceFolder = QStringLiteral(ORVEL_SOURCE_DIR "/src");
const QString chineseTable = QStringLiteral(ORVEL_SOURCE_DIR "/src/resources/i18n/orvel_zh-Hans.ts");

QString readText(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

// The text of adjacent C++ string literals, as the compiler joins them.
QString joinedLiterals(const QString& literals) {
    static const QRegularExpression literal(QStringLiteral(R"re("((?:[^"\\]|\\.)*)")re"));
    QString text;
    for (const auto& match : literal.globalMatch(literals)) {
        const QString body = match.captured(1);
        for (qsizetype i = 0; i < body.size(); ++i) {
            if (body[i] == QLatin1Char('\\') && i + 1 < body.size()) {
                const QChar escaped = body[++i];
                text += escaped == QLatin1Char('n') ? QChar(QLatin1Char('\n')) : escaped;
            } else {
                text += body[i];
            }
        }
    }
    return text;
}

// Every literal the program looks up, with the first file that holds it.
std::map<QString, QString> lookedUpTexts() {
    static const QRegularExpression call(
        QStringLiteral(R"re(\b(?:localized|translatable)\(\s*((?:"(?:[^"\\]|\\.)*"\s*)+))re"));
    std::map<QString, QString> texts;
    QDirIterator files(sourceFolder, {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        const QString code = readText(path);
        for (const auto& match : call.globalMatch(code)) {
            const qsizetype lineStart = code.lastIndexOf(QLatin1Char('\n'), match.capturedStart()) + 1;
            if (code.mid(lineStart, match.capturedStart() - lineStart)
                    .trimmed()
                    .startsWith(QLatin1String("//")))
                continue;
            texts.emplace(joinedLiterals(match.captured(1)), path.mid(sourceFolder.size() + 1));
        }
    }
    return texts;
}

struct Entry {
    QString translation;
    bool finished = false;
};

// The messages of a translation source by their English text; vanished ones are left out, as
// the compiled table leaves them out.
std::multimap<QString, Entry> tableEntries(const QString& path) {
    std::multimap<QString, Entry> entries;
    QXmlStreamReader xml(readText(path));
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("source")) {
            source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            const QString type = xml.attributes().value(QLatin1String("type")).toString();
            const QString translation = xml.readElementText();
            if (type != QLatin1String("vanished") && type != QLatin1String("obsolete"))
                entries.emplace(source, Entry{translation, type.isEmpty() && !translation.isEmpty()});
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return entries;
}

// What a translation must carry over: the numbered markers and the letter after a single "&".
QStringList fixedParts(const QString& text) {
    static const QRegularExpression part(QStringLiteral(R"re(%\d|%n|(?<!&)&(?!&)\w)re"));
    QStringList parts;
    for (const auto& match : part.globalMatch(text))
        parts << (match.captured().startsWith(QLatin1Char('&')) ? QStringLiteral("&") : match.captured());
    parts.sort();
    return parts;
}

} // namespace

TEST(TranslationTable, EveryLookedUpTextHasOneFinishedChineseTranslationWithItsMarkers) {
    const std::multimap<QString, Entry> entries = tableEntries(chineseTable);
    const std::map<QString, QString> texts = lookedUpTexts();
    ASSERT_GT(texts.size(), 500u) << "the scan of the sources found too few texts";

    std::vector<std::string> faults;
    for (const auto& [text, file] : texts) {
        const auto [first, last] = entries.equal_range(text);
        if (first == last)
            faults.push_back("missing from the table: \"" + text.toStdString() + "\" (" + file.toStdString() +
                             ")");
        else if (std::any_of(first, last, [](const auto& entry) { return !entry.second.finished; }))
            faults.push_back("no finished translation: \"" + text.toStdString() + "\"");
    }
    std::set<QString> told;
    for (const auto& message : entries) {
        const auto& [source, entry] = message;
        const auto [first, last] = entries.equal_range(source);
        const auto differs = [&](const auto& other) {
            return other.second.translation != message.second.translation;
        };
        if (std::any_of(first, last, differs) && told.insert(source).second)
            faults.push_back("translated differently in two places: \"" + source.toStdString() + "\"");
        if (entry.finished && fixedParts(source) != fixedParts(entry.translation))
            faults.push_back("markers or accelerator lost: \"" + source.toStdString() + "\" -> \"" +
                             entry.translation.toStdString() + "\"");
    }
    for (const std::string& fault : faults)
        ADD_FAILURE() << fault;
}
