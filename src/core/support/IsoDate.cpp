#include "core/support/IsoDate.h"

#include <charconv>

namespace orvel {

namespace {

// Reads exactly `digits` decimal digits at `at`.
bool readNumber(std::string_view text, std::size_t at, std::size_t digits, int& value) {
    if (at + digits > text.size())
        return false;
    for (std::size_t i = at; i < at + digits; ++i) {
        if (text[i] < '0' || text[i] > '9')
            return false;
    }
    std::from_chars(text.data() + at, text.data() + at + digits, value);
    return true;
}

} // namespace

std::optional<Instant> readIsoDate(std::string_view text) {
    // 2026-01-01T12:00:00+01:00 or 2026-01-01T12:00:00Z
    int year, month, day, hour, minute, second;
    if (text.size() < 20 || text[4] != '-' || text[7] != '-' || text[10] != 'T' || text[13] != ':' || text[16] != ':')
        return std::nullopt;
    if (!readNumber(text, 0, 4, year) || !readNumber(text, 5, 2, month) || !readNumber(text, 8, 2, day) ||
        !readNumber(text, 11, 2, hour) || !readNumber(text, 14, 2, minute) || !readNumber(text, 17, 2, second))
        return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year{year}, std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    if (!date.ok() || hour > 23 || minute > 59 || second > 60)
        return std::nullopt;

    const std::string_view zone = text.substr(19);
    int offsetMinutes = 0;
    if (zone == "Z") {
        offsetMinutes = 0;
    } else {
        int zoneHours, zoneMinutes;
        if (zone.size() != 6 || (zone[0] != '+' && zone[0] != '-') || zone[3] != ':' ||
            !readNumber(zone, 1, 2, zoneHours) || !readNumber(zone, 4, 2, zoneMinutes) || zoneMinutes > 59)
            return std::nullopt;
        offsetMinutes = (zone[0] == '-' ? -1 : 1) * (zoneHours * 60 + zoneMinutes);
    }
    using namespace std::chrono;
    return sys_days(date) + hours(hour) + minutes(minute) + seconds(second) - minutes(offsetMinutes);
}

} // namespace orvel
