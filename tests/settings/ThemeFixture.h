// The theme engine over a private data folder, where imported themes go, and a store in memory;
// and theme files made from the shipped one, changed where a test needs it.
#pragma once

#include "settings/ThemeEngine.h"

#include "core/support/UserDefaults.h"
#include "support/GitFixture.h"
#include "support/ScopedEnvironment.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <gtest/gtest.h>

#include <functional>

namespace orvel {

inline QJsonObject builtInThemeJSON() {
    QFile file(QStringLiteral(":/Themes/orvel.theme.json"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QJsonDocument::fromJson(file.readAll()).object();
}

inline QByteArray bytesOf(const QJsonObject& object) {
    return QJsonDocument(object).toJson();
}

// Changes one value at a dotted path of a JSON object; a null value removes the key.
inline void edit(QJsonObject& object, const QStringList& path, const QJsonValue& value) {
    if (path.size() == 1) {
        if (value.isNull())
            object.remove(path.front());
        else
            object.insert(path.front(), value);
        return;
    }
    QJsonObject child = object.value(path.front()).toObject();
    edit(child, path.mid(1), value);
    object.insert(path.front(), child);
}

class ThemeEngineFixture : public ::testing::Test {
  protected:
    void SetUp() override { engine.start(defaults); }
    // The engine outlives the test: it must not keep this test's store.
    void TearDown() override {
        static InMemoryUserDefaults untouched;
        engine.start(untouched);
    }

    std::string externalFile(const QString& id) const {
        return (engine.externalThemesDirectory() + "/" + id + ".theme.json").toStdString();
    }
    // A theme file in the test's folder, built from the shipped one and named after `name`.
    std::string writeTheme(const QString& id, const QString& name,
                           const std::function<void(QJsonObject&)>& change = {}) const {
        QJsonObject json = builtInThemeJSON();
        json.insert("id", id);
        json.insert("name", name);
        if (change)
            change(json);
        const std::string path = work / (name.toStdString() + ".json");
        test::writeFile(path, bytesOf(json).toStdString());
        return path;
    }

    test::TempDir dataHome;
    test::TempDir work;
    test::ScopedEnvironment xdgDataHome{"XDG_DATA_HOME", dataHome.path()};
    InMemoryUserDefaults defaults;
    ThemeEngine& engine = ThemeEngine::shared();
};

} // namespace orvel
