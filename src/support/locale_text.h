// Dates and times in the words of a locale.
#pragma once

#include "base/calendar.h"

#include <cstdint>
#include <optional>
#include <string>

namespace qbrpt {

/// A language identifier: the low 16 bits of `nSub` ten bits up, beside the low 16 bits of `nPrimary`.
[[nodiscard]] std::int32_t MakeLangId(std::int32_t nPrimary, std::int32_t nSub);
/// A locale identifier. The sort order is moved down, not up, and so leaves no trace in it.
[[nodiscard]] std::int32_t MakeLcid(std::int32_t nLang, std::int32_t nSort);

/// `dt` taken apart as people read it; nothing outside the years 100 to 9999.
[[nodiscard]] std::optional<Moment> CalendarMoment(double dt);

/// `dt` in the picture `sFormat`; empty text for exactly 0, which is no date, and for a day number
/// outside the calendar, which no formatter knows.
[[nodiscard]] std::string FormatLocaleDate(std::int32_t nLcid, double dt, const std::string& sFormat);

/// What the platform's formatter makes of a day or a time of day; empty text where it refuses.
[[nodiscard]] std::string LocaleDateText(std::int32_t nLcid, std::int16_t nDay, std::int16_t nMonth,
                                         std::int16_t nYear, const std::string& sFormat);
[[nodiscard]] std::string LocaleTimeText(std::int32_t nLcid, std::int16_t nHour, std::int16_t nMinute,
                                         const std::string& sFormat);

} // namespace qbrpt
