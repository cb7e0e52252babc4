#include "support/locale_text.h"

#include "base/failure.h"
#include "platform/locale.h"
#include "platform/platform.h"
#include "support/words.h"

namespace qbrpt {

namespace {

constexpr std::uint32_t LowHalf = 0xFFFFU;

/// Asks for the length, then for the text. `format` takes a buffer and its size.
template <class Formatter>
std::string AskTwice(const Formatter& format) {
    const int length = format(nullptr, 0);
    if (length <= 0) return {};
    std::string buffer(static_cast<std::size_t>(length), '\0');
    if (format(buffer.data(), length) == 0) return {};
    return TrimAtNul(buffer);
}

} // namespace

std::int32_t MakeLangId(std::int32_t nPrimary, std::int32_t nSub) {
    const std::uint32_t sub = static_cast<std::uint32_t>(nSub) & LowHalf;
    return static_cast<std::int32_t>((sub << 10U) | (static_cast<std::uint32_t>(nPrimary) & LowHalf));
}

std::int32_t MakeLcid(std::int32_t nLang, std::int32_t nSort) {
    const std::uint32_t sort = static_cast<std::uint32_t>(nSort) & LowHalf;
    return static_cast<std::int32_t>((sort >> 16U) | static_cast<std::uint32_t>(nLang));
}

std::optional<Moment> CalendarMoment(double dt) {
    try {
        return MomentToTheSecond(dt);
    } catch (const Failure&) {
        return std::nullopt;
    }
}

std::string FormatLocaleDate(std::int32_t nLcid, double dt, const std::string& sFormat) {
    if (dt == 0) return {};
    const std::optional<Moment> moment = CalendarMoment(dt);
    if (!moment) return {};
    return LocaleDateText(nLcid, static_cast<std::int16_t>(moment->day),
                          static_cast<std::int16_t>(moment->month), static_cast<std::int16_t>(moment->year),
                          sFormat);
}

std::string LocaleDateText(std::int32_t nLcid, std::int16_t nDay, std::int16_t nMonth, std::int16_t nYear,
                           const std::string& sFormat) {
    Locale& locale = *Platform::Current().locale;
    const LocaleDate date{nDay, nMonth, nYear};
    return AskTwice(
        [&](char* buffer, int size) { return locale.GetDateFormat(nLcid, 0, date, sFormat, buffer, size); });
}

std::string LocaleTimeText(std::int32_t nLcid, std::int16_t nHour, std::int16_t nMinute,
                           const std::string& sFormat) {
    Locale& locale = *Platform::Current().locale;
    const LocaleTime time{nHour, nMinute};
    return AskTwice(
        [&](char* buffer, int size) { return locale.GetTimeFormat(nLcid, 0, time, sFormat, buffer, size); });
}

} // namespace qbrpt
