#include "adapters/text/figure_runs.h"

#include "adapters/text/characters.h"

#include <algorithm>

namespace qbrpt::text {

namespace {

bool IsDigit(char32_t c) {
    return IsAsciiDigit(c) || IsArabicDigit(c);
}

bool IsBody(char32_t c) {
    return IsDigit(c) || IsAsciiLetter(c);
}

bool IsSign(char32_t c) {
    return c == U'-' || c == U'+' || c == U'.' || c == U'#' || c == U'$' || c == 0x2212 || c == 0x00B1;
}

// Holds two parts of one figure or code together.
bool IsJoiner(char32_t c) {
    constexpr std::u32string_view joiners = U"-/:.,_@#+%&=?~\\*'";
    return joiners.find(c) != std::u32string_view::npos || c == 0x2212 || c == 0x066B || c == 0x066C;
}

bool IsTail(char32_t c) {
    return c == U'%' || c == U'+' || c == U'#' || c == U'$' || c == 0x00B0 || c == 0x066A;
}

class Scanner {
public:
    explicit Scanner(std::u32string_view text) : mText(text) {}

    // The stretch that begins at `first`, or one of length 0.
    [[nodiscard]] FigureRun At(std::size_t first) const {
        std::size_t end = first;
        const bool signedFigure = IsSign(mText[first]) && first + 1 < mText.size() &&
                                  IsDigit(mText[first + 1]) && (first == 0 || StandsApart(mText[first - 1]));
        if (signedFigure) ++end;
        if (!IsBody(mText[end])) return {first, 0, false};
        const bool isolated = signedFigure || IsDigit(mText[end]);
        end = BodyEnd(end);
        while (end < mText.size() && IsTail(mText[end]))
            ++end;
        if (end + 1 < mText.size() && mText[end] == U' ' && mText[end + 1] == U'%' &&
            (end + 2 == mText.size() || !IsBody(mText[end + 2])))
            end += 2;
        return {first, end - first, isolated};
    }

private:
    static bool StandsApart(char32_t c) { return !IsBody(c) && !IsArabic(c) && !IsAttached(c); }

    [[nodiscard]] std::size_t BodyEnd(std::size_t end) const {
        while (end < mText.size()) {
            std::size_t next = end;
            while (next < mText.size() && next - end < 3 && IsJoiner(mText[next]))
                ++next;
            if (next >= mText.size() || !IsBody(mText[next])) break;
            end = next + 1;
        }
        return end;
    }

    std::u32string_view mText;
};

struct Shape {
    std::size_t digits = 0;
    bool date = false;  // digits with two "/" or "-"
    bool clock = false; // digits with ":"
    bool plain = true;  // digits only, a leading "+" apart
    bool unit = true;   // up to three letters only
};

Shape ShapeOf(std::u32string_view run) {
    Shape shape;
    std::size_t slashes = 0;
    bool letters = false;
    for (std::size_t i = 0; i < run.size(); ++i) {
        const char32_t c = run[i];
        if (IsDigit(c)) ++shape.digits;
        letters = letters || IsAsciiLetter(c);
        if (c == U'/' || c == U'-') ++slashes;
        if (c == U':') shape.clock = true;
        if (!IsDigit(c) && !(i == 0 && c == U'+')) shape.plain = false;
        if (!IsAsciiLetter(c)) shape.unit = false;
    }
    shape.date = slashes == 2 && !shape.clock && !letters;
    shape.clock = shape.clock && !letters;
    shape.unit = shape.unit && run.size() <= 3;
    return shape;
}

bool OneBlankBetween(std::u32string_view text, const FigureRun& left, const FigureRun& right) {
    const std::size_t end = left.first + left.length;
    return right.first == end + 1 && text[end] == U' ';
}

// Puts digit groups that make up one phone number together: two digits a group at least, seven in all.
std::size_t PhoneGroups(std::u32string_view text, const std::vector<FigureRun>& runs, std::size_t index) {
    std::size_t digits = 0;
    std::size_t count = 0;
    for (std::size_t i = index; i < runs.size(); ++i, ++count) {
        const Shape shape = ShapeOf(text.substr(runs[i].first, runs[i].length));
        if (!shape.plain || shape.digits < 2) break;
        if (i > index && !OneBlankBetween(text, runs[i - 1], runs[i])) break;
        digits += shape.digits;
    }
    return count >= 2 && digits >= 7 ? count : 1;
}

bool BelongTogether(std::u32string_view text, const FigureRun& left, const FigureRun& right) {
    if (!left.isolated || !OneBlankBetween(text, left, right)) return false;
    const Shape a = ShapeOf(text.substr(left.first, left.length));
    const Shape b = ShapeOf(text.substr(right.first, right.length));
    return (a.date && b.clock) || (a.clock && b.date) || (a.digits > 0 && b.unit);
}

} // namespace

std::vector<FigureRun> FindFigureRuns(std::u32string_view text) {
    std::vector<FigureRun> found;
    const Scanner scanner(text);
    for (std::size_t i = 0; i < text.size();) {
        const FigureRun run = scanner.At(i);
        if (run.length > 0) found.push_back(run);
        i += std::max<std::size_t>(run.length, 1);
    }
    std::vector<FigureRun> runs;
    for (std::size_t i = 0; i < found.size();) {
        const std::size_t groups = PhoneGroups(text, found, i);
        FigureRun run = found[i];
        const FigureRun& last = found[i + groups - 1];
        run.length = last.first + last.length - run.first;
        i += groups;
        if (i < found.size() && BelongTogether(text, run, found[i])) {
            run.length = found[i].first + found[i].length - run.first;
            ++i;
        }
        // Behind a word of Latin letters a number is part of its phrase: "Windows 10 Pro".
        if (!runs.empty() && !runs.back().isolated && OneBlankBetween(text, runs.back(), run))
            run.isolated = false;
        runs.push_back(run);
    }
    return runs;
}

} // namespace qbrpt::text
