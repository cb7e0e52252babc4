#include "support/key_filter.h"

#include "base/leading_number.h"
#include "base/utf8.h"
#include "platform/desktop.h"
#include "platform/platform.h"
#include "support/error_trap.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace qbrpt {

namespace {

constexpr std::int16_t Blank = 32;
constexpr std::int16_t Backspace = 8;
constexpr std::int16_t Enter = 13;
constexpr std::int16_t Point = 46;

bool IsDigit(int code) {
    return code >= '0' && code <= '9';
}

std::int16_t DropWithBeep() {
    Platform::Current().screen->Beep();
    return 0;
}

std::string TextAfter(const TextBox& txt, std::int16_t digit) {
    const std::string text = txt.Text();
    const auto start = static_cast<std::size_t>(std::max(txt.SelStart(), 0));
    const auto length = static_cast<std::size_t>(std::max(txt.SelLength(), 0));
    std::string after(FirstCharacters(text, start));
    after += static_cast<char>(digit);
    after += std::string_view(text).substr(FirstCharacters(text, start + length).size());
    return after;
}

std::int16_t Judge(const TextBox& txt, std::int16_t nKey, double dMax, double dMin) {
    if (nKey == Blank && txt.SelLength() < 1) return 0;
    if (nKey == Backspace || nKey == Enter) return nKey;
    // A point that stands in the selection still counts, though it is about to be overtyped.
    if (nKey == Point) return txt.Text().find('.') == std::string::npos ? Point : DropWithBeep();
    if (!IsDigit(nKey)) return DropWithBeep();
    if (dMax == NoMaximum && dMin == NoMinimum) return nKey;
    const double value = LeadingNumber(TextAfter(txt, nKey));
    const bool passes = (value <= dMax || dMax == NoMaximum) && (value >= dMin || dMin == NoMinimum);
    return passes ? nKey : std::int16_t{0};
}

} // namespace

std::int16_t FilterNumericKey(const TextBox& txt, std::int16_t nKey, double dMax, double dMin) {
    std::int16_t passed = 0;
    ErrorTrap trap(ErrorTrap::SilentLeave);
    trap.Step([&] { passed = Judge(txt, nKey, dMax, dMin); });
    return passed;
}

} // namespace qbrpt
