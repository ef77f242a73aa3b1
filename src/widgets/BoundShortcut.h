// Gives an action the shortcut of a rebindable command and keeps it current when the user
// records another; menus show it the Linux way ("Ctrl+Shift+F").
#pragma once

#include "settings/KeybindingStore.h"

class QAction;

namespace orvel {

void bindShortcut(QAction& action, KeyBindingID id);

} // namespace orvel
