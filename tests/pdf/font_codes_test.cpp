#include "adapters/pdf/font_codes.h"
#include "adapters/pdf/font_objects.h"
#include "adapters/pdf/numbers.h"
#include "base/failure.h"

#include <gmock/gmock.h>

#include <set>

namespace qbrpt::pdf {
namespace {

TEST(FontCodes, TheSameThreeThingsAreTheSameCode) {
    CodeTable table(0);
    const auto code = table.CodeOf({7, U'ب', 5720});
    EXPECT_EQ(table.CodeOf({7, U'ب', 5720}), code);
    EXPECT_NE(table.CodeOf({8, U'ب', 5720}), code) << "another glyph";
    EXPECT_NE(table.CodeOf({7, U'ت', 5720}), code) << "another letter";
    EXPECT_NE(table.CodeOf({7, U'ب', 5721}), code) << "another advance";
    EXPECT_NE(table.CodeOf({7, U'ب', -5720}), code);
}

TEST(FontCodes, NoneNeedsEscapingInAString) {
    CodeTable table(0);
    std::set<std::uint16_t> codes;
    for (std::int32_t i = 0; i < 20000; ++i)
        codes.insert(table.CodeOf({1, U'a', i}));
    EXPECT_EQ(codes.size(), 20000U);
    for (const std::uint16_t code : codes)
        for (const int byte : {code >> 8, code & 0xFF})
            EXPECT_TRUE(byte != '(' && byte != ')' && byte != '\\' && byte != '\r' && byte != '\n') << code;
    EXPECT_FALSE(codes.contains(0)) << "the code of no character";
}

TEST(FontCodes, AFaceGetsAFurtherFontWhenItsCodesAreUsedUp) {
    FontCodes codes;
    std::set<FontId> fonts;
    for (std::int32_t i = 0; i < 150000; ++i) {
        const FontId font = codes.FontFor(3, 10);
        fonts.insert(font);
        codes.Table(font).CodeOf({1, U'a', i});
    }
    EXPECT_EQ(fonts.size(), 3U);
    EXPECT_EQ(codes.Count(), 3U);
    EXPECT_EQ(codes.Table(2).Face(), 3);
    EXPECT_NE(codes.FontFor(4, 10), codes.FontFor(3, 10)) << "another face";
}

TEST(FontCodes, FiguresTakeOneByteInAFontOfTheirOwn) {
    FontCodes codes;
    const FontId letters = codes.FontFor(3, 10);
    const FontId figures = codes.FontFor(3, 0, CodeBytes::One);
    EXPECT_NE(letters, figures);
    CodeTable& table = codes.Table(figures);
    EXPECT_EQ(table.Bytes(), CodeBytes::One);
    for (char32_t character = 0; character < 128; ++character)
        EXPECT_LT(table.CodeOf({static_cast<std::uint16_t>(character), character, 5720}), 0x100);
    EXPECT_EQ(codes.FontFor(3, 0, CodeBytes::One), figures) << "all that a face has are in one font";
    EXPECT_THAT(ToUnicode(table), testing::HasSubstr("<00><FF>"));
    EXPECT_THAT(ToUnicode(table), testing::HasSubstr("\n<02><0001>\n"));
    EXPECT_THROW(
        {
            for (std::int32_t i = 0; i < 300; ++i)
                table.CodeOf({1, U'a', i});
        },
        Failure);
}

TEST(FontCodes, EachCodeReadsAsOneLetter) {
    CodeTable table(0);
    table.CodeOf({7, U'ب', 1});
    table.CodeOf({8, 0, 1});
    table.CodeOf({9, 0x1F600, 1});
    const std::string map = ToUnicode(table);
    EXPECT_THAT(map, testing::HasSubstr("2 beginbfchar\n<0001><0628>\n<0003><D83DDE00>\nendbfchar"));
}

TEST(FontCodes, LettersComeInBlocksOfAHundred) {
    CodeTable table(0);
    for (std::int32_t i = 0; i < 250; ++i)
        table.CodeOf({7, U'ب', i});
    const std::string map = ToUnicode(table);
    EXPECT_THAT(map, testing::ContainsRegex("\n100 beginbfchar"));
    EXPECT_THAT(map, testing::ContainsRegex("\n50 beginbfchar"));
}

TEST(Numbers, AreWrittenShort) {
    const auto scaled = [](std::int64_t value, int decimals) {
        std::string text;
        AppendScaled(text, value, decimals);
        return text;
    };
    EXPECT_EQ(scaled(2835, 1), "283.5");
    EXPECT_EQ(scaled(2830, 1), "283");
    EXPECT_EQ(scaled(5, 2), ".05");
    EXPECT_EQ(scaled(-5, 2), "-.05");
    EXPECT_EQ(scaled(0, 2), "0");
    EXPECT_EQ(scaled(-120, 1), "-12");
    EXPECT_EQ(scaled(1530, 0), "1530");
}

} // namespace
} // namespace qbrpt::pdf
