#include "support/key_filter.h"

#include "base/utf8.h"
#include "platform/desktop.h"
#include "platform/platform.h"
#include "support/error_trap.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

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

/// Collects a number's characters from the head of a text.
class NumberHead {
public:
    explicit NumberHead(std::string_view text) {
        // Blanks never end a number.
        for (const char character : text) {
            if (std::string_view(" \t\n\r").find(character) == std::string_view::npos) mText += character;
        }
        TakeSign();
        const std::size_t digits = TakeDigits();
        std::size_t fraction = 0;
        if (Next() == '.') {
            Take('.');
            fraction = TakeDigits();
        }
        if (digits + fraction == 0) return;
        mNumber = mTaken;
        TakeExponent();
    }

    [[nodiscard]] double Value() const {
        double value = 0;
        const auto error = std::from_chars(mNumber.data(), mNumber.data() + mNumber.size(), value).ec;
        if (error != std::errc::result_out_of_range) return value;
        const double huge = std::numeric_limits<double>::infinity();
        return mNumber.starts_with('-') ? -huge : huge;
    }

private:
    [[nodiscard]] char Next(std::size_t ahead = 0) const {
        return mPosition + ahead < mText.size() ? mText[mPosition + ahead] : '\0';
    }
    void Take(char written) {
        mTaken += written;
        ++mPosition;
    }
    void TakeSign() {
        if (Next() == '-')
            Take('-');
        else if (Next() == '+')
            ++mPosition;
    }
    std::size_t TakeDigits() {
        const std::size_t before = mTaken.size();
        while (IsDigit(Next()))
            Take(Next());
        return mTaken.size() - before;
    }
    void TakeExponent() {
        if (std::string_view("eEdD").find(Next()) == std::string_view::npos || Next() == '\0') return;
        const bool isSigned = Next(1) == '-' || Next(1) == '+';
        if (!IsDigit(Next(isSigned ? 2 : 1))) return;
        Take('e');
        if (isSigned) Take(Next());
        TakeDigits();
        mNumber = mTaken;
    }

    std::string mText;
    std::size_t mPosition = 0;
    std::string mTaken;
    std::string mNumber;
};

std::int16_t Judge(const TextBox& txt, std::int16_t nKey, double dMax, double dMin) {
    if (nKey == Blank && txt.SelLength() < 1) return 0;
    if (nKey == Backspace || nKey == Enter) return nKey;
    // A point that stands in the selection still counts, though it is about to be overtyped.
    if (nKey == Point) return txt.Text().find('.') == std::string::npos ? Point : DropWithBeep();
    if (!IsDigit(nKey)) return DropWithBeep();
    if (dMax == NoMaximum && dMin == NoMinimum) return nKey;
    const double value = NumberHead(TextAfter(txt, nKey)).Value();
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
