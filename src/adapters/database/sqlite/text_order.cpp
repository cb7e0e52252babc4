#include "adapters/database/sqlite/text_order.h"

#include "base/failure.h"
#include "base/utf8.h"

#include <unicode/ucol.h>
#include <unicode/ucoleitr.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <cstdint>
#include <string>

namespace qbrpt::database {

namespace {

constexpr std::size_t TableSize =
    0x680; // all characters that RankAt looks up, to the end of the lead byte D9

// Some characters count as several letters (an alef with madda as two alefs); a table of one rank each has no
// place for them.
bool IsOneLetter(const UCollator* collator, char32_t character) {
    const auto unit = static_cast<UChar>(character);
    UErrorCode status = U_ZERO_ERROR;
    UCollationElements* elements = ucol_openElements(collator, &unit, 1, &status);
    int count = 0;
    while (ucol_next(elements, &status) != UCOL_NULLORDER)
        ++count;
    ucol_closeElements(elements);
    return U_SUCCESS(status) != 0 && count == 1;
}

// Characters that stand for themselves: letters with no mark behind them that could change their place.
std::vector<std::string> PlainCharacters(const UCollator* collator) {
    std::vector<std::string> plain;
    const auto add = [&](char32_t first, char32_t last) {
        for (char32_t character = first; character <= last; ++character)
            if (IsOneLetter(collator, character)) AppendCharacter(plain.emplace_back(), character);
    };
    add(U' ', U' ');
    add(U'0', U'9');
    add(U'A', U'Z');
    add(U'a', U'z');
    add(0x621, 0x63A); // hamza to ghain
    add(0x641, 0x64A); // feh to yeh
    return plain;
}

int CompareBy(const UCollator* collator, std::string_view a, std::string_view b) {
    UErrorCode status = U_ZERO_ERROR;
    return ucol_strcollUTF8(collator, a.data(), static_cast<std::int32_t>(a.size()), b.data(),
                            static_cast<std::int32_t>(b.size()), &status);
}

} // namespace

void TextOrder::Closer::operator()(UCollator* collator) const {
    ucol_close(collator);
}

TextOrder::Collator TextOrder::Open(bool marks) {
    UErrorCode status = U_ZERO_ERROR;
    Collator collator(ucol_open("ar", &status));
    if (U_FAILURE(status) != 0)
        throw Failure(FailureNumber::DatabaseEngine,
                      std::string("The order of Arabic text is not there (ICU: ") + u_errorName(status) +
                          "). Install the ICU data.");
    ucol_setStrength(collator.get(), marks ? UCOL_SECONDARY : UCOL_PRIMARY);
    return collator;
}

TextOrder::TextOrder() : mRules(Open(true)), mRanks(TableSize) {
    FillRanks();
}

TextOrder::~TextOrder() = default;

void TextOrder::FillRanks() {
    const Collator letters = Open(false);
    std::vector<std::string> plain = PlainCharacters(mRules.get());
    std::stable_sort(plain.begin(), plain.end(), [this](const std::string& a, const std::string& b) {
        return CompareBy(mRules.get(), a, b) < 0;
    });
    Rank rank{1, 0};
    for (std::size_t i = 0; i < plain.size(); ++i) {
        if (i > 0 && CompareBy(letters.get(), plain[i - 1], plain[i]) != 0)
            rank = {++rank.letter, 0};
        else if (i > 0 && CompareBy(mRules.get(), plain[i - 1], plain[i]) != 0)
            ++rank.mark;
        std::size_t position = 0;
        mRanks[NextCharacter(plain[i], position)] = rank;
    }
}

TextOrder::Rank TextOrder::RankAt(std::string_view text, std::size_t& position) const {
    const auto lead = static_cast<unsigned char>(text[position]);
    if (lead < 0x80U) {
        ++position;
        return mRanks[lead];
    }
    // The table ends inside the two-byte characters.
    if (position + 1 >= text.size() || lead < 0xD8U || lead > 0xD9U) return {};
    const auto next = static_cast<unsigned char>(text[position + 1]);
    if ((next & 0xC0U) != 0x80U) return {};
    position += 2;
    return mRanks[((lead & 0x1FU) << 6U) | (next & 0x3FU)];
}

// A mark behind a letter can change the letter's place, so a difference counts only where none follows.
bool TextOrder::SettledAt(std::string_view text, std::size_t position) const {
    return position >= text.size() || RankAt(text, position).letter != 0;
}

int TextOrder::Compare(std::string_view a, std::string_view b) const {
    if (a == b) return 0;
    std::size_t i = 0;
    std::size_t j = 0;
    int byMark = 0;
    while (i < a.size() && j < b.size()) {
        const Rank x = RankAt(a, i);
        const Rank y = RankAt(b, j);
        if (x.letter == 0 || y.letter == 0) return CompareByRules(a, b);
        if (x.letter != y.letter) {
            if (!SettledAt(a, i) || !SettledAt(b, j)) return CompareByRules(a, b);
            return x.letter < y.letter ? -1 : 1;
        }
        if (byMark == 0 && x.mark != y.mark) byMark = x.mark < y.mark ? -1 : 1;
    }
    if (i == a.size() && j == b.size()) return byMark;
    // What is left over may be marks, or nothing that counts at all.
    if (!SettledAt(a, i) || !SettledAt(b, j)) return CompareByRules(a, b);
    return i == a.size() ? -1 : 1;
}

int TextOrder::CompareByRules(std::string_view a, std::string_view b) const {
    return CompareBy(mRules.get(), a, b);
}

std::string TextOrder::KeyOf(std::string_view text) const {
    constexpr std::size_t usualKey = 64;
    UErrorCode status = U_ZERO_ERROR;
    std::int32_t length = 0;
    std::u16string wide(text.size(), u'\0');
    u_strFromUTF8WithSub(wide.data(), static_cast<std::int32_t>(wide.size()), &length, text.data(),
                         static_cast<std::int32_t>(text.size()), ReplacementCharacter, nullptr, &status);
    std::string key(usualKey, '\0');
    const auto fill = [&] {
        return static_cast<std::size_t>(ucol_getSortKey(mRules.get(), wide.data(), length,
                                                        reinterpret_cast<std::uint8_t*>(key.data()),
                                                        static_cast<std::int32_t>(key.size())));
    };
    const std::size_t needed = fill();
    const bool fitted = needed <= key.size();
    key.resize(needed);
    if (!fitted) (void)fill();
    key.pop_back(); // the zero at its end
    return key;
}

const TextOrder& TextOrder::Shared() {
    static const TextOrder order;
    return order;
}

} // namespace qbrpt::database
