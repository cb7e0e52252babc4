#include "adapters/export/xlsx_values.h"

#include "adapters/export/plain_text.h"
#include "base/calendar.h"
#include "base/utf8.h"

#include <algorithm>
#include <cmath>

namespace qbrpt {

namespace {

using report::ValueFormat;

constexpr std::size_t MostLetters = 32'767;
constexpr double MinutesInDay = 1440;
// Spreadsheets count a 29 February 1900; from here on their days are ours.
constexpr double FirstCommonDay = 61;
constexpr double LargestExact = 1e15;

constexpr const char* MoneyFormat = "#,##0.00";
constexpr const char* CountFormat = "#,##0";
constexpr const char* TenthFormat = "#,##0.0";
constexpr const char* PercentFormat = "0.0%";
constexpr const char* DurationFormat = "[h]:mm";
// The slash would else be the one of the reader's country.
constexpr const char* DateFormat = "dd\\/mm\\/yyyy";
constexpr const char* TimeFormat = "hh:mm";
constexpr const char* DateTimeFormat = "dd\\/mm\\/yyyy hh:mm";

/// As many decimals as the page shows: a spreadsheet has no format that leaves out a lone point.
const char* DecimalFormat(double number) {
    const double hundredths = std::fabs(std::round(number * 100));
    if (std::fmod(hundredths, 100) == 0) return CountFormat;
    return std::fmod(hundredths, 10) == 0 ? TenthFormat : MoneyFormat;
}

/// Whether a number picture means the same to a spreadsheet; a wrong one spoils the whole file.
bool IsSharedPicture(std::string_view picture) {
    return !picture.empty() && picture.find_first_not_of("#0,.%-() ") == std::string_view::npos &&
           picture.find_first_of("#0") != std::string_view::npos;
}

std::string NumberFormatOf(double number, const report::Column& column) {
    switch (column.format) {
    case ValueFormat::Money:
        return MoneyFormat;
    case ValueFormat::Count:
        return CountFormat;
    case ValueFormat::Decimal:
        return DecimalFormat(number);
    case ValueFormat::Percent:
        return PercentFormat;
    case ValueFormat::Duration:
        return DurationFormat;
    case ValueFormat::Picture:
        return IsSharedPicture(column.picture) ? column.picture : "General";
    default:
        return "General";
    }
}

const char* DayFormatOf(ValueFormat format) {
    if (format == ValueFormat::Date) return DateFormat;
    return format == ValueFormat::Time ? TimeFormat : DateTimeFormat;
}

bool IsDayFormat(ValueFormat format) {
    return format == ValueFormat::Date || format == ValueFormat::Time || format == ValueFormat::DateTime;
}

void Measure(SheetValue& value) {
    value.lines = 0;
    for (std::string_view rest = value.text;;) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::size_t letters = CharacterCount(rest.substr(0, end));
        value.characters = std::max(value.characters, letters);
        value.lines += std::max<std::size_t>((letters + WidestColumn - 1) / WidestColumn, 1);
        if (end == rest.size()) return;
        rest.remove_prefix(end + 1);
    }
}

} // namespace

std::string SheetText(std::string_view text) {
    std::string plain = PlainText(text);
    std::size_t letters = 0;
    for (std::size_t at = 0; at < plain.size();) {
        const std::size_t start = at;
        letters += NextCharacter(plain, at) > 0xFFFF ? 2 : 1;
        if (letters > MostLetters) {
            plain.resize(start);
            break;
        }
    }
    return plain;
}

SheetValue SheetValues::Of(const CellView& cell, const report::Column& column) {
    switch (cell.kind) {
    case ValueKind::Null:
        return {};
    case ValueKind::Whole:
    case ValueKind::Number:
        return Figure(cell.kind == ValueKind::Whole ? static_cast<double>(cell.whole) : cell.number, cell,
                      column);
    case ValueKind::Date:
        return Day(cell.number, cell, column,
                   IsDayFormat(column.format) ? column.format : ValueFormat::DateTime);
    default:
        return Words(cell, column);
    }
}

SheetValue SheetValues::Words(const CellView& cell, const report::Column& column) {
    SheetValue value;
    value.text = SheetText(mWriter.Write(cell, column.format, column.picture).text);
    if (value.text.empty()) return {};
    value.kind = SheetValue::Kind::Text;
    Measure(value);
    return value;
}

SheetValue SheetValues::Figure(double number, const CellView& cell, const report::Column& column) {
    if (!std::isfinite(number)) return {};
    if (IsDayFormat(column.format)) return Day(number, cell, column, column.format);
    const bool negativeTime = column.format == ValueFormat::Duration && number < 0;
    const bool tooLong = cell.kind == ValueKind::Whole && std::fabs(number) >= LargestExact;
    if (negativeTime || tooLong || column.format == ValueFormat::YesNo) return Words(cell, column);
    SheetValue value;
    value.kind = SheetValue::Kind::Number;
    value.number = column.format == ValueFormat::Duration ? number / MinutesInDay : number;
    value.numberFormat = NumberFormatOf(number, column);
    value.characters = mWriter.Write(cell, column.format, column.picture).text.size();
    return value;
}

SheetValue SheetValues::Day(double number, const CellView& cell, const report::Column& column,
                            ValueFormat format) {
    if (!report::IsCalendarDay(number)) return {};
    const bool shown = format == ValueFormat::Time ? number >= 0 : number >= FirstCommonDay;
    if (!shown) return Words(cell, column);
    SheetValue value;
    value.kind = SheetValue::Kind::Number;
    value.number = DayNumberOf(MomentToTheSecond(number));
    value.numberFormat = DayFormatOf(format);
    value.characters = format == ValueFormat::Date ? 10 : format == ValueFormat::Time ? 5 : 16;
    return value;
}

} // namespace qbrpt
