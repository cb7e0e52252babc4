// Moments of a working day.
#pragma once

namespace qbrpt::sample {

constexpr int SecondsPerDay = 86400;
constexpr int SecondsPerMinute = 60;
constexpr int Opening = 9 * 3600;      ///< seconds from midnight
constexpr int ShiftChange = 17 * 3600; ///< the evening's supervisor takes over
constexpr int Closing = 25 * 3600;     ///< one in the morning, still the same working day

/// The day number of a second counted from the midnight of day `date`: the double that lies nearest.
[[nodiscard]] constexpr double At(int date, int second) {
    return (static_cast<double>(date) * SecondsPerDay + second) / SecondsPerDay;
}

/// Money is counted in hundredths until it is written, so that every sum is exact.
[[nodiscard]] constexpr double Money(long long cents) {
    return static_cast<double>(cents) / 100.0;
}

} // namespace qbrpt::sample
