#include "settings/ui/AppearanceSettingsTab.h"

#include "settings/AppearanceSettingsPage.h"
#include "settings/LocalizationManager.h"
#include "settings/ThemeFixture.h"
#include "support/Await.h"
#include "support/Screenshot.h"
#include "widgets/OInlineMessage.h"
#include "widgets/TokenPalette.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <filesystem>

namespace orvel {
namespace {

using AppearanceSettingsTabTest = ThemeEngineFixture;

template <typename Widget>
Widget* child(QWidget& parent, const char* name) {
    Widget* found = nullptr;
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return (found = parent.findChild<Widget*>(QLatin1String(name))) != nullptr; }));
    return found;
}

void clickRow(QListView* list, const QString& id) {
    const QModelIndexList rows = list->model()->match(list->model()->index(0, 0), Qt::UserRole + 1, id);
    ASSERT_EQ(rows.size(), 1) << id.toStdString();
    list->scrollTo(rows.front());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(rows.front()).center());
}

void importThroughTheDialog(AppearanceSettingsTab& tab, const std::string& file) {
    tab.findChild<QPushButton*>("settings.appearance.import-theme")->click();
    auto* dialog = child<QFileDialog>(tab, "settings.appearance.import-dialog");
    ASSERT_TRUE(dialog);
    dialog->selectFile(QString::fromStdString(file));
    QMetaObject::invokeMethod(dialog, "accept");
}

TEST_F(AppearanceSettingsTabTest, PreviewsChoicesImportsAndRemovesThemeFilesAndFollowsCancel) {
    AppearanceSettingsPage page(engine);
    test::await(page.load());
    AppearanceSettingsTab tab(page);
    tab.addTopRow(new QLabel(QStringLiteral("Appearance: System")));
    tab.resize(860, 580);
    tab.show();
    auto* catalogue = tab.findChild<QListView*>("settings.appearance.theme-picker");
    auto* files = tab.findChild<QListView*>("settings.appearance.theme-files");
    auto* noCustomThemes = tab.findChild<QLabel*>("settings.appearance.no-custom-themes");
    auto* remove = tab.findChild<QPushButton*>("settings.appearance.remove-theme");
    auto* sizePicker = tab.findChild<QComboBox*>("settings.appearance.font-size-picker");
    auto* error = tab.findChild<OInlineMessage*>("settings.appearance.error");
    EXPECT_EQ(catalogue->model()->rowCount(), 23);
    EXPECT_EQ(catalogue->currentIndex().data().toString(), "Dala");
    EXPECT_TRUE(noCustomThemes->isVisible());
    EXPECT_EQ(noCustomThemes->text(), "No custom themes installed.");
    EXPECT_FALSE(remove->isVisible());
    EXPECT_EQ(sizePicker->currentText(), "+0");

    clickRow(catalogue, "neo-almaty");
    clickRow(files, "orvel-day");
    sizePicker->setFocus();
    QTest::keyClick(sizePicker, Qt::Key_Down);
    EXPECT_EQ(engine.activeCatalogueID(), "neo-almaty");
    EXPECT_EQ(engine.currentTheme().id, "orvel-day");
    EXPECT_EQ(engine.fontSizeOffset(), 1);
    EXPECT_EQ(sizePicker->currentText(), "+1");
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        QApplication::setPalette(tokenPalette(engine.tokens(scheme)));
        QApplication::processEvents();
        test::saveScreenshot(
            tab, scheme == ColorScheme::dark ? "settings-appearance-dark" : "settings-appearance-light",
            tab.size());
    }
    QApplication::setPalette(QPalette());

    // A file that isn't a theme is refused in words; a theme file joins the list and can go again.
    test::writeFile(work / "broken.json", "{\"id\": \"broken\"}");
    importThroughTheDialog(tab, work / "broken.json");
    EXPECT_TRUE(QTest::qWaitFor([&] { return error->isVisible(); }));
    EXPECT_TRUE(error->text().contains("name")) << error->text().toStdString();
    importThroughTheDialog(tab, writeTheme("custom", "Custom"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return files->model()->rowCount() == 4; }));
    EXPECT_FALSE(error->isVisible());
    EXPECT_FALSE(noCustomThemes->isVisible());
    clickRow(files, "custom");
    EXPECT_EQ(engine.currentTheme().id, "custom");
    ASSERT_TRUE(remove->isVisible());
    EXPECT_EQ(remove->text(), "Remove theme Custom");
    // The tab follows a switch of language while it is open.
    LocalizationManager::shared().switchLanguage("zh-Hans", defaults);
    EXPECT_TRUE(QTest::qWaitFor([&] { return remove->text() == QString::fromUtf8("移除主题 Custom"); }));
    EXPECT_EQ(noCustomThemes->text(), QString::fromUtf8("尚未安装自定义主题。"));
    EXPECT_EQ(catalogue->model()->index(0, 0).data(Qt::ToolTipRole).toString(),
              QString::fromUtf8("石油青、拉丝金、细线纹饰——草原"));
    test::saveScreenshot(tab, "settings-appearance-zh-Hans", tab.size());
    remove->click();
    auto* box = child<QMessageBox>(tab, "");
    ASSERT_TRUE(box);
    EXPECT_EQ(box->buttons().size(), 2);
    for (QAbstractButton* button : box->buttons())
        if (box->buttonRole(button) == QMessageBox::DestructiveRole)
            button->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return files->model()->rowCount() == 3; }));
    LocalizationManager::shared().switchLanguage("en", defaults);
    EXPECT_FALSE(std::filesystem::exists(externalFile("custom")));
    EXPECT_TRUE(noCustomThemes->isVisible());
    EXPECT_FALSE(remove->isVisible());

    // Cancel: the tab shows what the engine went back to.
    page.revert();
    EXPECT_EQ(catalogue->currentIndex().data().toString(), "Dala");
    EXPECT_EQ(files->currentIndex().data(Qt::UserRole + 1).toString(), "orvel");
    EXPECT_EQ(sizePicker->currentText(), "+0");
}

} // namespace
} // namespace orvel
