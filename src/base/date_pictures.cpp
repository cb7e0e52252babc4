#include "base/calendar.h"
#include "base/latin.h"
#include "base/pictures.h"

#include <algorithm>
#include <array>

namespace qbrpt {

namespace {

bool StartsWith(std::string_view text, std::string_view word) {
    return SameAnyCase(text.substr(0, word.size()), word);
}

std::string Digits(int value, std::size_t width) {
    std::string text = std::to_string(value);
    if (text.size() < width) text.insert(0, width - text.size(), '0');
    return text;
}

int DayOfYear(const Moment& moment) {
    return static_cast<int>(DaysFromCivil(moment.year, moment.month, moment.day) -
                            DaysFromCivil(moment.year, 1, 1)) +
           1;
}

// Weeks begin on Sunday, the first one holds 1 January.
int WeekOfYear(const Moment& moment) {
    const int firstWeekday = ((moment.weekday - (DayOfYear(moment) - 1)) % 7 + 7) % 7;
    return (DayOfYear(moment) - 1 + firstWeekday) / 7 + 1;
}

class DatePrinter {
public:
    DatePrinter(const Moment& moment, std::string_view picture, const CalendarNames& names)
        : mMoment(moment), mPicture(picture), mNames(names), mTwelve(HasHalfDay(picture)) {}

    std::string Print() {
        while (mAt < mPicture.size())
            PrintOne();
        return std::move(mOut);
    }

private:
    static bool HasHalfDay(std::string_view picture) {
        for (std::size_t i = 0; i < picture.size(); ++i) {
            if (picture[i] == '"') {
                i = picture.find('"', i + 1);
                if (i == std::string_view::npos) return false;
            } else if (picture[i] == '\\') {
                ++i;
            } else if (HalfDayLength(picture.substr(i)) > 0) {
                return true;
            }
        }
        return false;
    }

    static std::size_t HalfDayLength(std::string_view text) {
        if (StartsWith(text, "AM/PM")) return 5;
        if (StartsWith(text, "AMPM")) return 4;
        return StartsWith(text, "A/P") ? 3 : 0;
    }

    std::size_t RunLength(std::size_t longest) const {
        std::size_t length = 1;
        while (length < longest && mAt + length < mPicture.size() &&
               SmallLatin(mPicture[mAt + length]) == SmallLatin(mPicture[mAt]))
            ++length;
        return length;
    }

    void PrintOne() {
        const char c = mPicture[mAt];
        if (c == '"') {
            const std::size_t end = std::min(mPicture.find('"', mAt + 1), mPicture.size());
            mOut += mPicture.substr(mAt + 1, end - mAt - 1);
            mAt = end + 1;
        } else if (c == '\\') {
            if (mAt + 1 < mPicture.size()) mOut.push_back(mPicture[mAt + 1]);
            mAt += 2;
        } else if (const std::size_t length = HalfDayLength(mPicture.substr(mAt)); length > 0) {
            PrintHalfDay(mPicture.substr(mAt, length));
            mAt += length;
        } else {
            PrintLetter(c);
        }
    }

    void PrintHalfDay(std::string_view word) {
        const bool afternoon = mMoment.hour >= 12;
        if (word.size() == 4) { // AMPM: the words of the calendar's own language
            mOut += afternoon ? mNames.pm : mNames.am;
            return;
        }
        const std::size_t half = word.size() / 2;
        mOut += afternoon ? word.substr(half + 1) : word.substr(0, half);
    }

    void PrintLetter(char c) {
        switch (SmallLatin(c)) {
        case 'd':
            return Take(RunLength(6), &DatePrinter::PrintDay);
        case 'm':
            return Take(RunLength(4), &DatePrinter::PrintMonth);
        case 'y':
            return Take(RunLength(4), &DatePrinter::PrintYear);
        case 'h':
            return Take(RunLength(2), &DatePrinter::PrintHour);
        case 'n':
            return Take(RunLength(2), &DatePrinter::PrintMinute);
        case 's':
            return Take(RunLength(2), &DatePrinter::PrintSecond);
        case 'w':
            return Take(RunLength(2), &DatePrinter::PrintWeek);
        case 'q':
            return Take(1, &DatePrinter::PrintQuarter);
        case 'c':
            return Take(1, &DatePrinter::PrintGeneral);
        case 't':
            if (RunLength(5) == 5) return Take(5, &DatePrinter::PrintLongTime);
            break;
        default:
            break;
        }
        mOut.push_back(c);
        ++mAt;
    }

    void Take(std::size_t length, void (DatePrinter::*print)(std::size_t)) {
        const bool hour = SmallLatin(mPicture[mAt]) == 'h';
        (this->*print)(length);
        mBehindHour = hour;
        mAt += length;
    }

    void PrintDay(std::size_t length) {
        const auto weekday = static_cast<std::size_t>(mMoment.weekday);
        if (length <= 2)
            mOut += Digits(mMoment.day, length);
        else if (length == 3)
            mOut += mNames.shortDays.at(weekday);
        else if (length == 4)
            mOut += mNames.days.at(weekday);
        else
            mOut += DatePrinter(mMoment, length == 5 ? "dd/MM/yyyy" : "dddd dd MMMM yyyy", mNames).Print();
    }

    void PrintMonth(std::size_t length) {
        if (length <= 2 && mBehindHour && mPicture[mAt] == 'm') return PrintMinute(length);
        const auto month = static_cast<std::size_t>(mMoment.month - 1);
        if (length <= 2)
            mOut += Digits(mMoment.month, length);
        else
            mOut += length == 3 ? mNames.shortMonths.at(month) : mNames.months.at(month);
    }

    void PrintYear(std::size_t length) {
        if (length == 4)
            mOut += Digits(mMoment.year, 4);
        else if (length == 1)
            mOut += std::to_string(DayOfYear(mMoment));
        else
            mOut += Digits(mMoment.year % 100, 2) + (length == 3 ? std::to_string(DayOfYear(mMoment)) : "");
    }

    void PrintHour(std::size_t length) {
        const int twelve = mMoment.hour % 12 == 0 ? 12 : mMoment.hour % 12;
        mOut += Digits(mTwelve ? twelve : mMoment.hour, length);
    }

    void PrintMinute(std::size_t length) { mOut += Digits(mMoment.minute, length); }
    void PrintSecond(std::size_t length) { mOut += Digits(mMoment.second, length); }
    void PrintWeek(std::size_t length) {
        mOut += std::to_string(length == 2 ? WeekOfYear(mMoment) : mMoment.weekday + 1);
    }
    void PrintQuarter(std::size_t) { mOut += std::to_string((mMoment.month + 2) / 3); }

    void PrintLongTime(std::size_t) { mOut += DatePrinter(mMoment, "hh:nn:ss AMPM", mNames).Print(); }

    // A date without a time, or a time without a date, shows only what it has.
    void PrintGeneral(std::size_t) {
        const bool time = mMoment.hour != 0 || mMoment.minute != 0 || mMoment.second != 0;
        const bool date = DaysFromCivil(mMoment.year, mMoment.month, mMoment.day) != 0;
        if (date || !time) PrintDay(5);
        if (date && time) mOut.push_back(' ');
        if (time) PrintLongTime(5);
    }

    const Moment& mMoment;
    std::string_view mPicture;
    const CalendarNames& mNames;
    bool mTwelve;
    bool mBehindHour = false;
    std::size_t mAt = 0;
    std::string mOut;
};

struct NamedPicture {
    std::string_view name;
    std::string_view picture;
};

constexpr std::array<NamedPicture, 7> NamedPictures = {{{"General Date", "c"},
                                                        {"Long Date", "dddd dd MMMM yyyy"},
                                                        {"Medium Date", "dd-MMM-yy"},
                                                        {"Short Date", "dd/MM/yyyy"},
                                                        {"Long Time", "hh:nn:ss AMPM"},
                                                        {"Medium Time", "hh:nn AMPM"},
                                                        {"Short Time", "hh:nn"}}};

} // namespace

std::string FormatDate(double dayNumber, std::string_view picture, const CalendarNames& names) {
    if (picture.empty()) picture = "c";
    for (const NamedPicture& named : NamedPictures) {
        if (SameAnyCase(named.name, picture)) {
            picture = named.picture;
            break;
        }
    }
    return DatePrinter(MomentToTheSecond(dayNumber), picture, names).Print();
}

bool IsDatePicture(std::string_view picture) {
    for (const NamedPicture& named : NamedPictures) {
        if (SameAnyCase(named.name, picture)) return true;
    }
    for (const std::string_view number : {"General Number", "Currency", "Fixed", "Standard", "Percent",
                                          "Scientific", "Yes/No", "True/False", "On/Off"}) {
        if (SameAnyCase(number, picture)) return false;
    }
    constexpr std::string_view DateLetters = "dmyhnswqc";
    bool date = false;
    for (std::size_t i = 0; i < picture.size(); ++i) {
        const char c = picture[i];
        if (c == '"') {
            i = picture.find('"', i + 1);
            if (i == std::string_view::npos) break;
        } else if (c == '\\') {
            ++i;
        } else if (c == '0' || c == '#') {
            return false;
        } else if (DateLetters.find(SmallLatin(c)) != std::string_view::npos) {
            date = true;
        }
    }
    return date;
}

} // namespace qbrpt
