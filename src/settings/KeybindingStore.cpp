#include "settings/KeybindingStore.h"

#include "core/support/Log.h"
#include "core/support/UserDefaults.h"
#include "settings/LocalizationManager.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace orvel {

namespace {

const QString storeKey = QStringLiteral("com.orvel.keybindings");

std::optional<KeyBindingID> idNamed(const QString& name) {
    for (KeyBindingID id : allKeyBindingIDs)
        if (rawValue(id) == name)
            return id;
    return std::nullopt;
}

// Every entry of the stored object, each a key and its modifiers; none when any is malformed.
std::optional<std::map<QString, KeyBinding>> decode(const QByteArray& data) {
    const QJsonDocument document = QJsonDocument::fromJson(data);
    if (!document.isObject())
        return std::nullopt;
    std::map<QString, KeyBinding> entries;
    const QJsonObject object = document.object();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const QJsonObject binding = entry.value().toObject();
        const QJsonValue key = binding.value(QStringLiteral("key"));
        const QJsonValue modifiers = binding.value(QStringLiteral("modifiers"));
        if (!key.isString() || !modifiers.isDouble() || modifiers.toDouble() < 0 ||
            modifiers.toDouble() != static_cast<double>(modifiers.toInteger()))
            return std::nullopt;
        entries[entry.key()] = KeyBinding{key.toString(), static_cast<unsigned>(modifiers.toInteger())};
    }
    return entries;
}

} // namespace

QString rawValue(KeyBindingID id) {
    switch (id) {
    case KeyBindingID::searchHistory:
        return QStringLiteral("searchHistory");
    case KeyBindingID::fetch:
        return QStringLiteral("fetch");
    case KeyBindingID::pull:
        return QStringLiteral("pull");
    case KeyBindingID::push:
        return QStringLiteral("push");
    case KeyBindingID::newBranch:
        return QStringLiteral("newBranch");
    case KeyBindingID::newTag:
        return QStringLiteral("newTag");
    case KeyBindingID::stashChanges:
        return QStringLiteral("stashChanges");
    case KeyBindingID::openRepository:
        return QStringLiteral("openRepository");
    }
    return {};
}

QString label(KeyBindingID id) {
    switch (id) {
    case KeyBindingID::searchHistory:
        return localized("Search Git History");
    case KeyBindingID::fetch:
        return localized("Fetch");
    case KeyBindingID::pull:
        return localized("Pull");
    case KeyBindingID::push:
        return localized("Push");
    case KeyBindingID::newBranch:
        return localized("New Branch");
    case KeyBindingID::newTag:
        return localized("New Tag");
    case KeyBindingID::stashChanges:
        return localized("Stash Changes");
    case KeyBindingID::openRepository:
        return localized("Open Repository");
    }
    return {};
}

QString KeyBinding::displayString() const {
    QString shown;
    if (modifiers & control)
        shown += QStringLiteral("⌃");
    if (modifiers & option)
        shown += QStringLiteral("⌥");
    if (modifiers & shift)
        shown += QStringLiteral("⇧");
    if (modifiers & command)
        shown += QStringLiteral("⌘");
    return shown + key.toUpper();
}

QKeySequence KeyBinding::keySequence() const {
    QString portable;
    if (modifiers & control)
        portable += QStringLiteral("Meta+");
    if (modifiers & command)
        portable += QStringLiteral("Ctrl+");
    if (modifiers & option)
        portable += QStringLiteral("Alt+");
    if (modifiers & shift)
        portable += QStringLiteral("Shift+");
    return QKeySequence::fromString(portable + key.toUpper(), QKeySequence::PortableText);
}

std::optional<KeyBinding> KeyBinding::fromKeyPress(int key, Qt::KeyboardModifiers modifiers) {
    const QString name = QKeySequence(key).toString(QKeySequence::PortableText);
    if (name.size() != 1)
        return std::nullopt;
    KeyBinding binding{name.toLower(), 0};
    if (modifiers & Qt::ControlModifier)
        binding.modifiers |= command;
    if (modifiers & Qt::ShiftModifier)
        binding.modifiers |= shift;
    if (modifiers & Qt::AltModifier)
        binding.modifiers |= option;
    if (modifiers & Qt::MetaModifier)
        binding.modifiers |= control;
    return binding;
}

KeybindingStore& KeybindingStore::shared() {
    static KeybindingStore store;
    return store;
}

KeybindingStore::KeybindingStore() {
    for (KeyBindingID id : allKeyBindingIDs)
        bindings_[id] = defaultBinding(id);
}

void KeybindingStore::start(UserDefaults& defaults) {
    defaults_ = &defaults;
    bindings_.clear();
    // Data that can't be read stays stored until the next change overwrites it.
    if (const auto stored = decode(defaults.value(storeKey).toByteArray())) {
        for (const auto& [name, binding] : *stored)
            if (const std::optional<KeyBindingID> id = idNamed(name))
                bindings_[*id] = binding;
    }
    for (KeyBindingID id : allKeyBindingIDs)
        bindings_.try_emplace(id, defaultBinding(id));
    emit bindingsChanged();
}

KeyBinding KeybindingStore::binding(KeyBindingID id) const {
    const auto found = bindings_.find(id);
    return found == bindings_.end() ? defaultBinding(id) : found->second;
}

void KeybindingStore::rebind(KeyBindingID id, const KeyBinding& binding) {
    bindings_[id] = binding;
    persist();
    qCDebug(lcApp, "op=settings.keybinding.rebound bindingId=%s", qPrintable(rawValue(id)));
    emit bindingsChanged();
}

void KeybindingStore::reset(KeyBindingID id) {
    bindings_[id] = defaultBinding(id);
    persist();
    qCDebug(lcApp, "op=settings.keybinding.reset bindingId=%s", qPrintable(rawValue(id)));
    emit bindingsChanged();
}

void KeybindingStore::resetAll() {
    for (KeyBindingID id : allKeyBindingIDs)
        bindings_[id] = defaultBinding(id);
    persist();
    qCDebug(lcApp, "op=settings.keybinding.resetAll count=%ld", static_cast<long>(bindings_.size()));
    emit bindingsChanged();
}

KeyBinding KeybindingStore::defaultBinding(KeyBindingID id) {
    constexpr unsigned commandShift = KeyBinding::command | KeyBinding::shift;
    switch (id) {
    case KeyBindingID::searchHistory:
        return {QStringLiteral("f"), KeyBinding::command};
    case KeyBindingID::fetch:
        return {QStringLiteral("f"), commandShift};
    case KeyBindingID::pull:
        return {QStringLiteral("l"), commandShift};
    case KeyBindingID::push:
        return {QStringLiteral("p"), commandShift};
    case KeyBindingID::newBranch:
        return {QStringLiteral("n"), commandShift};
    case KeyBindingID::newTag:
        return {QStringLiteral("t"), commandShift};
    case KeyBindingID::stashChanges:
        return {QStringLiteral("s"), commandShift};
    case KeyBindingID::openRepository:
        return {QStringLiteral("o"), commandShift};
    }
    return {};
}

void KeybindingStore::persist() {
    if (!defaults_)
        return;
    QJsonObject object;
    for (const auto& [id, binding] : bindings_)
        object.insert(rawValue(id),
                      QJsonObject{{QStringLiteral("key"), binding.key},
                                  {QStringLiteral("modifiers"), static_cast<qint64>(binding.modifiers)}});
    defaults_->setValue(storeKey, QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace orvel
