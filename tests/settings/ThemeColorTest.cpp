#include "settings/ThemeColor.h"

#include <gtest/gtest.h>

namespace orvel {
namespace {

TEST(ThemeColorTest, ParsesSixAndEightDigitsAndRendersAnythingElseGray) {
    const QColor gray(128, 128, 128);
    const struct {
        const char* text;
        QColor expected;
    } cases[] = {
        {"#FF0000", QColor(255, 0, 0)},
        {"##FF0000", QColor(255, 0, 0)},
        {"#FF0000AA", QColor(255, 0, 0, 170)},
        {"34C759", QColor(0x34, 0xC7, 0x59)},
        {"#abc", gray},
        {"#GGGGGG", gray},
        {"", gray},
    };
    for (const auto& c : cases)
        EXPECT_EQ(parseThemeColor(QString::fromLatin1(c.text)), c.expected) << c.text;
}

} // namespace
} // namespace orvel
