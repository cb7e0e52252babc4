#include "base/decimal.h"
#include "base/latin.h"
#include "base/numbers.h"
#include "base/pictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace qbrpt {

namespace {

enum class Part : std::uint8_t { Literal, Whole, Fraction, Point, Exponent };

struct Piece {
    Part part = Part::Literal;
    bool zero = false; ///< a "0", which always prints; a "#" prints only digits that count
    std::string text;  ///< literal, or the exponent's sign rule and zeros
};

// One section of a picture, read into its pieces.
struct Section {
    std::vector<Piece> pieces;
    int wholePlaces = 0;
    int wholeMinimum = 0;
    int fractionPlaces = 0;
    int fractionMinimum = 0;
    int thousands = 0; ///< commas that divide by 1000
    int percents = 0;
    bool grouped = false;
    bool hasPoint = false;
    bool hasExponent = false;
};

class SectionReader {
public:
    explicit SectionReader(std::string_view text) : mText(text) {}

    Section Read() {
        while (mAt < mText.size())
            ReadOne();
        if (mCommas > 0) mSection.thousands += mCommas;
        return std::move(mSection);
    }

private:
    void Literal(std::string_view text) {
        mSection.pieces.push_back({Part::Literal, false, std::string(text)});
    }

    void ReadOne() {
        const char c = mText[mAt];
        if (c == '"') return ReadQuoted();
        if (c == '\\') {
            if (mAt + 1 < mText.size()) Literal(mText.substr(mAt + 1, 1));
            mAt += 2;
            return;
        }
        if ((c == 'E' || c == 'e') && ReadExponent()) return;
        ++mAt;
        switch (c) {
        case '0':
        case '#':
            return ReadPlace(c == '0');
        case ',':
            if (mSection.wholePlaces + mSection.fractionPlaces > 0) ++mCommas;
            return;
        case '.':
            if (mSection.hasPoint) return Literal(".");
            mSection.thousands += mCommas;
            mCommas = 0;
            mSection.hasPoint = true;
            mSection.pieces.push_back({Part::Point, false, "."});
            return;
        case '%':
            ++mSection.percents;
            return Literal("%");
        default:
            return Literal(std::string_view(&mText[mAt - 1], 1));
        }
    }

    void ReadQuoted() {
        const std::size_t end = mText.find('"', mAt + 1);
        const std::size_t stop = end == std::string_view::npos ? mText.size() : end;
        Literal(mText.substr(mAt + 1, stop - mAt - 1));
        mAt = stop + 1;
    }

    void ReadPlace(bool zero) {
        if (mSection.hasPoint) {
            mCommas = 0; // there is nothing to group behind the point
            ++mSection.fractionPlaces;
            if (zero) mSection.fractionMinimum = mSection.fractionPlaces;
            mSection.pieces.push_back({Part::Fraction, zero, {}});
            return;
        }
        if (mCommas > 0) { // a comma between places asks for grouping
            mSection.grouped = true;
            mCommas = 0;
        }
        ++mSection.wholePlaces;
        if (zero || mSection.wholeMinimum > 0) ++mSection.wholeMinimum;
        mSection.pieces.push_back({Part::Whole, zero, {}});
    }

    bool ReadExponent() {
        if (mAt + 2 >= mText.size() || mSection.hasExponent) return false;
        const char sign = mText[mAt + 1];
        if ((sign != '+' && sign != '-') || (mText[mAt + 2] != '0' && mText[mAt + 2] != '#')) return false;
        std::size_t end = mAt + 2;
        while (end < mText.size() && (mText[end] == '0' || mText[end] == '#'))
            ++end;
        mSection.hasExponent = true;
        mSection.pieces.push_back({Part::Exponent, false, std::string(mText.substr(mAt, end - mAt))});
        mAt = end;
        return true;
    }

    std::string_view mText;
    std::size_t mAt = 0;
    int mCommas = 0;
    Section mSection;
};

std::vector<std::string_view> SplitSections(std::string_view picture) {
    std::vector<std::string_view> sections;
    std::size_t start = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < picture.size(); ++i) {
        if (picture[i] == '"') quoted = !quoted;
        if (picture[i] == '\\' && !quoted)
            ++i;
        else if (picture[i] == ';' && !quoted) {
            sections.push_back(picture.substr(start, i - start));
            start = i + 1;
        }
    }
    sections.push_back(picture.substr(std::min(start, picture.size())));
    return sections;
}

void AppendGroupedDigit(std::string& out, const Decimal& number, int power, bool grouped) {
    out.push_back(number.DigitAt(power));
    if (grouped && power > 0 && power % 3 == 0) out.push_back(',');
}

void AppendWhole(std::string& out, const Decimal& number, const Section& section, int place, bool first) {
    const int length = std::max(number.exponent, 0);
    if (first) {
        for (int power = std::max(length, place + 1) - 1; power > place; --power)
            AppendGroupedDigit(out, number, power, section.grouped);
    }
    if (place < length || place < section.wholeMinimum)
        AppendGroupedDigit(out, number, place, section.grouped);
}

void AppendExponent(std::string& out, const std::string& rule, int exponent) {
    out.push_back(rule[0]);
    if (exponent < 0)
        out.push_back('-');
    else if (rule[1] == '+')
        out.push_back('+');
    std::string digits = std::to_string(std::abs(exponent));
    const std::size_t minimum = static_cast<std::size_t>(std::count(rule.begin() + 2, rule.end(), '0'));
    if (digits.size() < minimum) digits.insert(0, minimum - digits.size(), '0');
    out += digits;
}

// Prints a number that was rounded for this section already.
std::string Print(const Decimal& number, const Section& section, int exponent) {
    std::string out;
    int place = section.wholePlaces;
    int fraction = 0;
    const int fractionDigits = std::max(
        section.fractionMinimum, std::max(0, static_cast<int>(number.digits.size()) - number.exponent));
    for (const Piece& piece : section.pieces) {
        switch (piece.part) {
        case Part::Literal:
            out += piece.text;
            break;
        case Part::Whole:
            --place;
            AppendWhole(out, number, section, place, place == section.wholePlaces - 1);
            break;
        case Part::Point:
            if (section.wholePlaces == 0) AppendWhole(out, number, section, 0, true);
            out.push_back('.');
            break;
        case Part::Fraction:
            if (++fraction <= fractionDigits) out.push_back(number.DigitAt(-fraction));
            break;
        case Part::Exponent:
            AppendExponent(out, piece.text, exponent);
            break;
        }
    }
    return out;
}

std::string FormatSection(Decimal number, std::string_view picture, bool ownSign) {
    const Section section = SectionReader(picture).Read();
    int exponent = 0;
    if (!number.IsZero()) number.exponent += 2 * section.percents - 3 * section.thousands;
    if (section.hasExponent && !number.IsZero()) {
        const int wanted = std::max(section.wholePlaces, 1);
        exponent = number.exponent - wanted;
        number.exponent = wanted;
        number.Round(section.fractionPlaces);
        if (number.exponent > wanted) { // 9.995 became 10.00
            --number.exponent;
            ++exponent;
        }
    } else {
        number.Round(section.fractionPlaces);
    }
    std::string text = Print(number, section, exponent);
    return number.negative && !ownSign ? "-" + text : text;
}

struct NamedPicture {
    std::string_view name;
    std::string_view picture;
};

constexpr std::array<NamedPicture, 8> NamedPictures = {{{"Currency", "#,##0.00"},
                                                        {"Fixed", "0.00"},
                                                        {"Standard", "#,##0.00"},
                                                        {"Percent", "0.00%"},
                                                        {"Scientific", "0.00E+00"},
                                                        {"Yes/No", R"("Yes";"Yes";"No")"},
                                                        {"True/False", R"("True";"True";"False")"},
                                                        {"On/Off", R"("On";"On";"Off")"}}};

} // namespace

std::string FormatNumber(double value, std::string_view picture) {
    if (!std::isfinite(value)) return {};
    if (picture.empty() || SameAnyCase(picture, "General Number")) return DecimalText(value);
    const auto* named =
        std::find_if(NamedPictures.begin(), NamedPictures.end(),
                     [picture](const NamedPicture& entry) { return SameAnyCase(entry.name, picture); });
    const std::vector<std::string_view> sections =
        SplitSections(named == NamedPictures.end() ? picture : named->picture);
    const Decimal number = DecimalOf(value);
    std::size_t chosen = 0;
    if (number.negative && sections.size() > 1) chosen = 1;
    if (number.IsZero() && sections.size() > 2) chosen = 2;
    if (sections[chosen].empty()) chosen = 0; // an empty section prints by the first one
    return FormatSection(number, sections[chosen], chosen == 1);
}

} // namespace qbrpt
