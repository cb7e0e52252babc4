#include "adapters/text/order.h"
#include "text/text_help.h"

#include <gmock/gmock.h>

#include <iostream>
#include <random>

namespace qbrpt::text {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::ElementsAreArray;

struct Row {
    const char* name;
    const char* text;
    std::vector<std::string> leftToRight; ///< the words as they stand on the page
};

class Order : public testing::TestWithParam<Row> {};

TEST_P(Order, OnAnArabicPage) {
    TextEngine engine;
    const auto block = engine.Layout(GetParam().text, engine.Style(Body), 0, BaseDirection::RightToLeft);
    ASSERT_EQ(block->lines.size(), 1U);
    EXPECT_THAT(WordsLeftToRight(block->lines[0]), ElementsAreArray(GetParam().leftToRight));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Order,
    testing::Values(
        Row{"Name", "محمد بن علي", {"علي", "بن", "محمد"}},
        Row{"Page", "صفحة 3 من 12", {"12", "من", "3", "صفحة"}},
        Row{"Range", "من 02-03-2025 إلى 05-03-2025", {"05-03-2025", "إلى", "02-03-2025", "من"}},
        Row{"DateAndTime", "في 21/03/2025 02:40", {"21/03/2025", "02:40", "في"}},
        Row{"LongDateWithTime", "السبت 01 مارس 2025  09:00ص", {"ص", "09:00", "2025", "مارس", "01", "السبت"}},
        Row{"Negative", "رصيد -0.35", {"-0.35", "رصيد"}},
        Row{"NegativeFirst", "-0.35 رصيد", {"رصيد", "-0.35"}}, Row{"NegativeAlone", "-0.35", {"-0.35"}},
        Row{"Phone", "هاتف 44 501 55 فقط", {"فقط", "44", "501", "55", "هاتف"}},
        Row{"Share", "نسبة 400 % من", {"من", "400", "%", "نسبة"}},
        Row{"Phrase", "نسخة Windows 10 Pro جديدة", {"جديدة", "Windows", "10", "Pro", "نسخة"}},
        Row{"PhraseFirst", "Windows 10 Pro نسخة", {"نسخة", "Windows", "10", "Pro"}},
        Row{"Code", "جهاز PC-05 محجوز", {"محجوز", "PC-05", "جهاز"}},
        Row{"CodeThatBeginsWithDigits", "جهاز 05-PC محجوز", {"محجوز", "05-PC", "جهاز"}},
        Row{"LanguageName", "لغة C++ جيدة", {"جيدة", "C++", "لغة"}},
        Row{"ArabicDigits", "تاريخ ٢٠٢٥/٠٣/٠١", {"٢٠٢٥/٠٣/٠١", "تاريخ"}},
        Row{"WordsInBrackets", "محمد (أبو علي) هنا", {"هنا", "علي)", "(أبو", "محمد"}},
        Row{"NumberInBrackets", "قيود (12) هنا", {"هنا", ")", "12", "(", "قيود"}},
        Row{"OverrideLeftOpen",
            "\xE2\x80\xAE"
            "abc محمد",
            {"محمد", "abc"}},
        Row{"EmbeddingLeftOpen",
            "\xE2\x80\xAA"
            "محمد علي",
            {"علي", "محمد"}},
        Row{"StrayEndOfIsolate", "محمد\xE2\x81\xA9 علي 5", {"5", "علي", "محمد"}},
        Row{"IsolatedValue",
            "من \xE2\x81\xA8"
            "abc 12\xE2\x81\xA9 إلى",
            {"إلى", "abc", "12", "من"}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(OrderOfALatinPage, ReadsFromTheLeft) {
    TextEngine engine;
    const auto block =
        engine.Layout("From 01 March محمد علي 5", engine.Style(Body), 0, BaseDirection::LeftToRight);
    ASSERT_EQ(block->lines.size(), 1U);
    EXPECT_THAT(WordsLeftToRight(block->lines[0]), ElementsAre("From", "01", "March", "علي", "محمد", "5"));
}

// Texts of Arabic and figures take a short way to their levels; a mark of another kind makes them take the
// long one. Both must agree.
TEST(Levels, OfPlainTextsAreThoseOfTheWholeAlgorithm) {
    const unsigned seed = std::random_device{}();
    std::cout << "seed " << seed << '\n';
    RecordProperty("seed", static_cast<int>(seed));
    std::mt19937 random(seed);
    constexpr std::u32string_view letters = U"محبا  0123-/:.,%()[]+\"'،ءَ٤٫ـ؟*#_";
    for (int i = 0; i < 20000; ++i) {
        std::u32string plain;
        for (std::size_t length = random() % 24; length > 0; --length)
            plain.push_back(letters[random() % letters.size()]);
        std::u32string marked = plain + U" \u00B7";
        std::vector<Level> shortWay;
        std::vector<Level> longWay;
        ResolveLevels(plain, BaseDirection::RightToLeft, shortWay);
        ResolveLevels(marked, BaseDirection::RightToLeft, longWay);
        longWay.resize(plain.size());
        ASSERT_EQ(shortWay, longWay) << testing::PrintToString(plain);
    }
}

TEST(OrderMarks, AreTakenOutOfTheText) {
    std::u32string characters = U"\u200Fمحمد\u2067x\u2069\u061C";
    std::vector<Level> levels;
    ResolveLevels(characters, BaseDirection::RightToLeft, levels);
    EXPECT_EQ(characters, U"محمدx");
    EXPECT_THAT(levels, ElementsAre(1, 1, 1, 1, 4));
}

TEST(DrawingOrderOfLevels, TurnsRunsRound) {
    const auto order = [](std::vector<Level> levels) {
        std::vector<std::size_t> found;
        DrawingOrder(levels, found);
        return found;
    };
    EXPECT_THAT(order({}), ElementsAre());
    EXPECT_THAT(order({0, 0}), ElementsAre(0, 1));
    EXPECT_THAT(order({1, 1, 1}), ElementsAre(2, 1, 0));
    EXPECT_THAT(order({2, 2}), ElementsAre(0, 1));
    EXPECT_THAT(order({1, 2, 2, 1}), ElementsAre(3, 1, 2, 0));
    EXPECT_THAT(order({0, 1, 2, 1, 0}), ElementsAre(0, 3, 2, 1, 4));
}

// Programs that read a page take blanks behind a figure for a part of it, unless a mark stands between.
TEST(ReadingMarks, StandLeftOfFiguresThatBlanksFollow) {
    TextEngine engine;
    const auto style = engine.Style(Body);
    const auto texts = [&](std::string_view text) {
        std::vector<std::string> found;
        const auto block = engine.Layout(text, style, 0, BaseDirection::RightToLeft);
        for (const report::PlacedWord& placed : block->lines.at(0).words)
            found.push_back(placed.word->text);
        return found;
    };
    const std::string mark = "\xE2\x80\x8F";
    EXPECT_THAT(texts("صفحة 3 من"), ElementsAre("من", mark + "3", "صفحة"));
    EXPECT_THAT(texts("الميناء، هنا"), ElementsAre("هنا", "الميناء،" + mark));
    EXPECT_THAT(texts("في 44 501 55 ·"), ElementsAre("·", mark + "44", "501", "55", "في"));
    EXPECT_THAT(texts("صفحة 3"), ElementsAre("3", "صفحة")) << "nothing follows";
    EXPECT_THAT(texts("الساعة 09:00ص"), ElementsAre("ص", "09:00", "الساعة")) << "a letter follows";
}

} // namespace
} // namespace qbrpt::text
