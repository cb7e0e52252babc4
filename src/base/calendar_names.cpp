#include "base/calendar_names.h"

namespace qbrpt {

namespace {

constexpr std::array<std::string_view, 12> ArabicMonths = {"يناير",  "فبراير", "مارس",   "أبريل",
                                                           "مايو",   "يونيو",  "يوليو",  "أغسطس",
                                                           "سبتمبر", "أكتوبر", "نوفمبر", "ديسمبر"};
constexpr std::array<std::string_view, 7> ArabicDays = {"الأحد",  "الاثنين", "الثلاثاء", "الأربعاء",
                                                        "الخميس", "الجمعة",  "السبت"};

constexpr CalendarNames Arabic = {ArabicMonths, ArabicMonths, ArabicDays, ArabicDays, "ص", "م"};

constexpr CalendarNames English = {
    {"January", "February", "March", "April", "May", "June", "July", "August", "September", "October",
     "November", "December"},
    {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"},
    {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"},
    {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"},
    "AM",
    "PM"};

} // namespace

const CalendarNames& ArabicNames() {
    return Arabic;
}
const CalendarNames& EnglishNames() {
    return English;
}

} // namespace qbrpt
