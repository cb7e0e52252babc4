#include "support/period_text.h"

#include "support/calendar_rules.h"
#include "support/extremes.h"
#include "support/locale_text.h"
#include "support/variant.h"

#include <array>

namespace qbrpt {

namespace {

const std::string FullDate = "ddd dd MMM yyyy";
const std::string DayOfYear = "ddd dd MMM";
const std::string MonthAndYear = "MMM yyyy";
const std::string MonthAlone = "MMM";
const std::string TimeOfDay = "hh:mmtt";

struct Language {
    std::int32_t primary;
    std::int32_t sub;
};
constexpr Language ArabicOfQatar = {1, 16};
constexpr Language EnglishOfUs = {9, 1};

std::string DateText(const Language& language, double dt, const std::string& sFormat, bool bWithTime) {
    const std::int32_t locale = MakeLcid(MakeLangId(language.primary, language.sub), 0);
    const std::optional<Moment> moment = CalendarMoment(dt);
    const std::string time = moment ? LocaleTimeText(locale, static_cast<std::int16_t>(moment->hour),
                                                     static_cast<std::int16_t>(moment->minute), TimeOfDay)
                                    : "";
    const std::string date = FormatLocaleDate(locale, dt, sFormat);
    return bWithTime ? date + "  " + time : date;
}

/// The words and pictures of a period; no first picture, no first date.
struct PeriodShape {
    std::string lead;
    std::string firstPicture;
    std::string middle;
    std::string lastPicture;
};

PeriodShape ShapeOf(std::int16_t flags, bool bArabic) {
    const std::string from = bArabic ? "من " : "From ";
    const std::string till = bArabic ? " إلى " : " Till ";
    switch (flags) {
    case 0:
        return {from, DayOfYear, till, FullDate};
    case PeriodFlag::SameMonth:
        return {bArabic ? "لشهر " : "For Month ", "", "", MonthAndYear};
    case PeriodFlag::OtherMonth:
        return {from, MonthAlone, till, MonthAndYear};
    case PeriodFlag::SameMonth | PeriodFlag::YearsDiffer:
    case PeriodFlag::OtherMonth | PeriodFlag::YearsDiffer:
        return {from, MonthAndYear, till, MonthAndYear};
    default: // years differ, no whole months
        return {from, FullDate, till, FullDate};
    }
}

} // namespace

std::int16_t GetPeriodFlags(double dtStart, double dtEnd) {
    const std::optional<Moment> start = CalendarMoment(dtStart);
    const std::optional<Moment> end = CalendarMoment(dtEnd);
    if (!start || !end) return start || end ? PeriodFlag::YearsDiffer : 0;
    const bool wholeMonths = start->day == 1 && end->day == DaysInMonth(static_cast<std::int16_t>(end->month),
                                                                        static_cast<std::int16_t>(end->year));
    int flags = start->year != end->year ? PeriodFlag::YearsDiffer : 0;
    if (wholeMonths) flags |= start->month != end->month ? PeriodFlag::OtherMonth : PeriodFlag::SameMonth;
    return static_cast<std::int16_t>(flags);
}

std::string GetPeriodText(double dtFrom, double dtTo, bool bArabic, bool bWithTime) {
    const std::array<Value, 2> dates = {Date{dtFrom}, Date{dtTo == 0 ? dtFrom : dtTo}};
    const double dtStart = NumberOf(MinOf(dates));
    const double dtEnd = NumberOf(MaxOf(dates));
    const auto textOf = bArabic ? DateTextArabic : DateTextEnglish;

    if (DayNumber(dtStart) == DayNumber(dtEnd))
        return (bArabic ? "ليوم " : "") + textOf(dtStart, FullDate, bWithTime);

    const PeriodShape shape = ShapeOf(GetPeriodFlags(dtStart, dtEnd), bArabic);
    std::string text = shape.lead;
    if (!shape.firstPicture.empty()) text += textOf(dtStart, shape.firstPicture, bWithTime);
    return text + shape.middle + textOf(dtEnd, shape.lastPicture, bWithTime);
}

std::string DateTextArabic(double dt, const std::string& sFormat, bool bWithTime) {
    return DateText(ArabicOfQatar, dt, sFormat, bWithTime);
}

std::string DateTextEnglish(double dt, const std::string& sFormat, bool bWithTime) {
    return DateText(EnglishOfUs, dt, sFormat, bWithTime);
}

} // namespace qbrpt
