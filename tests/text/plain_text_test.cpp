// A text that is cut by its bytes lies on the page as one that went through the whole algorithm.
#include "adapters/text/plain_text.h"
#include "text/text_help.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace qbrpt::text {
namespace {

using namespace test;
using report::TextLine;

struct Cut {
    const char* name;
    const char* text;
    bool plain;
    std::size_t pieces;
};

class PlainText : public testing::TestWithParam<Cut> {};

TEST_P(PlainText, IsToldFromItsBytes) {
    std::vector<PlainPiece> pieces;
    EXPECT_EQ(CutPlain(GetParam().text, pieces), GetParam().plain);
    if (GetParam().plain) {
        EXPECT_EQ(pieces.size(), GetParam().pieces);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Texts, PlainText,
    testing::Values(Cut{"nothing", "", true, 0}, Cut{"aName", "محمد علي", true, 3},
                    Cut{"aDay", "السبت 12 مارس 2016", true, 7}, Cut{"vowelMarks", "مُحَمَّد", true, 1},
                    Cut{"blanksAround", " محمد  7 ", true, 6},
                    Cut{"figuresSideBySide", "44 455 667", false, 0},
                    Cut{"figuresInAWord", "محمد7", false, 0}, Cut{"lettersBehindFigures", "7محمد", false, 0},
                    Cut{"latin", "محمد Ali", false, 0}, Cut{"comma", "محمد، علي", false, 0},
                    Cut{"questionMark", "محمد؟", false, 0}, Cut{"arabicDigits", "يوم ١٢", false, 0},
                    Cut{"percent", "12 %", false, 0}, Cut{"lineEnd", "محمد\nعلي", false, 0},
                    Cut{"tab", "محمد\tعلي", false, 0}, Cut{"halfALetter", "\xD8", false, 0},
                    Cut{"wrongSecondByte", "\xD8\x41", false, 0}, Cut{"letterMark", "\xD8\x9C", false, 0},
                    Cut{"noBreakBlank", "محمد\xC2\xA0علي", false, 0}),
    [](const auto& row) { return row.param.name; });

// A second line keeps a text from being taken as a plain one.
const TextLine& FirstLine(const report::TextBlock& block) {
    return block.lines.front();
}

TEST(PlainTexts, LieAsTheWholeAlgorithmLaysThem) {
    const unsigned seed = std::random_device{}();
    std::cout << "seed " << seed << '\n';
    std::mt19937 random(seed);
    constexpr std::array pieces = {"محمد", "السبت", "لا", "12", "2016", " ", "  ", "َ", "ـ", "7"};
    TextEngine engine;
    const report::StyleId style = engine.Style(Body);
    int plain = 0;
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        const std::size_t length = 1 + random() % 8;
        for (std::size_t i = 0; i < length; ++i)
            text += pieces[random() % pieces.size()];
        std::vector<PlainPiece> cut;
        if (!CutPlain(text, cut)) continue;
        const auto one = engine.Layout(text, style, 0, BaseDirection::RightToLeft);
        if (one->lines.empty()) continue;
        ++plain;
        const auto two = engine.Layout(text + "\nمحمد", style, 0, BaseDirection::RightToLeft);
        const TextLine& fast = FirstLine(*one);
        const TextLine& slow = FirstLine(*two);
        ASSERT_EQ(fast.width, slow.width) << text;
        ASSERT_EQ(fast.words.size(), slow.words.size()) << text;
        for (std::size_t i = 0; i < fast.words.size(); ++i) {
            EXPECT_EQ(fast.words[i].x, slow.words[i].x) << text;
            EXPECT_EQ(fast.words[i].word->text, slow.words[i].word->text) << text;
            EXPECT_EQ(fast.words[i].word->rightToLeft, slow.words[i].word->rightToLeft) << text;
        }
    }
    EXPECT_GT(plain, 300);
}

TEST(PlainTexts, KeepNoReadingOfAnotherStyleOrDirection) {
    TextEngine engine;
    const report::StyleId small = engine.Style(Body);
    const report::StyleId large = engine.Style({Body.family, 2 * Body.size, false});
    const auto width = [&](report::StyleId style, BaseDirection base) {
        return engine.Width("محمد 12", style, base);
    };
    const report::Twips before = width(small, BaseDirection::RightToLeft);
    EXPECT_GT(width(large, BaseDirection::RightToLeft), before);
    EXPECT_EQ(width(small, BaseDirection::LeftToRight), before);
    EXPECT_EQ(width(small, BaseDirection::RightToLeft), before);
    const auto first = [&](BaseDirection base) {
        return WordsLeftToRight(engine.Layout("محمد 12", small, 0, base)->lines.front()).front();
    };
    EXPECT_EQ(first(BaseDirection::RightToLeft), "12");
    EXPECT_EQ(first(BaseDirection::LeftToRight), "محمد");
}

} // namespace
} // namespace qbrpt::text
