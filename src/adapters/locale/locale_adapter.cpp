#include "adapters/locale/locale_adapter.h"

#include "adapters/locale/picture_walk.h"
#include "base/calendar.h"
#include "base/calendar_names.h"
#include "base/utf8.h"

#include <algorithm>
#include <climits>
#include <memory>
#include <string_view>

namespace qbrpt {

namespace {

struct LocaleWords {
    const CalendarNames& names;
    std::string_view era;
};

const LocaleWords* WordsOf(std::int32_t locale) {
    static const LocaleWords arabic = {ArabicNames(), "م"};
    static const LocaleWords english = {EnglishNames(), "A.D."};
    if (locale == LocaleArabicQatar) return &arabic;
    if (locale == LocaleEnglishUs) return &english;
    return nullptr;
}

std::string Padded(int number, std::size_t width) {
    std::string digits = std::to_string(number);
    return std::string(width > digits.size() ? width - digits.size() : 0, '0') + digits;
}

// One digit or two, as the run is long.
std::string ShortNumber(int number, std::size_t run) {
    return Padded(number, std::min<std::size_t>(run, 2));
}

bool IsCalendarDay(const LocaleDate& date) {
    if (date.year < 100 || date.year > 9999 || date.month < 1 || date.month > 12 || date.day < 1 ||
        date.day > 31)
        return false;
    const Moment moment = MomentOf(static_cast<double>(DaysFromCivil(date.year, date.month, date.day)));
    return moment.month == date.month; // 30 February would have become a day of March
}

std::string DateElement(const LocaleWords& words, const LocaleDate& date, char letter, std::size_t run) {
    const CalendarNames& names = words.names;
    const auto month = static_cast<std::size_t>(date.month - 1);
    switch (letter) {
    case 'd': {
        if (run <= 2) return ShortNumber(date.day, run);
        const auto number = static_cast<double>(DaysFromCivil(date.year, date.month, date.day));
        const auto weekday = static_cast<std::size_t>(MomentOf(number).weekday);
        return std::string(run == 3 ? names.shortDays[weekday] : names.days[weekday]);
    }
    case 'M':
        if (run <= 2) return ShortNumber(date.month, run);
        return std::string(run == 3 ? names.shortMonths[month] : names.months[month]);
    case 'y':
        return run <= 2 ? ShortNumber(date.year % 100, run) : Padded(date.year, run);
    default: // g
        return std::string(words.era);
    }
}

std::string TimeElement(const LocaleWords& words, const LocaleTime& time, char letter, std::size_t run) {
    switch (letter) {
    case 'h':
        return ShortNumber((time.hour + 11) % 12 + 1, run);
    case 'H':
        return ShortNumber(time.hour, run);
    case 'm':
        return ShortNumber(time.minute, run);
    case 's':
        return ShortNumber(0, run);
    default: { // t
        const std::string_view marker = time.hour < 12 ? words.names.am : words.names.pm;
        return std::string(run == 1 ? FirstCharacters(marker, 1) : marker);
    }
    }
}

std::string DateText(const LocaleWords& words, const LocaleDate& date, std::string_view picture) {
    return WalkPicture(picture, "dMyg",
                       [&](char letter, std::size_t run) { return DateElement(words, date, letter, run); });
}

std::string TimeText(const LocaleWords& words, const LocaleTime& time, std::string_view picture) {
    return WalkPicture(picture, "hHmst",
                       [&](char letter, std::size_t run) { return TimeElement(words, time, letter, run); });
}

/// The size question and the filling of a buffer.
int Deliver(const std::string& text, char* buffer, int size) {
    if (text.size() >= static_cast<std::size_t>(INT_MAX)) return 0;
    const int needed = static_cast<int>(text.size()) + 1;
    if (size == 0) return needed;
    if (size < needed || buffer == nullptr) return 0;
    std::copy_n(text.c_str(), needed, buffer);
    return needed;
}

class BuiltInLocale final : public Locale {
    int DoGetDateFormat(std::int32_t locale, std::int32_t flags, const LocaleDate& date,
                        const std::string& picture, char* buffer, int size) override {
        const LocaleWords* words = WordsOf(locale);
        if (words == nullptr || flags != 0 || !IsCalendarDay(date)) return 0;
        return Deliver(DateText(*words, date, picture), buffer, size);
    }

    int DoGetTimeFormat(std::int32_t locale, std::int32_t flags, const LocaleTime& time,
                        const std::string& picture, char* buffer, int size) override {
        const LocaleWords* words = WordsOf(locale);
        const bool isTime = time.hour >= 0 && time.hour < 24 && time.minute >= 0 && time.minute < 60;
        if (words == nullptr || flags != 0 || !isTime) return 0;
        return Deliver(TimeText(*words, time, picture), buffer, size);
    }
};

} // namespace

Ref<Locale> MakeLocale() {
    return std::make_shared<BuiltInLocale>();
}

std::string ArabicDateText(const LocaleDate& date, std::string_view picture) {
    return DateText(*WordsOf(LocaleArabicQatar), date, picture);
}

std::string ArabicTimeText(const LocaleTime& time, std::string_view picture) {
    return TimeText(*WordsOf(LocaleArabicQatar), time, picture);
}

} // namespace qbrpt
