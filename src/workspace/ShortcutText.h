// The text a menu shows for a shortcut, named by the keys the user presses.
#pragma once

#include <QKeySequence>
#include <QString>

namespace orvel {

// The shortcut the Linux way ("Ctrl+Shift+Tab", "Ctrl+PgUp"). Qt names the key that Shift+Tab
// sends "Backtab", a name no key bears: it reads as Shift and Tab here.
QString shortcutText(const QKeySequence& sequence);

} // namespace orvel
