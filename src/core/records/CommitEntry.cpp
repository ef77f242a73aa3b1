#include "core/records/CommitEntry.h"

#include <QJsonArray>

#include <chrono>
#include <cstdio>

namespace orvel {

namespace {

QString textOf(const std::string& bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

QJsonArray arrayOf(const std::vector<std::string>& items) {
    QJsonArray array;
    for (const auto& item : items)
        array.append(textOf(item));
    return array;
}

QString isoText(Instant instant) {
    using namespace std::chrono;
    const sys_days day = floor<days>(instant);
    const year_month_day date{day};
    const hh_mm_ss time{instant - day};
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return QString::fromLatin1(text);
}

bool readText(const QJsonObject& object, const char* key, std::string& out) {
    const QJsonValue value = object.value(QLatin1String(key));
    if (!value.isString())
        return false;
    out = value.toString().toStdString();
    return true;
}

bool readList(const QJsonObject& object, const char* key, std::vector<std::string>& out) {
    const QJsonValue value = object.value(QLatin1String(key));
    if (!value.isArray())
        return false;
    for (const QJsonValue item : value.toArray()) {
        if (!item.isString())
            return false;
        out.push_back(item.toString().toStdString());
    }
    return true;
}

} // namespace

QJsonObject toJson(const CommitEntry& entry) {
    return QJsonObject{
        {"hash", textOf(entry.hash)},
        {"abbreviatedHash", textOf(entry.abbreviatedHash)},
        {"authorName", textOf(entry.authorName)},
        {"authorEmail", textOf(entry.authorEmail)},
        {"authorDate", isoText(entry.authorDate)},
        {"subject", textOf(entry.subject)},
        {"body", textOf(entry.body)},
        {"parentHashes", arrayOf(entry.parentHashes)},
        {"refs", arrayOf(entry.refs)},
    };
}

std::optional<CommitEntry> commitEntryFromJson(const QJsonObject& object) {
    CommitEntry entry;
    std::string date;
    if (!readText(object, "hash", entry.hash) ||
        !readText(object, "abbreviatedHash", entry.abbreviatedHash) ||
        !readText(object, "authorName", entry.authorName) ||
        !readText(object, "authorEmail", entry.authorEmail) || !readText(object, "authorDate", date) ||
        !readText(object, "subject", entry.subject) || !readText(object, "body", entry.body) ||
        !readList(object, "parentHashes", entry.parentHashes) || !readList(object, "refs", entry.refs))
        return std::nullopt;
    const auto instant = readIsoDate(date);
    if (!instant)
        return std::nullopt;
    entry.authorDate = *instant;
    return entry;
}

} // namespace orvel
