#include "text/text_help.h"

#include <gmock/gmock.h>

#include <numeric>

namespace qbrpt::text {
namespace {

using namespace test;
using report::Twips;
using testing::ElementsAre;

class Wrap : public testing::Test {
protected:
    std::vector<std::string> Lines(std::string_view text, Twips width) {
        return LinesRightToLeft(*engine.Layout(text, style, width, BaseDirection::RightToLeft));
    }
    Twips Width(std::string_view text) { return engine.Width(text, style, BaseDirection::RightToLeft); }

    TextEngine engine;
    report::StyleId style = engine.Style(Body);
};

TEST_F(Wrap, BreaksAtBlanks) {
    const Twips two = Width("محمد بن");
    EXPECT_THAT(Lines("محمد بن علي السالم", two), ElementsAre("محمد بن", "علي", "السالم"));
    EXPECT_THAT(Lines("محمد بن علي", two - 1), ElementsAre("محمد", "بن علي"));
}

TEST_F(Wrap, ZeroWidthMeansOneLine) {
    EXPECT_THAT(Lines("محمد بن علي", 0), ElementsAre("محمد بن علي"));
}

TEST_F(Wrap, NoLineIsWiderThanAsked) {
    const std::string text = "شارع الميناء، بجوار مكتبة الواحة هاتف 44 501 55 مفتوح من 09:00 إلى 02:00";
    for (Twips width = 600; width < 6000; width += 97) {
        SCOPED_TRACE(width);
        const auto block = engine.Layout(text, style, width, BaseDirection::RightToLeft);
        for (const report::TextLine& line : block->lines)
            EXPECT_LE(line.width, width);
        EXPECT_LE(block->width, width);
    }
}

TEST_F(Wrap, LineFeedsBeginLines) {
    EXPECT_THAT(Lines("محمد\nعلي", 0), ElementsAre("محمد", "علي"));
    EXPECT_THAT(Lines("محمد\r\nعلي\rخالد", 0), ElementsAre("محمد", "علي", "خالد"));
    EXPECT_THAT(Lines("محمد\n\nعلي", 0), ElementsAre("محمد", "", "علي"));
    EXPECT_THAT(Lines("محمد\n\n", 0), ElementsAre("محمد")) << "empty lines at the end are none";
}

TEST_F(Wrap, EmptyTextHasNoLine) {
    for (const char* text : {"", " ", "   \n  ", "\t", "\x01\x02"}) {
        SCOPED_TRACE(text);
        const auto block = engine.Layout(text, style, 1000, BaseDirection::RightToLeft);
        EXPECT_TRUE(block->lines.empty());
        EXPECT_EQ(block->width, 0);
        EXPECT_EQ(Width(text), 0);
    }
}

TEST_F(Wrap, BlanksAtTheEdgesTakeNoRoom) {
    EXPECT_EQ(Width("  محمد علي   "), Width("محمد علي"));
    EXPECT_EQ(engine.Layout(" محمد ", style, 0, BaseDirection::RightToLeft)->width, Width("محمد"));
    EXPECT_GT(Width("محمد  علي"), Width("محمد علي")) << "those inside do";
}

TEST_F(Wrap, TabIsABlankAndControlsVanish) {
    EXPECT_EQ(Width("محمد\tعلي"), Width("محمد علي"));
    EXPECT_THAT(Lines("محـ\x01\x7Fمد\xEF\xBB\xBF", 0), ElementsAre("محـمد"));
}

TEST_F(Wrap, AWordTooWideBreaksBetweenLetters) {
    const std::string word = "فأسقيناكموهافأسقيناكموها";
    const Twips width = Width(word) / 3;
    const std::vector<std::string> lines = Lines(word, width);
    EXPECT_GE(lines.size(), 3U);
    EXPECT_EQ(std::accumulate(lines.begin(), lines.end(), std::string()), word);
    const auto block = engine.Layout(word, style, width, BaseDirection::RightToLeft);
    for (const report::TextLine& line : block->lines)
        EXPECT_LE(line.width, width);
}

TEST_F(Wrap, LettersKeepTheirJoinedFormsAcrossABreak) {
    const std::string word = "ببببببببب";
    const auto whole = GlyphsOf(*engine.Layout(word, style, 0, BaseDirection::RightToLeft));
    const auto cut = engine.Layout(word, style, Width(word) / 2, BaseDirection::RightToLeft);
    ASSERT_GE(cut->lines.size(), 2U);
    std::vector<std::uint16_t> glyphs; // in reading order
    for (const report::TextLine& line : cut->lines)
        for (const report::PlacedWord& placed : line.words)
            for (const report::GlyphRun& run : placed.word->runs)
                for (auto glyph = run.glyphs.rbegin(); glyph != run.glyphs.rend(); ++glyph)
                    glyphs.push_back(glyph->id);
    std::vector<std::uint16_t> expected;
    for (auto glyph = whole.rbegin(); glyph != whole.rend(); ++glyph)
        expected.push_back(glyph->id);
    EXPECT_EQ(glyphs, expected);
}

TEST_F(Wrap, LigaturesAndMarksAreNotCut) {
    for (const std::string& line : Lines("لالالالالا", Width("لا") + 10)) {
        SCOPED_TRACE(line);
        EXPECT_EQ(line, "لا");
    }
    for (const std::string& line : Lines("بَّبَّبَّبَّ", Width("بب"))) {
        SCOPED_TRACE(line);
        EXPECT_EQ(line.substr(0, 2), "ب");
    }
}

TEST_F(Wrap, NarrowerThanALetterStillEnds) {
    EXPECT_EQ(Lines("محمد", 1).size(), 4U);
    EXPECT_EQ(Lines("2025", 1).size(), 4U);
}

TEST_F(Wrap, WidthIsTheWidthOfLayout) {
    for (const char* text : {"محمد بن علي", "رصيد -0.35 فقط", "a\nمحمد علي", "مُسدَّدًا", "1,234.50", "x  y"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(Width(text), engine.Layout(text, style, 0, BaseDirection::RightToLeft)->width);
    }
}

TEST_F(Wrap, AVeryLongWordIsLaidOut) {
    std::string text;
    for (int i = 0; i < 60000; ++i)
        text += "سلام";
    const auto block = engine.Layout(text, style, 9000, BaseDirection::RightToLeft);
    EXPECT_GT(block->lines.size(), 1000U);
    std::string all;
    for (const std::string& line : LinesRightToLeft(*block))
        for (const char c : line)
            if (c != ' ') all.push_back(c);
    EXPECT_EQ(all, text);
}

} // namespace
} // namespace qbrpt::text
