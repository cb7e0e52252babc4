#include "base/leading_number.h"

#include <charconv>
#include <limits>
#include <string>
#include <system_error>

namespace qbrpt {

namespace {

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
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
        // Too small and too large look alike to from_chars.
        const std::size_t lead = mNumber.find_first_not_of("-0");
        const bool tiny = mNumber.find("e-") != std::string::npos || mNumber[lead] == '.';
        const double huge = tiny ? 0 : std::numeric_limits<double>::infinity();
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

} // namespace

double LeadingNumber(std::string_view text) {
    return NumberHead(text).Value();
}

} // namespace qbrpt
