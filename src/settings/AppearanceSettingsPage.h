// The Appearance tab's part in the settings window's one Apply and one Cancel. Choices on the tab
// go to the theme engine at once, so the running window previews them; opening the window takes
// the engine's snapshot, Apply commits the preview and Cancel throws it away. Importing and
// removing theme files act at once too: they change the themes folder, not a preview.
#pragma once

#include "settings/SettingsPage.h"

#include <QObject>
#include <QString>

namespace orvel {

class ThemeEngine;

class AppearanceSettingsPage final : public QObject, public SettingsPage {
    Q_OBJECT

  public:
    explicit AppearanceSettingsPage(ThemeEngine& engine, QObject* parent = nullptr);

    ThemeEngine& engine() const { return engine_; }

    QCoro::Task<void> load() override;
    QCoro::Task<void> apply() override;
    void revert() override;
    // The description of the last failed import or removal; a later success clears it.
    QString errorMessage() const override { return errorMessage_; }

    // Answer whether the theme folder changed; a failure becomes errorMessage(). The file work
    // runs off the GUI thread.
    QCoro::Task<bool> importTheme(QString filePath);
    QCoro::Task<bool> removeTheme(QString id);

  signals:
    void errorMessageChanged();

  private:
    void setErrorMessage(const QString& message);

    ThemeEngine& engine_;
    QString errorMessage_;
};

} // namespace orvel
