#include "fakes/fake_controls.h"
#include "support/key_filter.h"
#include "support_fixture.h"

#include <string>

namespace qbrpt {
namespace {

using fakes::FakeTextBox;

constexpr int Dropped = 0;

struct Limits {
    double max;
    double min;
};
constexpr Limits Amount = {NoMaximum, 0};
constexpr Limits Copies = {32'767, 1};
constexpr Limits None = {NoMaximum, NoMinimum};
constexpr Limits NoPages = {0, 1};

struct KeyRow {
    const char* name;
    Limits limits;
    const char* text;
    int start;
    int length;
    int key;
    int passed;
    int beeps;
};

class KeyFilterTest : public SupportTest, public ::testing::WithParamInterface<KeyRow> {};

TEST_P(KeyFilterTest, Judges) {
    const KeyRow& row = GetParam();
    const FakeTextBox box(row.text, row.start, row.length);
    EXPECT_EQ(FilterNumericKey(box, static_cast<std::int16_t>(row.key), row.limits.max, row.limits.min),
              row.passed);
    EXPECT_EQ(platform.screen->beeps, row.beeps);
    EXPECT_EQ(box.text, row.text);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, KeyFilterTest,
    ::testing::Values(KeyRow{"BlankWithoutASelection", Amount, "12", 2, 0, ' ', Dropped, 0},
                      KeyRow{"BlankWithASelectionBeeps", Amount, "12", 0, 2, ' ', Dropped, 1},
                      KeyRow{"Backspace", Copies, "12", 2, 0, 8, 8, 0},
                      KeyRow{"Enter", Copies, "12", 2, 0, 13, 13, 0},
                      KeyRow{"FirstPoint", Amount, "12", 2, 0, '.', '.', 0},
                      KeyRow{"SecondPointBeeps", Amount, "1.2", 3, 0, '.', Dropped, 1},
                      KeyRow{"ASelectedPointStillCounts", Amount, "1.2", 0, 3, '.', Dropped, 1},
                      KeyRow{"ThePointIsNotHeldAgainstTheLimits", NoPages, "", 0, 0, '.', '.', 0},
                      KeyRow{"LetterBeeps", Amount, "12", 2, 0, 'a', Dropped, 1},
                      KeyRow{"MinusBeeps", Amount, "", 0, 0, '-', Dropped, 1},
                      KeyRow{"ArabicDigitBeeps", None, "", 0, 0, 0x0663, Dropped, 1},
                      KeyRow{"NegativeCodeBeeps", None, "", 0, 0, -5, Dropped, 1},
                      KeyRow{"JustBelowZeroBeeps", None, "", 0, 0, '0' - 1, Dropped, 1},
                      KeyRow{"JustAboveNineBeeps", None, "", 0, 0, '9' + 1, Dropped, 1},
                      KeyRow{"AnyDigitWithoutLimits", None, "99999999999999999999", 20, 0, '9', '9', 0},
                      KeyRow{"AmountTakesAnyDigit", Amount, "1000000", 7, 0, '9', '9', 0},
                      KeyRow{"AmountTakesADigitBehindText", Amount, "abc", 3, 0, '9', '9', 0},
                      KeyRow{"CopiesDropZeroInSilence", Copies, "", 0, 0, '0', Dropped, 0},
                      KeyRow{"CopiesTake32764", Copies, "3276", 4, 0, '4', '4', 0},
                      KeyRow{"CopiesTake32767", Copies, "3276", 4, 0, '7', '7', 0},
                      KeyRow{"CopiesDrop32768", Copies, "3276", 4, 0, '8', Dropped, 0},
                      KeyRow{"CopiesDropAFurtherDigit", Copies, "32764", 5, 0, '1', Dropped, 0},
                      KeyRow{"TheDigitReplacesTheSelection", Copies, "123", 0, 3, '9', '9', 0},
                      KeyRow{"TheDigitReplacesPartOfTheText", Copies, "99999", 1, 3, '0', '0', 0},
                      KeyRow{"TheDigitStandsInTheMiddle", Copies, "30000", 1, 0, '9', Dropped, 0},
                      KeyRow{"AZeroInFrontOfADigit", Copies, "5", 0, 0, '0', '0', 0},
                      KeyRow{"NoPagesTakeNothing", NoPages, "", 0, 0, '1', Dropped, 0},
                      KeyRow{"NoPagesTakeNoZero", NoPages, "", 0, 0, '0', Dropped, 0},
                      KeyRow{"OnlyAMaximum", {5, NoMinimum}, "", 0, 0, '6', Dropped, 0},
                      KeyRow{"OnlyAMaximumKept", {5, NoMinimum}, "", 0, 0, '5', '5', 0},
                      KeyRow{"TextBehindTheNumberIsNotRead", Copies, "12abc999", 2, 0, '3', '3', 0},
                      KeyRow{"BlanksInsideANumberAreSkipped", Copies, " 3 2 7 6 ", 9, 0, '8', Dropped, 0},
                      KeyRow{"ANegativeNumberInTheBox", Copies, "-5", 2, 0, '0', Dropped, 0},
                      KeyRow{"AnExponentIsRead", Copies, "1e", 2, 0, '5', Dropped, 0},
                      KeyRow{"AFractionIsRead", {1.25, NoMinimum}, "1.2", 3, 0, '6', Dropped, 0},
                      KeyRow{"ArabicTextCountsInCharacters", Copies, "مم32", 4, 0, '7', Dropped, 0},
                      KeyRow{"APlaceBehindTheEnd", Copies, "32", 50, 50, '7', '7', 0},
                      KeyRow{"ANegativePlace", Copies, "32", -3, -4, '7', '7', 0}),
    [](const auto& row) { return row.param.name; });

TEST_F(SupportTest, ABoxThatCannotBeReadDropsTheKeyInSilence) {
    FakeTextBox box("12");
    box.broken = true;
    EXPECT_EQ(FilterNumericKey(box, '5', 10, 1), 0);
    EXPECT_TRUE(platform.messages->boxes.empty());
}

} // namespace
} // namespace qbrpt
