#include "adapters/text/order.h"

#include "adapters/text/characters.h"
#include "adapters/text/figure_runs.h"
#include "base/failure.h"

#include <fribidi.h>

#include <algorithm>
#include <limits>
#include <numeric>

namespace qbrpt::text {

namespace {

constexpr char32_t LeftToRightIsolate = 0x2066;
constexpr char32_t PopIsolate = 0x2069;

// Arabic, figures, blanks and ASCII marks: nearly every text of a report. All of it reads from right to left
// but the figures, each shut off; the whole algorithm would find no more.
bool ResolvePlain(const std::u32string& characters, std::vector<Level>& levels) {
    bool figures = false;
    for (const char32_t c : characters) {
        const bool digit = IsAsciiDigit(c) || IsArabicDigit(c);
        if (!digit && !IsArabic(c) && (c >= 0x80 || IsAsciiLetter(c))) return false;
        figures = figures || digit;
    }
    levels.assign(characters.size(), 1);
    if (!figures) return true;
    for (const FigureRun& run : FindFigureRuns(characters))
        std::fill_n(levels.begin() + static_cast<std::ptrdiff_t>(run.first), run.length, Level{2});
    return true;
}

// The paragraph as the algorithm sees it: figure runs shut off by isolates, their characters strong.
struct Marked {
    std::vector<FriBidiChar> characters;
    std::vector<FriBidiCharType> types;
    std::vector<bool> added;
};

Marked MarkFigures(const std::u32string& characters) {
    const std::vector<FigureRun> runs = FindFigureRuns(characters);
    Marked marked;
    std::vector<bool> strong;
    const auto put = [&](char32_t c, bool isStrong, bool isAdded) {
        marked.characters.push_back(c);
        strong.push_back(isStrong);
        marked.added.push_back(isAdded);
    };
    std::size_t next = 0;
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const bool inside = next < runs.size() && i >= runs[next].first;
        if (inside && i == runs[next].first && runs[next].isolated) put(LeftToRightIsolate, false, true);
        put(characters[i], inside, false);
        if (!inside || i + 1 < runs[next].first + runs[next].length) continue;
        if (runs[next].isolated) put(PopIsolate, false, true);
        ++next;
    }
    const auto count = static_cast<FriBidiStrIndex>(marked.characters.size());
    marked.types.resize(marked.characters.size());
    fribidi_get_bidi_types(marked.characters.data(), count, marked.types.data());
    for (std::size_t i = 0; i < strong.size(); ++i) {
        if (strong[i]) marked.types[i] = FRIBIDI_TYPE_LTR;
        // A separator ends a paragraph for the algorithm; the reader has cut at all that end one here.
        if (marked.types[i] == FRIBIDI_TYPE_BS) marked.types[i] = FRIBIDI_TYPE_WS;
    }
    return marked;
}

} // namespace

void ResolveLevels(std::u32string& characters, report::BaseDirection base, std::vector<Level>& levels) {
    const bool rightToLeft = base == report::BaseDirection::RightToLeft;
    if (rightToLeft && ResolvePlain(characters, levels)) return;
    Marked marked = MarkFigures(characters);
    const std::size_t size = marked.characters.size();
    if (size > static_cast<std::size_t>(std::numeric_limits<FriBidiStrIndex>::max()))
        throw Failure(FailureNumber::Report, "a text is too long to be laid out");
    const auto count = static_cast<FriBidiStrIndex>(size);
    std::vector<FriBidiBracketType> brackets(size);
    fribidi_get_bracket_types(marked.characters.data(), count, marked.types.data(), brackets.data());
    std::vector<FriBidiLevel> found(size);
    FriBidiParType direction = rightToLeft ? FRIBIDI_PAR_RTL : FRIBIDI_PAR_LTR;
    if (fribidi_get_par_embedding_levels_ex(marked.types.data(), brackets.data(), count, &direction,
                                            found.data()) == 0)
        throw Failure(FailureNumber::Report, "the order of a text could not be found (out of memory)");
    characters.clear();
    levels.clear();
    for (std::size_t i = 0; i < size; ++i) {
        if (marked.added[i] || IsOrderMark(marked.characters[i])) continue;
        characters.push_back(marked.characters[i]);
        levels.push_back(static_cast<Level>(std::max<FriBidiLevel>(found[i], 0)));
    }
}

void DrawingOrder(const std::vector<Level>& levels, std::vector<std::size_t>& order) {
    order.resize(levels.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    if (levels.empty()) return;
    const auto reversed = [&](Level level) {
        for (std::size_t i = 0; i < levels.size();) {
            std::size_t end = i;
            while (end < levels.size() && levels[end] >= level)
                ++end;
            std::reverse(order.begin() + static_cast<std::ptrdiff_t>(i),
                         order.begin() + static_cast<std::ptrdiff_t>(end));
            i = std::max(end, i + 1);
        }
    };
    for (Level level = *std::max_element(levels.begin(), levels.end()); level > 0; --level)
        reversed(level);
}

} // namespace qbrpt::text
