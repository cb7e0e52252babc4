#include "support/calendar_rules.h"

#include "base/failure.h"
#include "base/numbers.h"

#include <array>

namespace qbrpt {

namespace {

constexpr std::array<std::int16_t, 13> CumulativeDays = {0,   31,  59,  90,  120, 151, 181,
                                                         212, 243, 273, 304, 334, 365};
constexpr std::int16_t February = 2;

} // namespace

std::int32_t DayNumber(double dt) {
    const std::int32_t rounded = RoundToLong(dt);
    return rounded > dt ? CheckedLong(std::int64_t{rounded} - 1) : rounded;
}

bool IsLeapYear(std::int16_t nYear) {
    return nYear % 400 == 0 || (nYear % 4 == 0 && nYear % 100 != 0);
}

std::int16_t DaysInMonth(std::int16_t nMonth, std::int16_t nYear) {
    if (nMonth == 0) return 0;
    const int days = DaysBeforeMonth(nMonth) - DaysBeforeMonth(static_cast<std::int16_t>(nMonth - 1));
    return static_cast<std::int16_t>(nMonth == February && IsLeapYear(nYear) ? days + 1 : days);
}

std::int16_t DaysBeforeMonth(std::int16_t nMonth) {
    if (nMonth < 0 || nMonth > 12)
        throw Failure(FailureNumber::InvalidArgument, "There is no month " + DecimalText(nMonth) + ".");
    return CumulativeDays[static_cast<std::size_t>(nMonth)];
}

} // namespace qbrpt
