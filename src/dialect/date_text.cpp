#include "dialect/date_text.h"

#include "base/calendar.h"
#include "base/calendar_names.h"
#include "dialect/words.h"

#include <string>
#include <vector>

namespace qbrpt::dialect {

namespace {

struct Piece {
    enum class Type : std::uint8_t { Number, Word, Mark };
    Type type = Type::Mark;
    int number = 0;
    std::size_t digits = 0;
    std::string_view word;
    char mark = 0;
};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsWordByte(char c) {
    return (SmallLatin(c) >= 'a' && SmallLatin(c) <= 'z') || static_cast<unsigned char>(c) >= 0x80;
}

// Splits into numbers, words and single marks; blanks and commas only part them.
std::optional<std::vector<Piece>> Split(std::string_view text) {
    constexpr std::size_t MostPieces = 16;
    std::vector<Piece> pieces;
    for (std::size_t i = 0; i < text.size();) {
        if (pieces.size() > MostPieces) return std::nullopt;
        const std::size_t start = i;
        if (text[i] == ' ' || text[i] == ',') {
            ++i;
            continue;
        }
        Piece piece;
        if (IsDigit(text[i])) {
            piece.type = Piece::Type::Number;
            while (i < text.size() && IsDigit(text[i]) && piece.digits < 5) {
                piece.number = piece.number * 10 + (text[i++] - '0');
                ++piece.digits;
            }
            if (piece.digits > 4) return std::nullopt;
        } else if (IsWordByte(text[i])) {
            piece.type = Piece::Type::Word;
            while (i < text.size() && IsWordByte(text[i]))
                ++i;
            piece.word = text.substr(start, i - start);
        } else {
            piece.mark = text[i++];
        }
        pieces.push_back(piece);
    }
    return pieces;
}

std::optional<int> MonthOfWord(std::string_view word) {
    for (std::size_t i = 0; i < 12; ++i) {
        if (SameName(word, EnglishNames().months.at(i)) || SameName(word, EnglishNames().shortMonths.at(i)) ||
            word == ArabicNames().months.at(i))
            return static_cast<int>(i) + 1;
    }
    return std::nullopt;
}

int FullYear(const Piece& piece) {
    if (piece.digits > 2) return piece.number;
    return piece.number < 30 ? 2000 + piece.number : 1900 + piece.number;
}

class Reader {
public:
    Reader(const std::vector<Piece>& pieces, DateOrder order) : mPieces(pieces), mOrder(order) {}

    std::optional<double> Read() {
        const bool date = ReadDate();
        if (mBad) return std::nullopt;
        const bool time = mAt < mPieces.size() && ReadTime();
        if (mBad || mAt != mPieces.size() || (!date && !time)) return std::nullopt;
        if (!date) {
            mMoment.year = 1899;
            mMoment.month = 12;
            mMoment.day = 30;
        }
        const Moment check = MomentOf(DayNumberOf(mMoment));
        if (check.day != mMoment.day || check.month != mMoment.month) return std::nullopt;
        return DayNumberOf(mMoment);
    }

private:
    const Piece* Peek(std::size_t ahead = 0) const {
        return mAt + ahead < mPieces.size() ? &mPieces[mAt + ahead] : nullptr;
    }
    bool IsNumber(std::size_t ahead) const {
        return Peek(ahead) != nullptr && Peek(ahead)->type == Piece::Type::Number;
    }
    bool IsMark(std::size_t ahead, char mark) const {
        return Peek(ahead) != nullptr && Peek(ahead)->mark == mark;
    }
    bool IsSeparator(std::size_t ahead) const { return IsMark(ahead, '/') || IsMark(ahead, '-'); }

    // Three numbers with / or - between them, or a month's name with two numbers around or behind it.
    bool ReadDate() {
        if (IsNumber(0) && IsSeparator(1) && IsNumber(2) && IsSeparator(3) && IsNumber(4)) {
            SetDate(mPieces[mAt], mPieces[mAt + 2], mPieces[mAt + 4]);
            mAt += 5;
            return true;
        }
        return ReadNamedMonth();
    }

    bool ReadNamedMonth() {
        std::vector<const Piece*> numbers;
        std::optional<int> month;
        std::size_t used = 0;
        while (const Piece* piece = Peek(used)) {
            if (IsMark(used, '-')) {
                ++used;
                continue;
            }
            if (piece->type == Piece::Type::Word && !month)
                month = MonthOfWord(piece->word);
            else if (piece->type == Piece::Type::Number && numbers.size() < 2)
                numbers.push_back(piece);
            else
                break;
            ++used;
            if (!month && piece->type == Piece::Type::Word) return false;
            if (month && numbers.size() == 2) break;
        }
        if (!month || numbers.size() != 2) return false;
        const bool yearFirst = numbers[0]->digits > 2;
        SetCivil(FullYear(*numbers[yearFirst ? 0 : 1]), *month, numbers[yearFirst ? 1 : 0]->number);
        mAt += used;
        return true;
    }

    void SetDate(const Piece& first, const Piece& second, const Piece& third) {
        if (first.digits > 2) return SetCivil(first.number, second.number, third.number);
        const bool monthFirst = mOrder == DateOrder::MonthFirst ? first.number <= 12 : second.number > 12;
        SetCivil(FullYear(third), monthFirst ? first.number : second.number,
                 monthFirst ? second.number : first.number);
    }

    void SetCivil(int year, int month, int day) {
        mMoment.year = year;
        mMoment.month = month;
        mMoment.day = day;
        mBad = mBad || year < 100 || month < 1 || month > 12 || day < 1 || day > 31;
    }

    bool ReadTime() {
        if (!IsNumber(0)) return false;
        mMoment.hour = mPieces[mAt++].number;
        mMoment.minute = 0;
        mMoment.second = 0;
        bool colon = false;
        for (int* part : {&mMoment.minute, &mMoment.second}) {
            if (!IsMark(0, ':') || !IsNumber(1)) break;
            *part = mPieces[mAt + 1].number;
            mAt += 2;
            colon = true;
        }
        const bool half = ReadHalfDay();
        mBad = mBad || (!colon && !half) || mMoment.hour > 23 || mMoment.minute > 59 || mMoment.second > 59;
        return true;
    }

    bool ReadHalfDay() {
        const Piece* piece = Peek();
        if (piece == nullptr || piece->type != Piece::Type::Word) return false;
        const bool afternoon =
            SameName(piece->word, "pm") || SameName(piece->word, "p") || piece->word == ArabicNames().pm;
        const bool morning =
            SameName(piece->word, "am") || SameName(piece->word, "a") || piece->word == ArabicNames().am;
        if (!afternoon && !morning) return false;
        ++mAt;
        mBad = mBad || mMoment.hour > 12;
        if (afternoon && mMoment.hour < 12) mMoment.hour += 12;
        if (morning && mMoment.hour == 12) mMoment.hour = 0;
        return true;
    }

    const std::vector<Piece>& mPieces;
    DateOrder mOrder;
    std::size_t mAt = 0;
    bool mBad = false;
    Moment mMoment;
};

} // namespace

std::optional<double> ParseDateText(std::string_view text, DateOrder order) {
    const std::optional<std::vector<Piece>> pieces = Split(text);
    if (!pieces || pieces->empty()) return std::nullopt;
    return Reader(*pieces, order).Read();
}

} // namespace qbrpt::dialect
