// The General tab of the settings window and the appearance control of the Appearance tab: the
// values being edited beside those last stored. Apply writes all of them and tells the running
// program what changed; Cancel goes back to the stored ones. The appearance shows at once while it
// is edited, so that the user sees it before deciding.
#pragma once

#include "settings/GeneralSettings.h"
#include "settings/SettingsPage.h"

#include <QObject>

namespace orvel {

class UserDefaults;

class GeneralSettingsViewModel final : public QObject, public SettingsPage {
    Q_OBJECT

  public:
    // Reads the store at once.
    explicit GeneralSettingsViewModel(UserDefaults& store, QObject* parent = nullptr);

    const GeneralSettings& values() const { return values_; }
    const GeneralSettings& original() const { return original_; }
    void setValues(const GeneralSettings& values);

    // The View menu's choice: shown and stored at once, outside Apply and Cancel.
    void chooseAppearance(const QString& appearance);

    QCoro::Task<void> load() override;
    QCoro::Task<void> apply() override;
    void revert() override;
    // Writing to the store does not fail.
    QString errorMessage() const override { return {}; }

  signals:
    void valuesChanged();
    // The appearance to show now has changed: edited, chosen, or reverted.
    void appearanceChanged(const QString& appearance);
    // An Apply stored another interval, so that a fetch loop sleeping on the old one starts over.
    void autoFetchIntervalApplied();

  private:
    // Logs each difference from the stored values in the order of the keys, and switches the
    // language when it is one of them.
    void announceChanges();

    UserDefaults& store_;
    GeneralSettings values_;
    GeneralSettings original_;
};

} // namespace orvel
