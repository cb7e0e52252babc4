#include "adapters/qt/dialog/date_sections.h"

#include "adapters/locale/locale_adapter.h"

#include <algorithm>
#include <string>

namespace qbrpt::qt {

namespace {

constexpr int FirstYear = 1601;
constexpr int LastYear = 9999;
constexpr int HoursOfHalf = 12;

DatePart PartOf(char letter) {
    switch (letter) {
    case 'd':
        return DatePart::Day;
    case 'M':
        return DatePart::Month;
    case 'y':
        return DatePart::Year;
    case 'h':
    case 'H':
        return DatePart::Hour;
    case 'm':
        return DatePart::Minute;
    case 's':
        return DatePart::Second;
    case 't':
        return DatePart::HalfDay;
    default:
        return DatePart::Words;
    }
}

QString InWords(const DateSection& section, const Moment& moment) {
    const std::string picture = section.picture.toStdString();
    const bool isDate =
        section.part == DatePart::Day || section.part == DatePart::Month || section.part == DatePart::Year;
    return QString::fromStdString(isDate ? ArabicDateText({moment.day, moment.month, moment.year}, picture)
                                         : ArabicTimeText({moment.hour, moment.minute}, picture));
}

bool CountsToTwelve(const DateSection& section) {
    return section.picture.startsWith('h');
}

} // namespace

std::vector<DateSection> SectionsOf(std::string_view format) {
    std::vector<DateSection> sections;
    for (std::size_t at = 0; at < format.size();) {
        const DatePart part = PartOf(format[at]);
        std::size_t end = at + 1;
        while (end < format.size() &&
               (part == DatePart::Words ? PartOf(format[end]) == part : format[end] == format[at]))
            ++end;
        sections.push_back({part, QString::fromUtf8(format.data() + at, static_cast<qsizetype>(end - at))});
        at = end;
    }
    return sections;
}

QString ShownPart(const DateSection& section, const Moment& moment) {
    if (section.part == DatePart::Words) return section.picture;
    if (section.part == DatePart::Second)
        return QString::number(moment.second).rightJustified(section.picture.size(), '0');
    return InWords(section, moment);
}

int DaysIn(int year, int month) {
    return static_cast<int>(DaysFromCivil(year, month + 1, 1) - DaysFromCivil(year, month, 1));
}

QString MonthTitle(int year, int month) {
    return InWords({DatePart::Month, QStringLiteral("MMMM yyyy")}, {.year = year, .month = month, .day = 1});
}

PartRange RangeOf(const DateSection& section, const Moment& moment) {
    switch (section.part) {
    case DatePart::Day:
        return {1, DaysIn(moment.year, moment.month)};
    case DatePart::Month:
        return {1, 12};
    case DatePart::Year:
        return {FirstYear, LastYear, 4};
    case DatePart::Hour:
        return CountsToTwelve(section) ? PartRange{1, HoursOfHalf} : PartRange{0, 23};
    case DatePart::Minute:
    case DatePart::Second:
        return {0, 59};
    default:
        return {0, 1, 0};
    }
}

int NumberOf(const DateSection& section, const Moment& moment) {
    switch (section.part) {
    case DatePart::Day:
        return moment.day;
    case DatePart::Month:
        return moment.month;
    case DatePart::Year:
        return moment.year;
    case DatePart::Hour:
        return CountsToTwelve(section) ? (moment.hour + HoursOfHalf - 1) % HoursOfHalf + 1 : moment.hour;
    case DatePart::Minute:
        return moment.minute;
    case DatePart::Second:
        return moment.second;
    case DatePart::HalfDay:
        return moment.hour < HoursOfHalf ? 0 : 1;
    default:
        return 0;
    }
}

Moment WithNumber(const DateSection& section, Moment moment, int number) {
    const int half = moment.hour < HoursOfHalf ? 0 : HoursOfHalf;
    switch (section.part) {
    case DatePart::Day:
        moment.day = number;
        break;
    case DatePart::Month:
        moment.month = number;
        break;
    case DatePart::Year:
        moment.year = number;
        break;
    case DatePart::Hour:
        moment.hour = CountsToTwelve(section) ? number % HoursOfHalf + half : number;
        break;
    case DatePart::Minute:
        moment.minute = number;
        break;
    case DatePart::Second:
        moment.second = number;
        break;
    case DatePart::HalfDay:
        moment.hour = moment.hour % HoursOfHalf + number * HoursOfHalf;
        break;
    default:
        break;
    }
    moment.day = std::min(moment.day, DaysIn(moment.year, moment.month));
    return moment;
}

Moment Stepped(const DateSection& section, const Moment& moment, int step) {
    const PartRange range = RangeOf(section, moment);
    int next = NumberOf(section, moment) + step;
    if (next > range.highest) next = range.lowest;
    if (next < range.lowest) next = range.highest;
    return WithNumber(section, moment, next);
}

} // namespace qbrpt::qt
