#include "core/support/IsoDate.h"

#include <gtest/gtest.h>

using namespace orvel;
using namespace std::chrono;

TEST(IsoDate, ReadsGitStrictDatesWithTheirZones) {
    const Instant noon = sys_days{2026y / January / 1} + hours(12);
    EXPECT_EQ(readIsoDate("2026-01-01T12:00:00Z"), noon);
    EXPECT_EQ(readIsoDate("2026-01-01T12:00:00+00:00"), noon);
    EXPECT_EQ(readIsoDate("2026-01-01T13:30:00+01:30"), noon);
    EXPECT_EQ(readIsoDate("2026-01-01T07:00:00-05:00"), noon);
}

TEST(IsoDate, UnreadableDatesBecomeTheDistantPast) {
    for (const char* text : {"", "2026-01-01", "2026-01-01 12:00:00 +0000", "2026-13-01T12:00:00Z",
                             "2026-01-01T12:00:00.123Z", "2026-01-01T12:00:00+0100", "yyyy-01-01T12:00:00Z"}) {
        EXPECT_EQ(readIsoDate(text), std::nullopt) << text;
        EXPECT_EQ(readIsoDateOrDistantPast(text), distantPast) << text;
    }
    EXPECT_EQ(year_month_day(floor<days>(distantPast)).year(), year{1});
}
