#include "report/value_text.h"

#include "base/calendar.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "base/pictures.h"

#include <algorithm>
#include <cmath>

namespace qbrpt::report {

namespace {

constexpr std::string_view Yes = "نعم";
constexpr std::string_view No = "لا";

bool IsNumeric(const CellView& value) {
    return value.kind == ValueKind::Whole || value.kind == ValueKind::Number;
}

double NumberOf(const CellView& value) {
    return value.kind == ValueKind::Whole || value.kind == ValueKind::Boolean
               ? static_cast<double>(value.whole)
               : value.number;
}

void PutTime(FigureText& out, const Moment& moment) {
    out.PutNumber(static_cast<std::uint64_t>(moment.minute), 2);
    out.Put(':');
    out.PutNumber(static_cast<std::uint64_t>(moment.hour), 2);
}

void PutDay(FigureText& out, const Moment& moment) {
    out.PutNumber(static_cast<std::uint64_t>(moment.year), 4);
    out.Put('/');
    out.PutNumber(static_cast<std::uint64_t>(moment.month), 2);
    out.Put('/');
    out.PutNumber(static_cast<std::uint64_t>(moment.day), 2);
}

bool IsDateFormat(ValueFormat format) {
    return format == ValueFormat::Date || format == ValueFormat::Time || format == ValueFormat::DateTime;
}

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

bool IsCalendarDay(double dayNumber) {
    return dayNumber > -657435.0 + 1e-8 && dayNumber < 2958466.0 - 1e-8;
}

ValueText ValueWriter::Write(const CellView& value, ValueFormat format, std::string_view picture) {
    if (value.kind == ValueKind::Null) return {};
    if (value.kind == ValueKind::Text) return {value.text, false, false};
    if (format == ValueFormat::Text) return Plain(value);
    if (format == ValueFormat::Picture) return ByPicture(value, picture);
    if (format == ValueFormat::YesNo) {
        if (value.kind == ValueKind::Date) return Plain(value);
        return {NumberOf(value) != 0 ? Yes : No, false, false};
    }
    if (IsDateFormat(format)) {
        return value.kind == ValueKind::Boolean ? Plain(value) : DateOf(NumberOf(value), format);
    }
    return value.kind == ValueKind::Date ? Plain(value) : Number(NumberOf(value), format);
}

ValueText ValueWriter::Number(double number, ValueFormat format) {
    if (!std::isfinite(number)) return {};
    switch (format) {
    case ValueFormat::Money:
        return Figures(WriteGrouped(mFigures, number, 2, TrailingZeros::Keep));
    case ValueFormat::Count:
        return Figures(WriteGrouped(mFigures, number, 0, TrailingZeros::Keep));
    case ValueFormat::Percent:
        return Figures(WritePercent(mFigures, number));
    case ValueFormat::Duration:
        return Figures(WriteDuration(mFigures, number));
    default:
        return Figures(WriteGrouped(mFigures, number, 2, TrailingZeros::Drop));
    }
}

ValueText ValueWriter::DateOf(double dayNumber, ValueFormat format) {
    if (!IsCalendarDay(dayNumber)) return {};
    const Moment moment = MomentToTheSecond(dayNumber);
    mFigures.Clear();
    if (format != ValueFormat::Date) PutTime(mFigures, moment);
    if (format == ValueFormat::DateTime) mFigures.Put(' ');
    if (format != ValueFormat::Time) PutDay(mFigures, moment);
    return Figures(false);
}

ValueText ValueWriter::Plain(const CellView& value) {
    if (value.kind == ValueKind::Boolean) return {value.whole != 0 ? Yes : No, false, false};
    if (value.kind == ValueKind::Date) return DateOf(value.number, ValueFormat::DateTime);
    if (value.kind == ValueKind::Whole) {
        mText = std::to_string(value.whole);
    } else {
        if (!std::isfinite(value.number)) return {};
        mText = DecimalText(value.number);
    }
    return {mText, true, mText == "0"};
}

ValueText ValueWriter::ByPicture(const CellView& value, std::string_view picture) {
    // A picture that cannot be applied must not take the page with it.
    try {
        if (value.kind == ValueKind::Date) {
            if (!IsCalendarDay(value.number)) return {};
            mText = FormatDate(value.number, picture, ArabicNames());
            // In a date '-' joins, it is no minus: the text port draws it as it is.
            return {mText, IsAscii(mText) && mText.find('-') == std::string::npos, false};
        }
        const double number = NumberOf(value);
        if (!std::isfinite(number)) return {};
        mText = FormatNumber(number, picture);
        return {mText, IsNumeric(value) && IsAscii(mText), number == 0};
    } catch (const Failure&) {
        return Plain(value);
    }
}

std::string CountedText(std::size_t count, const CountedNoun& noun) {
    if (count == 1) return noun.one;
    if (count == 2) return noun.two;
    FigureText figures;
    figures.PutNumber(count, 1, true);
    const std::size_t tail = count % 100;
    const std::string& word = tail >= 3 && tail <= 10 ? noun.few : tail >= 11 ? noun.many : noun.hundred;
    std::string text(figures.View());
    return text.append(" ").append(word);
}

} // namespace qbrpt::report
