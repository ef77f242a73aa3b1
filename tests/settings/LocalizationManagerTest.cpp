#include "settings/LocalizationManager.h"

#include "core/support/UserDefaults.h"
#include "support/LogCapture.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QEvent>
#include <QPushButton>
#include <QWidget>

#include <gtest/gtest.h>

namespace orvel {
namespace {

class LanguageChangeCounter : public QWidget {
  public:
    int changes = 0;

  protected:
    void changeEvent(QEvent* event) override {
        if (event->type() == QEvent::LanguageChange)
            ++changes;
        QWidget::changeEvent(event);
    }
};

TEST(LocalizationManagerTest, SwitchesTablesWhileRunningAndFallsBackToEnglish) {
    test::LogCapture log;
    InMemoryUserDefaults defaults;
    LocalizationManager& manager = LocalizationManager::shared();
    LanguageChangeCounter widget;

    manager.switchLanguage("zh-Hans", defaults);
    EXPECT_EQ(localized("Cancel"), QString::fromUtf8("取消"));
    EXPECT_EQ(localized("A text with no translation"), "A text with no translation");
    EXPECT_EQ(localized("Could not read %1: %2", "a.json", 2), QString::fromUtf8("无法读取 a.json：2"));
    EXPECT_EQ(localized("Deleted %1 of %2", 1, QStringLiteral("%2")), "Deleted 1 of %2");
    EXPECT_EQ(defaults.string("appLanguage"), "zh-Hans");
    QCoreApplication::sendPostedEvents();
    EXPECT_GT(widget.changes, 0);
    // Qt's own widgets take their texts from Qt's table of the same language.
    EXPECT_EQ(QDialogButtonBox(QDialogButtonBox::Cancel).button(QDialogButtonBox::Cancel)->text(),
              QString::fromUtf8("取消"));

    manager.switchLanguage("xx", defaults);
    EXPECT_TRUE(log.contains("op=locale.loadFailed lang=xx"));
    EXPECT_EQ(manager.currentLanguage(), "xx");
    EXPECT_EQ(localized("Cancel"), "Cancel");

    defaults.setValue("appLanguage", "zh-Hans");
    manager.start(defaults);
    EXPECT_EQ(localized("Cancel"), QString::fromUtf8("取消"));
    manager.switchLanguage("en", defaults);
    EXPECT_EQ(localized("Cancel"), "Cancel");
}

} // namespace
} // namespace orvel
