#include "report/decimal_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace qbrpt::report {

namespace {

constexpr std::array<std::uint64_t, 4> PowersOfTen = {1, 10, 100, 1000};

// Rounds by the shortest decimal text: digit by digit, so no product can move a half.
std::uint64_t RoundByText(double size, int decimals) {
    std::array<char, 400> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), size, std::chars_format::fixed).ptr;
    const char* point = std::find(text.data(), end, '.');
    std::uint64_t units = 0;
    for (const char* digit = text.data(); digit != point; ++digit)
        units = units * 10 + static_cast<std::uint64_t>(*digit - '0');
    const char* digit = point == end ? end : point + 1;
    for (int place = 0; place < decimals; ++place)
        units = units * 10 + (digit == end ? 0U : static_cast<std::uint64_t>(*digit++ - '0'));
    return digit != end && *digit >= '5' ? units + 1 : units;
}

bool WriteScientific(FigureText& out, double value) {
    std::array<char, 40> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 15).ptr;
    out.Set({text.data(), static_cast<std::size_t>(end - text.data())});
    return false;
}

bool IsPlain(double value) {
    return std::fabs(value) < LargestPlain;
}

// The sign belongs to what is shown: -0.001 is 0.00.
bool FinishSigned(FigureText& out, double value, std::uint64_t units) {
    if (value < 0 && units != 0) out.Put('-');
    return units == 0;
}

} // namespace

std::uint64_t RoundedUnits(double value, int decimals) {
    const double size = std::fabs(value);
    const double scaled = size * static_cast<double>(PowersOfTen[static_cast<std::size_t>(decimals)]);
    // Far from a half, and small enough for the product's error not to matter, the nearest is certain.
    if (scaled < 1e12) {
        const double whole = std::floor(scaled);
        const double rest = scaled - whole;
        if (std::fabs(rest - 0.5) > 1e-3) return static_cast<std::uint64_t>(whole) + (rest > 0.5 ? 1U : 0U);
    }
    return RoundByText(size, decimals);
}

void FigureText::PutNumber(std::uint64_t number, int width, bool grouped) {
    for (int digits = 0; number != 0 || digits < width; ++digits) {
        if (grouped && digits != 0 && digits % 3 == 0) Put(',');
        Put(static_cast<char>('0' + number % 10));
        number /= 10;
    }
}

void FigureText::Set(std::string_view text) {
    Clear();
    for (std::size_t i = text.size(); i > 0; --i)
        Put(text[i - 1]);
}

bool WriteGrouped(FigureText& out, double value, int decimals, TrailingZeros zeros) {
    out.Clear();
    if (!IsPlain(value)) return WriteScientific(out, value);
    const std::uint64_t units = RoundedUnits(value, decimals);
    std::uint64_t fraction = units % PowersOfTen[static_cast<std::size_t>(decimals)];
    int places = decimals;
    while (zeros == TrailingZeros::Drop && places > 0 && fraction % 10 == 0) {
        fraction /= 10;
        --places;
    }
    if (places > 0) {
        out.PutNumber(fraction, places);
        out.Put('.');
    }
    out.PutNumber(units / PowersOfTen[static_cast<std::size_t>(decimals)], 1, true);
    return FinishSigned(out, value, units);
}

bool WritePercent(FigureText& out, double fraction) {
    out.Clear();
    if (!IsPlain(fraction)) return WriteScientific(out, fraction);
    const std::uint64_t tenths = RoundedUnits(fraction, 3);
    out.Put('%');
    out.PutNumber(tenths % 10);
    out.Put('.');
    out.PutNumber(tenths / 10, 1, true);
    return FinishSigned(out, fraction, tenths);
}

bool WriteDuration(FigureText& out, double minutes) {
    out.Clear();
    if (!IsPlain(minutes)) return WriteScientific(out, minutes);
    const std::uint64_t whole = RoundedUnits(minutes, 0);
    out.PutNumber(whole % 60, 2);
    out.Put(':');
    out.PutNumber(whole / 60, 1, true);
    return FinishSigned(out, minutes, whole);
}

} // namespace qbrpt::report
