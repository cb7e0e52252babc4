#include "base/failure.h"
#include "base/letters.h"
#include "base/utf8.h"
#include "dialect/convert.h"
#include "dialect/function_groups.h"
#include "dialect/letters.h"
#include "dialect/like.h"

#include <algorithm>
#include <array>

namespace qbrpt::dialect {

namespace {

constexpr int LongestText = 1 << 24; // bytes that a function may make

[[noreturn]] void RaiseArgument(const char* what) {
    throw Failure(FailureNumber::InvalidArgument, what);
}

std::size_t LengthOf(const Value& value) {
    const int length = SmallOf(value);
    if (length < 0) RaiseArgument("A length cannot be negative.");
    return static_cast<std::size_t>(length);
}

// Characters `start` (from 0) to `start + count`.
Value Slice(const std::string& text, std::size_t start, std::size_t count) {
    const std::string_view before = FirstCharacters(text, start);
    return std::string(FirstCharacters(std::string_view(text).substr(before.size()), count));
}

Value Length(Arguments a, const FunctionWorld&) {
    return WholeValue(static_cast<std::int64_t>(CharacterCount(TextOf(a[0]))));
}
Value Left(Arguments a, const FunctionWorld&) {
    return Slice(TextOf(a[0]), 0, LengthOf(a[1]));
}
Value Right(Arguments a, const FunctionWorld&) {
    const std::string text = TextOf(a[0]);
    const std::size_t all = CharacterCount(text);
    const std::size_t count = std::min(LengthOf(a[1]), all);
    return Slice(text, all - count, count);
}
Value Mid(Arguments a, const FunctionWorld&) {
    const int start = SmallOf(a[1]);
    if (start < 1) RaiseArgument("Mid counts characters from 1.");
    const std::string text = TextOf(a[0]);
    return Slice(text, static_cast<std::size_t>(start - 1), a.size() > 2 ? LengthOf(a[2]) : text.size());
}

std::string TrimBlanks(std::string text, bool left, bool right) {
    const std::size_t last = text.find_last_not_of(' ');
    if (right) text.erase(last == std::string::npos ? 0 : last + 1);
    if (left) text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
    return text;
}
Value Trim(Arguments a, const FunctionWorld&) {
    return TrimBlanks(TextOf(a[0]), true, true);
}
Value LTrim(Arguments a, const FunctionWorld&) {
    return TrimBlanks(TextOf(a[0]), true, false);
}
Value RTrim(Arguments a, const FunctionWorld&) {
    return TrimBlanks(TextOf(a[0]), false, true);
}
Value UCase(Arguments a, const FunctionWorld&) {
    return ChangeLetters(TextOf(a[0]), CapitalLetter);
}
Value LCase(Arguments a, const FunctionWorld&) {
    return ChangeLetters(TextOf(a[0]), SmallLetter);
}

// Texts compare without regard to case; a last argument of 0 asks for the exact letters.
bool Folds(Arguments a, std::size_t index) {
    return a.size() <= index || SmallOf(a[index]) != 0;
}

Value InStr(Arguments a, const FunctionWorld&) {
    const std::size_t first = a.size() > 2 ? 1 : 0;
    const int start = a.size() > 2 ? SmallOf(a[0]) : 1;
    if (start < 1) RaiseArgument("InStr counts characters from 1.");
    const bool fold = Folds(a, 3);
    const std::vector<char32_t> text = CharactersOf(TextOf(a[first]), fold);
    const std::vector<char32_t> wanted = CharactersOf(TextOf(a[first + 1]), fold);
    if (static_cast<std::size_t>(start) > text.size()) return WholeValue(0);
    const auto found = std::search(text.begin() + start - 1, text.end(), wanted.begin(), wanted.end());
    return WholeValue(found == text.end() && !wanted.empty() ? 0 : found - text.begin() + 1);
}
Value InStrRev(Arguments a, const FunctionWorld&) {
    const std::vector<char32_t> text = CharactersOf(TextOf(a[0]), true);
    const std::vector<char32_t> wanted = CharactersOf(TextOf(a[1]), true);
    if (wanted.empty()) return WholeValue(static_cast<std::int64_t>(text.size()));
    const auto found = std::find_end(text.begin(), text.end(), wanted.begin(), wanted.end());
    return WholeValue(found == text.end() ? 0 : found - text.begin() + 1);
}

// Replace(text, find, by[, start[, count[, compare]]]): what lies before `start` is cut off.
Value Replace(Arguments a, const FunctionWorld&) {
    const bool fold = Folds(a, 5);
    const std::vector<char32_t> text = CharactersOf(TextOf(a[0]), false);
    const std::vector<char32_t> shape = CharactersOf(TextOf(a[0]), fold);
    const std::vector<char32_t> wanted = CharactersOf(TextOf(a[1]), fold);
    const std::string by = TextOf(a[2]);
    const int start = a.size() > 3 ? SmallOf(a[3]) : 1;
    if (start < 1) RaiseArgument("Replace counts characters from 1.");
    int left = a.size() > 4 ? SmallOf(a[4]) : -1;
    std::string result;
    for (auto at = static_cast<std::size_t>(start - 1); at < text.size();) {
        const bool here =
            left != 0 && !wanted.empty() && at + wanted.size() <= shape.size() &&
            std::equal(wanted.begin(), wanted.end(), shape.begin() + static_cast<std::ptrdiff_t>(at));
        if (here) {
            result += by;
            at += wanted.size();
            --left;
        } else {
            AppendCharacter(result, text[at++]);
        }
        if (result.size() > LongestText) RaiseArgument("The text would be too long.");
    }
    return result;
}

Value StrComp(Arguments a, const FunctionWorld&) {
    const bool fold = Folds(a, 2);
    const std::vector<char32_t> left = CharactersOf(TextOf(a[0]), fold);
    const std::vector<char32_t> right = CharactersOf(TextOf(a[1]), fold);
    return WholeValue(left < right ? -1 : left == right ? 0 : 1);
}
Value StrReverse(Arguments a, const FunctionWorld&) {
    std::vector<char32_t> text = CharactersOf(TextOf(a[0]), false);
    std::reverse(text.begin(), text.end());
    std::string reversed;
    for (const char32_t character : text)
        AppendCharacter(reversed, character);
    return reversed;
}

std::string Repeated(const Value& count, char32_t character) {
    const std::size_t length = LengthOf(count);
    if (length > LongestText / 4) RaiseArgument("The text would be too long.");
    std::string text;
    for (std::size_t i = 0; i < length; ++i)
        AppendCharacter(text, character);
    return text;
}
Value Space(Arguments a, const FunctionWorld&) {
    return Repeated(a[0], U' ');
}

char32_t CharacterOfCode(const Value& value) {
    const int code = SmallOf(value);
    if (code < 1 || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        RaiseArgument("There is no character with this code.");
    return static_cast<char32_t>(code);
}
Value String(Arguments a, const FunctionWorld&) {
    if (KindOf(a[1]) != ValueKind::Text) return Repeated(a[0], CharacterOfCode(a[1]));
    const std::vector<char32_t> text = CharactersOf(TextOf(a[1]), false);
    if (text.empty()) RaiseArgument("String needs a character to repeat.");
    return Repeated(a[0], text.front());
}
Value Chr(Arguments a, const FunctionWorld&) {
    std::string text;
    AppendCharacter(text, CharacterOfCode(a[0]));
    return text;
}
Value Asc(Arguments a, const FunctionWorld&) {
    const std::vector<char32_t> text = CharactersOf(TextOf(a[0]), false);
    if (text.empty()) RaiseArgument("An empty text has no first character.");
    return WholeValue(static_cast<std::int64_t>(text.front()));
}
Value Like(Arguments a, const FunctionWorld&) {
    return WholeValue(IsLike(TextOf(a[0]), TextOf(a[1])) ? 1 : 0);
}

constexpr auto Functions = std::to_array<ScalarFunction>({
    {"qb_len", 1, 1, false, UnlessNull<Length>},
    {"qb_left", 2, 2, false, UnlessNull<Left>},
    {"qb_right", 2, 2, false, UnlessNull<Right>},
    {"qb_mid", 2, 3, false, UnlessNull<Mid>},
    {"qb_trim", 1, 1, false, UnlessNull<Trim>},
    {"qb_ltrim", 1, 1, false, UnlessNull<LTrim>},
    {"qb_rtrim", 1, 1, false, UnlessNull<RTrim>},
    {"qb_ucase", 1, 1, false, UnlessNull<UCase>},
    {"qb_lcase", 1, 1, false, UnlessNull<LCase>},
    {"qb_instr", 2, 4, false, UnlessNull<InStr>},
    {"qb_instrrev", 2, 2, false, UnlessNull<InStrRev>},
    {"qb_replace", 3, 6, false, UnlessNull<Replace>},
    {"qb_strcomp", 2, 3, false, UnlessNull<StrComp>},
    {"qb_strreverse", 1, 1, false, UnlessNull<StrReverse>},
    {"qb_space", 1, 1, false, UnlessNull<Space>},
    {"qb_string", 2, 2, false, UnlessNull<String>},
    {"qb_chr", 1, 1, false, UnlessNull<Chr>},
    {"qb_asc", 1, 1, false, UnlessNull<Asc>},
    {"qb_like", 2, 2, false, UnlessNull<Like>},
});

} // namespace

std::span<const ScalarFunction> TextFunctions() {
    return Functions;
}

} // namespace qbrpt::dialect
