#include "settings/GeneralSettingsViewModel.h"

#include "core/support/Log.h"
#include "core/support/UserDefaults.h"
#include "settings/LocalizationManager.h"

namespace orvel {

GeneralSettingsViewModel::GeneralSettingsViewModel(UserDefaults& store, QObject* parent)
    : QObject(parent), store_(store), values_(GeneralSettings::read(store)), original_(values_) {}

void GeneralSettingsViewModel::setValues(const GeneralSettings& values) {
    if (values == values_)
        return;
    const bool appearanceChanges = values.appearance != values_.appearance;
    values_ = values;
    emit valuesChanged();
    if (appearanceChanges) {
        qCDebug(lcApp, "op=settings.appearance.toggled value=%s", qPrintable(values_.appearance));
        emit appearanceChanged(values_.appearance);
    }
}

void GeneralSettingsViewModel::chooseAppearance(const QString& appearance) {
    original_.appearance = appearance;
    store_.setValue(QStringLiteral("appearance"), appearance);
    GeneralSettings values = values_;
    values.appearance = appearance;
    setValues(values);
}

QCoro::Task<void> GeneralSettingsViewModel::load() {
    original_ = GeneralSettings::read(store_);
    setValues(original_);
    co_return;
}

QCoro::Task<void> GeneralSettingsViewModel::apply() {
    announceChanges();
    const bool intervalChanged = values_.autoFetchInterval != original_.autoFetchInterval;
    values_.write(store_);
    original_ = values_;
    if (intervalChanged)
        emit autoFetchIntervalApplied();
    co_return;
}

void GeneralSettingsViewModel::revert() {
    setValues(original_);
}

void GeneralSettingsViewModel::announceChanges() {
    if (values_.appearance != original_.appearance)
        qCDebug(lcApp, "op=settings.appearance.changed value=%s", qPrintable(values_.appearance));
    if (values_.language != original_.language) {
        qCDebug(lcApp, "op=settings.locale.switched lang=%s", qPrintable(values_.language));
        LocalizationManager::shared().switchLanguage(values_.language, store_);
    }
    if (values_.autoFetchInterval != original_.autoFetchInterval)
        qCDebug(lcApp, "op=settings.autoFetch.intervalChanged seconds=%ld",
                static_cast<long>(values_.autoFetchInterval) * 60);
    if (values_.autoPrune != original_.autoPrune)
        qCDebug(lcApp, "op=settings.autoPrune.toggled value=%d", values_.autoPrune ? 1 : 0);
    if (values_.branchSpaceReplacement != original_.branchSpaceReplacement)
        qCDebug(lcApp, "op=settings.branchSpaceReplacement.toggled value=%d",
                values_.branchSpaceReplacement != QLatin1String(" ") ? 1 : 0);
}

} // namespace orvel
