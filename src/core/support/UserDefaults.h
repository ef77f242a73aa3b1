// The settings store: plain camel-case keys, each reader naming its own default.
// One implementation persists through QSettings, the other lives in memory for tests.
#pragma once

#include <QString>
#include <QVariant>
#include <QVariantMap>

#include <memory>
#include <mutex>

class QSettings;

namespace orvel {

class UserDefaults {
public:
    virtual ~UserDefaults() = default;
    virtual QVariant value(const QString& key, const QVariant& defaultValue = {}) const = 0;
    virtual void setValue(const QString& key, const QVariant& value) = 0;
    virtual void remove(const QString& key) = 0;

    QString string(const QString& key, const QString& defaultValue = {}) const {
        return value(key, defaultValue).toString();
    }
};

// INI file "Orvel/Orvel.ini" under the XDG configuration directory.
class SettingsUserDefaults final : public UserDefaults {
public:
    SettingsUserDefaults();
    ~SettingsUserDefaults() override;
    QVariant value(const QString& key, const QVariant& defaultValue = {}) const override;
    void setValue(const QString& key, const QVariant& value) override;
    void remove(const QString& key) override;

private:
    mutable std::mutex mutex_;
    std::unique_ptr<QSettings> settings_;
};

class InMemoryUserDefaults final : public UserDefaults {
public:
    QVariant value(const QString& key, const QVariant& defaultValue = {}) const override;
    void setValue(const QString& key, const QVariant& value) override;
    void remove(const QString& key) override;

private:
    mutable std::mutex mutex_;
    QVariantMap values_;
};

} // namespace orvel
