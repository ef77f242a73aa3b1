#include "core/support/UserDefaults.h"

#include <QSettings>

namespace orvel {

SettingsUserDefaults::SettingsUserDefaults()
    : settings_(std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, "Orvel", "Orvel")) {}

SettingsUserDefaults::~SettingsUserDefaults() = default;

QVariant SettingsUserDefaults::value(const QString& key, const QVariant& defaultValue) const {
    std::lock_guard lock(mutex_);
    return settings_->value(key, defaultValue);
}

void SettingsUserDefaults::setValue(const QString& key, const QVariant& value) {
    std::lock_guard lock(mutex_);
    settings_->setValue(key, value);
}

void SettingsUserDefaults::remove(const QString& key) {
    std::lock_guard lock(mutex_);
    settings_->remove(key);
}

QVariant InMemoryUserDefaults::value(const QString& key, const QVariant& defaultValue) const {
    std::lock_guard lock(mutex_);
    return values_.value(key, defaultValue);
}

void InMemoryUserDefaults::setValue(const QString& key, const QVariant& value) {
    std::lock_guard lock(mutex_);
    values_.insert(key, value);
}

void InMemoryUserDefaults::remove(const QString& key) {
    std::lock_guard lock(mutex_);
    values_.remove(key);
}

} // namespace orvel
