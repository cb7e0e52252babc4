#include "text/text_help.h"

#include <gmock/gmock.h>

#include <cmath>

namespace qbrpt::text {
namespace {

using namespace test;
using testing::ElementsAre;

class Shaping : public testing::TestWithParam<const char*> {
protected:
    std::shared_ptr<const report::TextBlock> Lay(std::string_view text) {
        return engine.Layout(text, style, 0, BaseDirection::RightToLeft);
    }
    std::vector<report::Glyph> Glyphs(std::string_view text) { return GlyphsOf(*Lay(text)); }

    TextEngine engine;
    report::StyleId style = engine.Style({GetParam(), 200, false});
};

TEST_P(Shaping, LettersJoin) {
    const auto isolated = Glyphs("ب").at(0).id;
    const auto joined = Glyphs("ببب");
    ASSERT_EQ(joined.size(), 3U);
    EXPECT_NE(joined[0].id, isolated) << "final";
    EXPECT_NE(joined[1].id, isolated) << "medial";
    EXPECT_NE(joined[2].id, isolated) << "initial";
    EXPECT_NE(joined[0].id, joined[1].id);
    EXPECT_NE(joined[1].id, joined[2].id);
}

TEST_P(Shaping, LamAlefKeepsBothLetters) {
    const auto glyphs = Glyphs("لا");
    std::size_t letters = 0;
    for (const report::Glyph& glyph : glyphs)
        letters += glyph.textLength;
    EXPECT_EQ(letters, 4U) << "two letters of two bytes";
    if (glyphs.size() == 1) return;
    ASSERT_EQ(glyphs.size(), 2U) << "a square face draws them side by side";
    EXPECT_NE(glyphs[0].id, Glyphs("ا").at(0).id) << "the alef is joined";
}

TEST_P(Shaping, MarksTakeNoRoom) {
    EXPECT_EQ(engine.Width("مُحَمَّد", style, BaseDirection::RightToLeft),
              engine.Width("محمد", style, BaseDirection::RightToLeft));
}

TEST_P(Shaping, EveryLetterBelongsToOneGlyph) {
    for (const char* text :
         {"محمد", "الله", "اللّٰه", "لإسلام", "مُسدَّدًا", "شيءٌ", "محـمد", "abc", "09:00", "(علي)"}) {
        SCOPED_TRACE(text);
        const auto block = Lay(text);
        for (const report::PlacedWord& placed : block->lines.at(0).words) {
            std::vector<int> owners(placed.word->text.size(), 0);
            for (const report::GlyphRun& run : placed.word->runs)
                for (const report::Glyph& glyph : run.glyphs)
                    for (std::size_t i = 0; i < glyph.textLength; ++i)
                        ++owners.at(glyph.textStart + i);
            EXPECT_THAT(owners, testing::Each(1));
        }
    }
}

TEST_P(Shaping, AdvancesAddUpToTheWidth) {
    for (const char* text : {"محمد", "المسلماني", "2025", "PC-05"}) {
        SCOPED_TRACE(text);
        const auto block = Lay(text);
        double sum = 0;
        for (const report::PlacedWord& placed : block->lines.at(0).words)
            for (const report::GlyphRun& run : placed.word->runs)
                for (const report::Glyph& glyph : run.glyphs)
                    sum += double{glyph.advance} * run.size;
        EXPECT_NEAR(block->width, sum, 1);
    }
}

TEST_P(Shaping, BracketsAreMirrored) {
    const auto block = Lay("(علي)");
    const report::PlacedWord& word = block->lines.at(0).words.at(0);
    const report::GlyphRun& left = word.word->runs.front();
    const report::GlyphRun& right = word.word->runs.back();
    const FontFace& face = engine.Fonts().Face(left.face);
    EXPECT_EQ(left.glyphs.front().id, face.GlyphOf(U'('));
    EXPECT_EQ(right.glyphs.back().id, face.GlyphOf(U')'));
    EXPECT_EQ(word.word->text.substr(left.glyphs.front().textStart, 1), ")") << "reads as it was written";
}

TEST_P(Shaping, OneFaceForAWholeFigure) {
    for (const char* text : {"21/03/2025", "1,234.50", "-0.35", "011-4455667", "12.5%", "09:00"}) {
        SCOPED_TRACE(text);
        const auto block = Lay(text);
        ASSERT_EQ(block->lines.at(0).words.size(), 1U);
        EXPECT_EQ(block->lines[0].words[0].word->runs.size(), 1U);
        EXPECT_FALSE(block->lines[0].words[0].word->rightToLeft);
    }
}

TEST_P(Shaping, FiguresAreAsWideAsTextOfFigures) {
    const report::FigureFont& figures = engine.Figures(style);
    double width = 0;
    for (const char c : std::string_view("1,234.50"))
        width += double{figures.advance[static_cast<unsigned char>(c)]} * figures.size;
    EXPECT_NEAR(width, engine.Width("1,234.50", style, BaseDirection::RightToLeft), 1);
}

TEST_P(Shaping, DigitsAreEquallyWideAndHyphenIsAMinus) {
    const report::FigureFont& figures = engine.Figures(style);
    for (char c = '0'; c <= '9'; ++c) {
        EXPECT_NE(figures.glyph[static_cast<unsigned char>(c)], 0) << c;
        EXPECT_FLOAT_EQ(figures.advance[static_cast<unsigned char>(c)], figures.advance['0']) << c;
    }
    const FontFace& face = engine.Fonts().Face(figures.face);
    EXPECT_EQ(figures.glyph['-'], face.GlyphOf(face.Has(0x2212) ? 0x2212 : 0x2013));
    EXPECT_NE(figures.glyph['-'], face.GlyphOf(U'-'));
    EXPECT_GT(figures.advance['-'], face.AdvanceOf(face.GlyphOf(U'-'))) << "longer than a hyphen";
}

TEST_P(Shaping, AWordThatComesAgainIsKept) {
    Lay("محمد علي");
    const auto second = Lay("خالد محمد");
    const auto third = Lay("محمد ناصر");
    EXPECT_EQ(second->lines.at(0).words.at(0).word, third->lines.at(0).words.at(1).word);
    EXPECT_EQ(second->lines.at(0).words.at(0).word->text, "محمد");
}

TEST_P(Shaping, WordsOutliveTheCache) {
    const auto kept = Lay("محمد علي");
    const std::string text = kept->lines.at(0).words.at(0).word->text;
    for (int i = 0; i < 30000; ++i)
        Lay(std::to_string(i));
    EXPECT_EQ(kept->lines.at(0).words.at(0).word->text, text);
    EXPECT_EQ(Lay("محمد علي")->width, kept->width) << "shaped anew, the same";
}

INSTANTIATE_TEST_SUITE_P(Faces, Shaping,
                         testing::Values("Noto Sans Arabic", "Noto Kufi Arabic", "DejaVu Sans Condensed",
                                         "DejaVu Sans"),
                         [](const auto& row) {
                             std::string name = row.param;
                             std::erase(name, ' ');
                             return name;
                         });

} // namespace
} // namespace qbrpt::text
