// The redaction of log texts and the persisted settings store.
#include "core/support/Log.h"
#include "core/support/UserDefaults.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>

#include <gtest/gtest.h>

using namespace orvel;

TEST(RedactForLog, TakesOutFileSchemesAndTheHomeDirectory) {
    EXPECT_EQ(redactForLog("fatal: repository 'file:///home/ana/src/x.git' not found", "/home/ana"),
              "fatal: repository '/src/x.git' not found");
    EXPECT_EQ(redactForLog("/home/ana/a and /home/ana/b", "/home/ana"), "/a and /b");
    EXPECT_EQ(redactForLog("nothing to hide", "/home/ana"), "nothing to hide");
    EXPECT_EQ(redactForLog("/usr/bin/git", "/"), "/usr/bin/git");
    const std::string home = qEnvironmentVariable("HOME").toStdString();
    EXPECT_EQ(redactForLog("at " + home + "/repo"), "at /repo");
}

TEST(SettingsUserDefaults, ValuesPersistInTheXdgConfigurationDirectory) {
    {
        SettingsUserDefaults defaults;
        EXPECT_EQ(defaults.string("gitBinaryPath", "fallback"), "fallback");
        defaults.setValue("gitBinaryPath", "/opt/git/bin/git");
    }
    SettingsUserDefaults reopened;
    EXPECT_EQ(reopened.string("gitBinaryPath"), "/opt/git/bin/git");
    const QString file = qEnvironmentVariable("XDG_CONFIG_HOME") + "/Orvel/Orvel.ini";
    EXPECT_TRUE(QFile::exists(file)) << file.toStdString();
    reopened.remove("gitBinaryPath");
    EXPECT_EQ(reopened.string("gitBinaryPath", "gone"), "gone");
}
