#include "widgets/OAlert.h"

#include "support/Screenshot.h"

#include <QApplication>
#include <QLabel>
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
        QMessageBox* box = confirm(&window, "Delete branch?",
                                   "<b>topic</b> goes, with the commits no other branch holds. You can bring "
                                   "it back with Edit > Undo.",
                                   "Delete", true, [&] { confirmed = true; });
        ASSERT_EQ(openAlert(window), box) << c.what;
        EXPECT_EQ(box->windowModality(), Qt::WindowModal);
        EXPECT_EQ(box->text(), "Delete branch?");
        const auto* message = box->findChild<QLabel*>("qt_msgbox_informativelabel");
        ASSERT_NE(message, nullptr);
        EXPECT_EQ(message->textFormat(), Qt::PlainText) << "a branch name is not markup";
        // A short title does not squeeze the message into a narrow column.
        EXPECT_GE(box->sizeHint().width(), message->fontMetrics().averageCharWidth() * 40);
        test::saveScreenshot(*box, "confirm-alert", box->sizeHint());
        c.answer(box);
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.findChild<QMessageBox*>() == nullptr; })) << c.what;
        EXPECT_EQ(confirmed, c.confirmed) << c.what;
    }
}

} // namespace
} // namespace orvel
