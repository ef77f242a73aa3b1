#include "widgets/OAlert.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace orvel {
namespace {

QMessageBox* openAlert(QWidget& window) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.findChild<QMessageBox*>() != nullptr; }));
    return window.findChild<QMessageBox*>();
}

TEST(OAlertTest, TheSafeButtonAnswersEnterAndEscapeAndOnlyTheActionConfirms) {
    QWidget window;
    window.show();
    const struct {
        const char* what;
        std::function<void(QMessageBox*)> answer;
        bool confirmed;
    } cases[] = {
        {"Escape", [](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Escape); }, false},
        {"Enter", [](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Return); }, false},
        {"the action",
         [](QMessageBox* box) {
             for (QAbstractButton* button : box->buttons())
                 if (box->buttonRole(button) == QMessageBox::DestructiveRole)
                     button->click();
         },
         true},
    };
    for (const auto& c : cases) {
        bool confirmed = false;
        QMessageBox* box =
            confirm(&window, "Delete branch?", "The branch goes.", "Delete", true, [&] { confirmed = true; });
        ASSERT_EQ(openAlert(window), box) << c.what;
        EXPECT_EQ(box->windowModality(), Qt::WindowModal);
        EXPECT_EQ(box->text(), "Delete branch?");
        EXPECT_EQ(box->informativeText(), "The branch goes.");
        c.answer(box);
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.findChild<QMessageBox*>() == nullptr; })) << c.what;
        EXPECT_EQ(confirmed, c.confirmed) << c.what;
    }
}

} // namespace
} // namespace orvel
