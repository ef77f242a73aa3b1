// The General tab's preferences against the program's own settings file: what a fresh install
// shows, values of the wrong kind, Apply storing all ten and switching the language, and Cancel
// dropping every edit while it brings the stored appearance back.
#include "settings/GeneralSettingsViewModel.h"

#include "core/support/UserDefaults.h"
#include "core/support/Version.h"
#include "settings/LocalizationManager.h"
#include "support/Await.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

const QStringList keys = {"appearance",
                          "language",
                          "autoFetchInterval",
                          "autoPrune",
                          "branchSpaceReplacement",
                          "largeFileSizeMB",
                          "largeFileLineCountK",
                          "emptyRepoInitMessage",
                          "emptyRepoInitDesc",
                          "emptyRepoInitFile"};

// The settings file of the test program, emptied of the ten keys.
class GeneralSettingsStore : public ::testing::Test {
  protected:
    GeneralSettingsStore() { clear(); }
    ~GeneralSettingsStore() override { clear(); }
    void clear() {
        for (const QString& key : keys)
            store.remove(key);
    }

    SettingsUserDefaults store;
};

} // namespace

TEST_F(GeneralSettingsStore, FreshStoreShowsTheDefaultsAndKeepsAStoredSizeThePickerLacks) {
    store.setValue("largeFileSizeMB", 7);
    GeneralSettingsViewModel model(store);
    const GeneralSettings& shown = model.values();
    EXPECT_EQ(shown.appearance, "system");
    EXPECT_FALSE(shown.language.isEmpty());
    EXPECT_EQ(shown.autoFetchInterval, 5);
    EXPECT_TRUE(shown.autoPrune);
    EXPECT_EQ(shown.branchSpaceReplacement, "-");
    EXPECT_EQ(shown.largeFileSizeMB, 7);
    EXPECT_EQ(shown.largeFileLineCountK, 15);
    EXPECT_EQ(shown.emptyRepoInitMessage, "Initialization");
    EXPECT_EQ(shown.emptyRepoInitDesc,
              QStringLiteral("Init by Orvel %1 - Git GUI").arg(QLatin1String(orvelVersion)));
    EXPECT_EQ(initialFileName(shown.emptyRepoInitFile), ".gitkeep");

    // Apply with nothing edited writes every key, and the 7 stays 7.
    test::await(model.apply());
    for (const QString& key : keys)
        EXPECT_TRUE(store.value(key).isValid()) << key.toStdString();
    EXPECT_EQ(GeneralSettings::read(SettingsUserDefaults()), shown);
    EXPECT_EQ(SettingsUserDefaults().value("largeFileSizeMB").toInt(), 7);
}

TEST_F(GeneralSettingsStore, ValuesOfTheWrongKindReadAsTheirDefaults) {
    struct Case {
        const char* key;
        QVariant stored;
        std::function<bool(const GeneralSettings&)> holds;
    };
    const Case cases[] = {
        {"autoFetchInterval", "soon", [](const GeneralSettings& s) { return s.autoFetchInterval == 5; }},
        {"autoFetchInterval", "0", [](const GeneralSettings& s) { return s.autoFetchInterval == 0; }},
        {"autoPrune", "false", [](const GeneralSettings& s) { return !s.autoPrune; }},
        {"autoPrune", "maybe", [](const GeneralSettings& s) { return s.autoPrune; }},
        {"largeFileLineCountK", 2.5, [](const GeneralSettings& s) { return s.largeFileLineCountK == 15; }},
        {"emptyRepoInitMessage", QStringList{"a", "b"},
         [](const GeneralSettings& s) { return s.emptyRepoInitMessage == "Initialization"; }},
        {"emptyRepoInitFile", "README.md",
         [](const GeneralSettings& s) { return s.emptyRepoInitFile == EmptyRepoInitFile::readme; }},
        {"emptyRepoInitFile", "gitignore",
         [](const GeneralSettings& s) { return s.emptyRepoInitFile == EmptyRepoInitFile::gitignore; }},
    };
    for (const Case& stored : cases) {
        SCOPED_TRACE(std::string(stored.key) + " = " + stored.stored.toString().toStdString());
        store.setValue(stored.key, stored.stored);
        EXPECT_TRUE(stored.holds(GeneralSettings::read(SettingsUserDefaults())));
        store.remove(stored.key);
    }
}

TEST_F(GeneralSettingsStore, CancelDropsEveryEditAndApplyStoresThemAll) {
    GeneralSettingsViewModel model(store);
    const GeneralSettings stored = model.values();
    QSignalSpy appearances(&model, &GeneralSettingsViewModel::appearanceChanged);
    QSignalSpy intervals(&model, &GeneralSettingsViewModel::autoFetchIntervalApplied);

    GeneralSettings edited;
    edited.appearance = "dark";
    edited.language = "zh-Hans";
    edited.autoFetchInterval = 2;
    edited.autoPrune = false;
    edited.branchSpaceReplacement = "_";
    edited.largeFileSizeMB = 1;
    edited.largeFileLineCountK = 30;
    edited.emptyRepoInitMessage = "--first";
    edited.emptyRepoInitDesc = "line one\nline \"two\"";
    edited.emptyRepoInitFile = EmptyRepoInitFile::gitignore;
    model.setValues(edited);
    ASSERT_EQ(appearances.size(), 1);
    EXPECT_EQ(appearances.takeFirst().at(0).toString(), "dark");

    // Cancel: nothing reached the store, and the stored appearance shows again.
    model.revert();
    EXPECT_EQ(model.values(), stored);
    ASSERT_EQ(appearances.size(), 1);
    EXPECT_EQ(appearances.takeFirst().at(0).toString(), "system");
    for (const QString& key : keys)
        EXPECT_FALSE(store.value(key).isValid()) << key.toStdString();
    EXPECT_EQ(LocalizationManager::shared().currentLanguage(), "en");

    // Apply: stored, and the language switched while the program runs.
    model.setValues(edited);
    test::await(model.apply());
    EXPECT_EQ(GeneralSettings::read(SettingsUserDefaults()), edited);
    EXPECT_EQ(intervals.size(), 1);
    EXPECT_EQ(LocalizationManager::shared().currentLanguage(), "zh-Hans");
    EXPECT_EQ(localized("Cancel"), QString::fromUtf8("取消"));
    // What was applied is what a later Cancel returns to.
    GeneralSettings again = edited;
    again.autoPrune = true;
    model.setValues(again);
    model.revert();
    EXPECT_EQ(model.values(), edited);
    test::await(model.apply());
    EXPECT_EQ(intervals.size(), 1);
    LocalizationManager::shared().switchLanguage("en", store);
}
