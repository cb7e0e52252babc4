// A date picker's custom format, taken apart into what is edited one by one.
#pragma once

#include "base/calendar.h"

#include <QtCore/QString>

#include <cstdint>
#include <string_view>
#include <vector>

namespace qbrpt::qt {

enum class DatePart : std::uint8_t { Words, Day, Month, Year, Hour, Minute, Second, HalfDay };

/// A run of one letter of the format, or the words between two of them. Letters count wherever they stand: a
/// month in the time part is the month.
struct DateSection {
    DatePart part = DatePart::Words;
    QString picture; ///< "dd"; of words, the words themselves
};

struct PartRange {
    int lowest = 0;
    int highest = 0;
    int digits = 2; ///< that can be typed
};

[[nodiscard]] std::vector<DateSection> SectionsOf(std::string_view format);
/// What a section shows of a moment: Arabic names, Latin digits.
[[nodiscard]] QString ShownPart(const DateSection& section, const Moment& moment);

/// The numbers that a part can have at that moment.
[[nodiscard]] PartRange RangeOf(const DateSection& section, const Moment& moment);
[[nodiscard]] int NumberOf(const DateSection& section, const Moment& moment);
/// The moment with another number; the day stays inside its month.
[[nodiscard]] Moment WithNumber(const DateSection& section, Moment moment, int number);
/// One up or down; behind the last comes the first.
[[nodiscard]] Moment Stepped(const DateSection& section, const Moment& moment, int step);

[[nodiscard]] int DaysIn(int year, int month);
/// "مارس 2025"
[[nodiscard]] QString MonthTitle(int year, int month);

} // namespace qbrpt::qt
