#include "notices/ToastManager.h"

#include <QTest>

#include <gtest/gtest.h>

namespace orvel {
namespace {

TEST(ToastManagerTest, MergesOnlyTheLastIdenticalToastAndKeepsFiveAtMost) {
    ToastManager toasts;
    toasts.show("Saved", ToastType::notice, 60);
    toasts.show("Saved", ToastType::notice, 60);
    toasts.show("Saved", ToastType::error, 60);
    ASSERT_EQ(toasts.toasts().size(), 2u);
    EXPECT_EQ(toasts.toasts()[0].repeatCount, 1);
    EXPECT_EQ(toasts.toasts()[1].type, ToastType::error);

    for (int index = 0; index < 5; ++index)
        toasts.show(QString::number(index), ToastType::notice, 60);
    ASSERT_EQ(toasts.toasts().size(), 5u);
    EXPECT_EQ(toasts.toasts().front().message, "0");
}

TEST(ToastManagerTest, ExpiresAfterItsDurationAndAPushedOutToastsTimerFindsNothing) {
    ToastManager toasts;
    toasts.show("first", ToastType::notice, 0.05);
    for (int index = 0; index < 5; ++index)
        toasts.show(QString::number(index), ToastType::notice, 0.2);
    EXPECT_EQ(toasts.toasts().size(), 5u);
    QTest::qWait(100);
    EXPECT_EQ(toasts.toasts().size(), 5u);
    EXPECT_TRUE(QTest::qWaitFor([&] { return toasts.toasts().empty(); }, 2000));
}

} // namespace
} // namespace orvel
