// The keyboard shortcuts of the eight commands the user can rebind: the current binding of each,
// the defaults, and the user's choices, stored as JSON under "com.orvel.keybindings". Bindings
// keep the stored form of the modifier bits (shift 2, control 4, option 8, command 16); here
// command is Ctrl, option Alt and control Meta.
#pragma once

#include <QKeySequence>
#include <QObject>
#include <QString>

#include <array>
#include <map>
#include <optional>

namespace orvel {

class UserDefaults;

enum class KeyBindingID { searchHistory, fetch, pull, push, newBranch, newTag, stashChanges, openRepository };

inline constexpr std::array allKeyBindingIDs = {KeyBindingID::searchHistory, KeyBindingID::fetch,
                                                KeyBindingID::pull,          KeyBindingID::push,
                                                KeyBindingID::newBranch,     KeyBindingID::newTag,
                                                KeyBindingID::stashChanges,  KeyBindingID::openRepository};

// The stored name of `id` ("searchHistory", "fetch", ...).
QString rawValue(KeyBindingID id);
// The label the settings show ("Search Git History", "Fetch", ...), localised.
QString label(KeyBindingID id);

struct KeyBinding {
    static constexpr unsigned shift = 2;
    static constexpr unsigned control = 4;
    static constexpr unsigned option = 8;
    static constexpr unsigned command = 16;

    QString key; // one lower-case character
    unsigned modifiers = 0;

    bool operator==(const KeyBinding&) const = default;

    // "⌃⌥⇧⌘K": the marks in that order whatever order the keys were pressed in.
    QString displayString() const;
    // The shortcut of the menus (shown the Linux way, "Ctrl+Shift+F").
    QKeySequence keySequence() const;
    // The binding a key press makes, or none for a key that can't be bound (a modifier alone, a
    // function key).
    static std::optional<KeyBinding> fromKeyPress(int key, Qt::KeyboardModifiers modifiers);
};

class KeybindingStore final : public QObject {
    Q_OBJECT

  public:
    static KeybindingStore& shared();

    // The defaults, persisted nowhere until start().
    KeybindingStore();
    // Reads the stored bindings; ids missing there, or data that isn't readable, get their default.
    void start(UserDefaults& defaults);

    KeyBinding binding(KeyBindingID id) const;
    void rebind(KeyBindingID id, const KeyBinding& binding);
    void reset(KeyBindingID id);
    void resetAll();

    static KeyBinding defaultBinding(KeyBindingID id);

  signals:
    void bindingsChanged();

  private:
    void persist();

    UserDefaults* defaults_ = nullptr;
    std::map<KeyBindingID, KeyBinding> bindings_;
};

} // namespace orvel
