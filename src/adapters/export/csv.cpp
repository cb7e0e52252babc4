#include "adapters/export/csv.h"

#include "base/calendar.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "report/binder.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

namespace qbrpt {

namespace {

constexpr std::size_t BufferSize = std::size_t{1} << 16;
constexpr std::size_t RowsBetweenProgress = 4096;
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view LineEnd = "\r\n";

void AppendNumber(std::string& line, double number) {
    if (std::isfinite(number)) line += RoundTripText(number);
}

void AppendPadded(std::string& line, int number, int digits) {
    const std::string text = std::to_string(number);
    line.append(static_cast<std::size_t>(digits) - std::min(text.size(), static_cast<std::size_t>(digits)),
                '0');
    line += text;
}

/// Bound rows hold no date outside the calendar.
void AppendDate(std::string& line, double dayNumber) {
    const Moment moment = MomentToTheSecond(dayNumber);
    AppendPadded(line, moment.year, 4);
    line += '-';
    AppendPadded(line, moment.month, 2);
    line += '-';
    AppendPadded(line, moment.day, 2);
    line += ' ';
    AppendPadded(line, moment.hour, 2);
    line += ':';
    AppendPadded(line, moment.minute, 2);
    line += ':';
    AppendPadded(line, moment.second, 2);
}

void AppendText(std::string& line, std::string_view text) {
    const std::string valid = ValidUtf8(text);
    if (valid.find_first_of("\",\r\n") == std::string::npos) {
        line += valid;
        return;
    }
    line += '"';
    for (const char letter : valid) {
        if (letter == '"') line += '"';
        line += letter;
    }
    line += '"';
}

void AppendCell(std::string& line, const CellView& cell) {
    switch (cell.kind) {
    case ValueKind::Null:
        break;
    case ValueKind::Boolean:
        line += cell.whole != 0 ? "true" : "false";
        break;
    case ValueKind::Whole:
        line += std::to_string(cell.whole);
        break;
    case ValueKind::Number:
        AppendNumber(line, cell.number);
        break;
    case ValueKind::Date:
        AppendDate(line, cell.number);
        break;
    case ValueKind::Text:
        AppendText(line, cell.text);
        break;
    }
}

} // namespace

void WriteCsv(ByteSink& sink, const report::Definition& definition, const RowSource& rows,
              const std::function<void(std::size_t done, std::size_t all)>& onProgress) {
    std::string buffer(ByteOrderMark);
    buffer.reserve(BufferSize + BufferSize / 4);
    const std::size_t fieldCount = definition.fields.size();
    for (std::size_t i = 0; i < fieldCount; ++i) {
        if (i != 0) buffer += ',';
        AppendText(buffer, definition.fields[i].name);
    }
    buffer += LineEnd;

    report::Binder binder(definition);
    const auto cursor = rows.Open();
    RowView raw;
    RowView bound;
    const std::size_t rowCount = rows.RowCount();
    for (std::size_t done = 0; cursor->Next(raw); ++done) {
        binder.Bind(raw, bound);
        for (std::size_t i = 0; i < fieldCount; ++i) {
            if (i != 0) buffer += ',';
            AppendCell(buffer, bound[i]);
        }
        buffer += LineEnd;
        if (buffer.size() >= BufferSize) {
            sink.Write(buffer);
            buffer.clear();
        }
        if (onProgress && done % RowsBetweenProgress == 0) onProgress(done, rowCount);
    }
    sink.Write(buffer);
}

} // namespace qbrpt
