// One tab of the settings window that takes part in its one Apply and one Cancel. The window loads
// every page when it opens, applies them in its own fixed order when the user presses Apply (each
// waits for the one before), and reverts them all on Cancel or when it closes by other means.
#pragma once

#include <QString>

#include <QCoro/QCoroTask>

namespace orvel {

class SettingsPage {
  public:
    virtual ~SettingsPage() = default;

    // Reads what is stored, so that the tab shows it; runs each time the window opens.
    virtual QCoro::Task<void> load() = 0;
    // Writes what the user changed on the tab. A failure does not throw: it becomes
    // errorMessage(), which the window reports while it stays open.
    virtual QCoro::Task<void> apply() = 0;
    // Drops what the user changed since the last load or apply.
    virtual void revert() = 0;
    // The last load's or apply's failure, for the user; empty when it succeeded.
    virtual QString errorMessage() const = 0;
};

} // namespace orvel
