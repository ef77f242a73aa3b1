#include "widgets/BoundShortcut.h"

#include <QAction>

namespace orvel {

void bindShortcut(QAction& action, KeyBindingID id) {
    KeybindingStore& store = KeybindingStore::shared();
    action.setShortcut(store.binding(id).keySequence());
    QObject::connect(&store, &KeybindingStore::bindingsChanged, &action, [&action, id] {
        action.setShortcut(KeybindingStore::shared().binding(id).keySequence());
    });
}

} // namespace orvel
