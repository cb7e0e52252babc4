#include "day_numbers.h"

#include <cmath>

namespace cafe {

namespace {

constexpr double MillisecondsOfADay = 86'400'000.0;
constexpr int MillisecondsOfAMinute = 60'000;

QDate DayZero() {
    return {1899, 12, 30};
}

} // namespace

double DayNumberOf(const QDate& day, const QTime& time) {
    const auto days = static_cast<double>(DayZero().daysTo(day));
    const double fraction = time.msecsSinceStartOfDay() / MillisecondsOfADay;
    // The time of day counts forward on both sides of day zero.
    return days < 0 ? days - fraction : days + fraction;
}

QDateTime MomentOf(double dayNumber) {
    if (dayNumber < FirstDayNumber || dayNumber > LastDayNumber) return {};
    const double days = std::trunc(dayNumber);
    const double minutes =
        std::round(std::abs(dayNumber - days) * MillisecondsOfADay / MillisecondsOfAMinute);
    // Without a time zone: every minute is there, also those that a clock change leaves out.
    return QDateTime(DayZero().addDays(static_cast<qint64>(days)), QTime(0, 0), Qt::UTC)
        .addMSecs(static_cast<qint64>(minutes) * MillisecondsOfAMinute);
}

} // namespace cafe
