#include "report/reading.h"

#include "base/calendar.h"
#include "base/latin.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace qbrpt::report {

namespace {

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view Blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

// Takes exactly `digits` digits off the front of `text`.
bool TakeDigits(std::string_view& text, std::size_t digits, int& number) {
    if (text.size() < digits) return false;
    const char* end = text.data() + digits;
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc{} || read.ptr != end || number < 0) return false;
    text.remove_prefix(digits);
    return true;
}

bool TakeOneOf(std::string_view& text, std::string_view characters) {
    if (text.empty() || characters.find(text.front()) == std::string_view::npos) return false;
    text.remove_prefix(1);
    return true;
}

bool TakeTime(std::string_view& text, Moment& moment) {
    if (!TakeDigits(text, 2, moment.hour) || !TakeOneOf(text, ":") || !TakeDigits(text, 2, moment.minute))
        return false;
    if (TakeOneOf(text, ":") && !TakeDigits(text, 2, moment.second)) return false;
    return moment.hour < 24 && moment.minute < 60 && moment.second < 60;
}

} // namespace

std::optional<double> ReadNumber(std::string_view text) {
    text = Trimmed(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    double number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc{} || read.ptr != text.data() + text.size() || !std::isfinite(number))
        return std::nullopt;
    return number;
}

std::optional<double> ReadDate(std::string_view text) {
    text = Trimmed(text);
    Moment moment;
    if (!TakeDigits(text, 4, moment.year) || !TakeOneOf(text, "-") || !TakeDigits(text, 2, moment.month) ||
        !TakeOneOf(text, "-") || !TakeDigits(text, 2, moment.day))
        return std::nullopt;
    if (moment.year < 100 || moment.month < 1 || moment.month > 12 || moment.day < 1) return std::nullopt;
    const auto day = DaysFromCivil(moment.year, moment.month, moment.day);
    if (day >= DaysFromCivil(moment.year, moment.month + 1, 1)) return std::nullopt;
    if (!text.empty() && (!TakeOneOf(text, " T") || !TakeTime(text, moment) || !text.empty()))
        return std::nullopt;
    return DayNumberOf(moment);
}

std::optional<bool> ReadBoolean(std::string_view text) {
    text = Trimmed(text);
    if (EqualNoCase(text, "true") || EqualNoCase(text, "yes") || text == "نعم") return true;
    if (EqualNoCase(text, "false") || EqualNoCase(text, "no") || text == "لا") return false;
    if (const auto number = ReadNumber(text)) return *number != 0;
    return std::nullopt;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
    return SameAnyCase(a, b);
}

} // namespace qbrpt::report
