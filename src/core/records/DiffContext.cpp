#include "core/records/DiffContext.h"

#include <QJsonValue>

#include <array>
#include <string_view>
#include <utility>

namespace orvel {

namespace {

constexpr std::array<std::pair<DiffContext::Case, const char*>, 5> tags{{
    {DiffContext::Case::unstaged, "unstaged"},
    {DiffContext::Case::staged, "staged"},
    {DiffContext::Case::commit, "commit"},
    {DiffContext::Case::stash, "stash"},
    {DiffContext::Case::commitRange, "commitRange"},
}};

const char* tagOf(DiffContext::Case kind) {
    for (const auto& [candidate, tag] : tags) {
        if (candidate == kind)
            return tag;
    }
    return "unstaged";
}

QString text(const std::string& bytes) {
    return QString::fromStdString(bytes);
}

std::optional<std::string> stringField(const QJsonObject& payload, const char* key) {
    const QJsonValue value = payload.value(QLatin1String(key));
    if (!value.isString())
        return std::nullopt;
    return value.toString().toStdString();
}

} // namespace

std::string describe(const DiffContext& context) {
    switch (context.kind) {
    case DiffContext::Case::unstaged:
    case DiffContext::Case::staged:
        return tagOf(context.kind);
    case DiffContext::Case::commit:
        return "commit(hash: " + context.hash + ", parentIndex: " +
               (context.parentIndex ? std::to_string(*context.parentIndex) : std::string("nil")) + ")";
    case DiffContext::Case::stash:
        return "stash(hash: " + context.hash + ")";
    case DiffContext::Case::commitRange:
        return "commitRange(from: " + context.from + ", to: " + context.to + ")";
    }
    return {};
}

QJsonObject toJson(const DiffContext& context) {
    QJsonObject payload;
    switch (context.kind) {
    case DiffContext::Case::unstaged:
    case DiffContext::Case::staged:
        break;
    case DiffContext::Case::commit:
        payload.insert("hash", text(context.hash));
        if (context.parentIndex)
            payload.insert("parentIndex", *context.parentIndex);
        break;
    case DiffContext::Case::stash:
        payload.insert("hash", text(context.hash));
        break;
    case DiffContext::Case::commitRange:
        payload.insert("from", text(context.from));
        payload.insert("to", text(context.to));
        break;
    }
    return QJsonObject{{QLatin1String(tagOf(context.kind)), payload}};
}

std::optional<DiffContext> diffContextFromJson(const QJsonObject& object) {
    if (object.size() != 1 || !object.begin().value().isObject())
        return std::nullopt;
    const QString tag = object.begin().key();
    const QJsonObject payload = object.begin().value().toObject();
    for (const auto& [kind, name] : tags) {
        if (tag != QLatin1String(name))
            continue;
        switch (kind) {
        case DiffContext::Case::unstaged:
            return DiffContext::unstaged();
        case DiffContext::Case::staged:
            return DiffContext::staged();
        case DiffContext::Case::commit: {
            auto hash = stringField(payload, "hash");
            if (!hash)
                return std::nullopt;
            std::optional<int> parentIndex;
            if (const QJsonValue index = payload.value("parentIndex"); index.isDouble())
                parentIndex = index.toInt();
            else if (!index.isUndefined() && !index.isNull())
                return std::nullopt;
            return DiffContext::commit(std::move(*hash), parentIndex);
        }
        case DiffContext::Case::stash:
            if (auto hash = stringField(payload, "hash"))
                return DiffContext::stash(std::move(*hash));
            return std::nullopt;
        case DiffContext::Case::commitRange: {
            auto from = stringField(payload, "from");
            auto to = stringField(payload, "to");
            if (!from || !to)
                return std::nullopt;
            return DiffContext::commitRange(std::move(*from), std::move(*to));
        }
        }
    }
    return std::nullopt;
}

} // namespace orvel
