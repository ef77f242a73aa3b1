// The rebindable shortcuts: what stored data gives at start, and a shortcut recorded on the
// settings page that the menu takes at once and a later start reads back.
#include "settings/KeybindingStore.h"

#include "RemoteFixture.h"
#include "support/Screenshot.h"
#include "workspace/ui/KeyboardSettingsTab.h"
#include "workspace/ui/MainWindow.h"
#include "workspace/ui/SettingsDialog.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace orvel;

namespace {

const QString storeKey = QStringLiteral("com.orvel.keybindings");

struct StoredCase {
    const char* title;
    QVariant stored;
    KeyBinding push;
    KeyBinding pull;
};

} // namespace

TEST(KeyBindings, StoredDataKeepsTheUsersChoicesAndFallsBackToDefaults) {
    const KeyBinding pushDefault{"p", KeyBinding::command | KeyBinding::shift};
    const KeyBinding pullDefault{"l", KeyBinding::command | KeyBinding::shift};
    const KeyBinding mine{"k", KeyBinding::option};
    const StoredCase cases[] = {
        {"nothing stored", QVariant(), pushDefault, pullDefault},
        {"only push", QByteArray(R"({"push":{"key":"k","modifiers":8}})"), mine, pullDefault},
        {"an unknown command",
         QByteArray(R"({"archive":{"key":"a","modifiers":16},"push":{"key":"k","modifiers":8}})"), mine,
         pullDefault},
        {"not JSON", QByteArray("\x01garbage"), pushDefault, pullDefault},
        {"a malformed entry", QByteArray(R"({"push":{"key":"k","modifiers":-1}})"), pushDefault, pullDefault},
    };
    for (const StoredCase& stored : cases) {
        SCOPED_TRACE(stored.title);
        InMemoryUserDefaults defaults;
        if (stored.stored.isValid())
            defaults.setValue(storeKey, stored.stored);
        KeybindingStore store;
        store.start(defaults);
        EXPECT_EQ(store.binding(KeyBindingID::push), stored.push);
        EXPECT_EQ(store.binding(KeyBindingID::pull), stored.pull);
        EXPECT_EQ(store.binding(KeyBindingID::searchHistory), (KeyBinding{"f", KeyBinding::command}));
        // Reading never writes.
        EXPECT_EQ(defaults.value(storeKey), stored.stored);
    }
    const KeyBinding all{"k",
                         KeyBinding::command | KeyBinding::shift | KeyBinding::option | KeyBinding::control};
    EXPECT_EQ(all.displayString(), "⌃⌥⇧⌘K");
    EXPECT_EQ(all.keySequence(), QKeySequence(Qt::META | Qt::CTRL | Qt::ALT | Qt::SHIFT | Qt::Key_K));
}

class Rebinding : public test::RemoteFixture {
  protected:
    Rebinding() { KeybindingStore::shared().start(defaults); }
    ~Rebinding() override { KeybindingStore::shared().resetAll(); }
};

TEST_F(Rebinding, RecordedShortcutReachesTheMenuAndPersists) {
    MainWindow window(model, defaults);
    window.show();
    openLocal();
    auto& fetch = *window.findChild<QAction*>("menu.fetch");
    EXPECT_EQ(fetch.shortcut().toString(QKeySequence::NativeText), "Ctrl+Shift+F");

    SettingsDialog settings(model.toastManager(), window.generalSettings(), &window);
    settings.show();
    auto& record = *settings.findChild<QPushButton*>("keybinding.row.fetch.record");
    auto& display = *settings.findChild<QLabel*>("keybinding.row.fetch.display");
    // Escape ends the recording and binds nothing, whatever is held with it.
    record.click();
    EXPECT_EQ(display.text(), "Press keys…");
    QTest::keyClick(&record, Qt::Key_Escape, Qt::ControlModifier);
    EXPECT_FALSE(settings.keyboard().recordingID());
    EXPECT_EQ(display.text(), "Ctrl+Shift+F");

    // The recorded keys (the pull's own, on purpose) bind and do not run the pull.
    record.click();
    QTest::keyClick(&record, Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(display.text(), "Ctrl+Shift+L");
    EXPECT_EQ(fetch.shortcut().toString(QKeySequence::NativeText), "Ctrl+Shift+L");
    EXPECT_FALSE(model.activityMessage());
    EXPECT_TRUE(shown.isEmpty());
    test::saveScreenshot(settings, "settings-keyboard", QSize(560, 420));

    KeybindingStore restarted;
    restarted.start(defaults);
    EXPECT_EQ(restarted.binding(KeyBindingID::fetch),
              (KeyBinding{"l", KeyBinding::command | KeyBinding::shift}));
    EXPECT_EQ(restarted.binding(KeyBindingID::pull),
              (KeyBinding{"l", KeyBinding::command | KeyBinding::shift}));

    settings.findChild<QPushButton*>("keybinding.row.fetch.reset")->click();
    EXPECT_EQ(fetch.shortcut().toString(QKeySequence::NativeText), "Ctrl+Shift+F");
}
