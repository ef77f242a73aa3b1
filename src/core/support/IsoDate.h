// The one reader of git's ISO 8601 dates ("%aI", "iso-strict"): date, time with colons and a zone
// ("Z" or "+hh:mm"), no fractional seconds. Parsers use it for every date they read.
#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace orvel {

using Instant = std::chrono::sys_seconds;

// The stand-in for a date that doesn't read: the first day of year 1.
inline constexpr Instant distantPast{std::chrono::sys_days{std::chrono::year{1} / 1 / 1}};

std::optional<Instant> readIsoDate(std::string_view text);

// Never fails: an unreadable date is the distant past.
inline Instant readIsoDateOrDistantPast(std::string_view text) { return readIsoDate(text).value_or(distantPast); }

} // namespace orvel
