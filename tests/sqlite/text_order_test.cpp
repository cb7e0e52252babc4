// Text compares without regard to case, Arabic by its own alphabet.
#include "adapters/database/sqlite/text_order.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>
#include <string>

namespace qbrpt::database {
namespace {

struct OrderRow {
    const char* name;
    const char* a;
    const char* b;
    int wanted;
    friend void PrintTo(const OrderRow& row, std::ostream* out) { *out << row.name; }
};

class TextOrderRows : public testing::TestWithParam<OrderRow> {};

int Sign(int value) {
    return (value > 0) - (value < 0);
}

TEST_P(TextOrderRows, Compares) {
    const OrderRow& row = GetParam();
    EXPECT_EQ(Sign(TextOrder::Shared().Compare(row.a, row.b)), row.wanted);
    EXPECT_EQ(Sign(TextOrder::Shared().Compare(row.b, row.a)), -row.wanted);
}

INSTANTIATE_TEST_SUITE_P(
    Order, TextOrderRows,
    testing::Values(OrderRow{"SameLatinInOtherCase", "AHMED", "ahmed", 0},
                    OrderRow{"MixedCase", "Peter O'Neil", "PETER o'neil", 0},
                    OrderRow{"AccentCounts", "é", "e", 1}, OrderRow{"EmptyFirst", "", "a", -1},
                    OrderRow{"BothEmpty", "", "", 0}, OrderRow{"PrefixFirst", "أحمد", "أحمد علي", -1},
                    OrderRow{"TrailingBlankCounts", "a", "a ", -1},
                    OrderRow{"BlankBeforeDigit", "a b", "a1", -1},
                    OrderRow{"DigitBeforeLetter", "9", "a", -1}, OrderRow{"AlefBeforeBeh", "اب", "با", -1},
                    OrderRow{"FehBeforeQaf", "ف", "ق", -1}, OrderRow{"WawBeforeYeh", "و", "ي", -1},
                    OrderRow{"SameArabic", "فاطمة", "فاطمة", 0}, OrderRow{"HamzaCounts", "احمد", "أحمد", 1},
                    OrderRow{"VowelMarkDoesNotCount", "مُعاذ", "معاذ", 0},
                    OrderRow{"LettersBeyondTheTable", "پٿ", "پٿا", -1},
                    OrderRow{"DigitsAsCharacters", "جهاز 10", "جهاز 9", -1}),
    [](const auto& each) { return std::string(each.param.name); });

// Letters of the alphabet in order, and marks that follow them.
std::string RandomText(std::mt19937& random) {
    static const std::string pieces[] = {
        "ا",    "أ",    "إ",        "آ", "ء", "ؤ", "ئ", "ب", "ة", "ت", "ى", "ي", "ه", "و", "ل",
        "a",    "A",    "b",        "Z", "0", "9", " ", "'", "-", "é", "َ",  "ٔ",  "ـ", "پ", "\xE2\x80\x8F",
        "\xFF", "\xD9", "\xC3\xA9", "中"};
    std::string text;
    for (std::size_t length = random() % 7; length > 0; --length)
        text += pieces[random() % std::size(pieces)];
    return text;
}

TEST(TextOrder, TheTableOfRanksAgreesWithTheFullRules) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const TextOrder& order = TextOrder::Shared();
    for (int i = 0; i < 300000; ++i) {
        const std::string a = RandomText(random);
        // Now and then a near neighbour, so that the ends of texts are met too.
        const std::string b = i % 3 == 0 ? a + RandomText(random) : RandomText(random);
        ASSERT_EQ(Sign(order.Compare(a, b)), Sign(order.CompareByRules(a, b))) << a << " and " << b;
    }
}

TEST(TextOrder, KeysStandInTheOrderOfTheTexts) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const TextOrder& order = TextOrder::Shared();
    for (int i = 0; i < 100000; ++i) {
        const std::string a = RandomText(random);
        const std::string b = i % 3 == 0 ? a + RandomText(random) : RandomText(random);
        ASSERT_EQ(Sign(order.KeyOf(a).compare(order.KeyOf(b))), Sign(order.Compare(a, b)))
            << a << " and " << b;
    }
}

TEST(TextOrder, KeysOfLongTextsAreWhole) {
    const std::string a(5000, 'a');
    EXPECT_LT(TextOrder::Shared().KeyOf(a), TextOrder::Shared().KeyOf(a + "a"));
    EXPECT_EQ(TextOrder::Shared().KeyOf(a), TextOrder::Shared().KeyOf(std::string(5000, 'A')));
}

} // namespace
} // namespace qbrpt::database
