// Names of days and months, compiled in so that every machine prints the same words.
#pragma once

#include <array>
#include <string_view>

namespace qbrpt {

struct CalendarNames {
    std::array<std::string_view, 12> months;      ///< January first
    std::array<std::string_view, 12> shortMonths; ///< the same as `months` in Arabic
    std::array<std::string_view, 7> days;         ///< Sunday first
    std::array<std::string_view, 7> shortDays;    ///< the same as `days` in Arabic
    std::string_view am;
    std::string_view pm;
};

/// Gregorian names as the Arabic of Qatar prints them (Unicode's ar_QA data); digits are Latin.
[[nodiscard]] const CalendarNames& ArabicNames();
/// English of the United States.
[[nodiscard]] const CalendarNames& EnglishNames();

} // namespace qbrpt
