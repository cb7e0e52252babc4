#include "fakes/fake_controls.h"
#include "support/API.h"
#include "support/variant.h"
#include "support_fixture.h"

#include <array>
#include <limits>
#include <string>
#include <vector>

namespace qbrpt {
namespace {

Value Whole(std::int64_t number) {
    return number;
}

TEST(Extremes, LargestAndSmallest) {
    struct Row {
        const char* name;
        std::vector<Value> values;
        Value max;
        Value min;
    };
    const Value text = std::string("b");
    const Value early = Date{100};
    const Value late = Date{200.5};
    const std::vector<Row> rows = {
        {"empty", {}, Whole(INT32_MIN), Null{}},
        {"one", {Whole(5)}, Whole(5), Whole(5)},
        {"zero alone", {Whole(0)}, Whole(0), Whole(0)},
        {"dates", {late, early}, late, early},
        {"dates and zero", {Date{0}, late}, late, Date{0}},
        {"negative", {Whole(-7), Whole(-3)}, Whole(-3), Whole(-7)},
        {"mixed kinds", {Whole(2), 1.5, early}, early, 1.5},
        {"below 32 bits", {Value{-3e9}}, Whole(INT32_MIN), Value{-3e9}},
        {"booleans count -1", {true, false}, false, true},
        {"texts stand above numbers", {text, Whole(9)}, text, Whole(9)},
        {"texts", {std::string("b"), std::string("a"), std::string("c")}, std::string("c"), std::string("a")},
        {"nulls are skipped", {Null{}, Whole(4), Null{}}, Whole(4), Whole(4)},
        {"no number is skipped", {std::numeric_limits<double>::quiet_NaN(), Whole(4)}, Whole(4), Whole(4)},
        {"the first of equals", {Whole(4), 4.0}, Whole(4), Whole(4)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(MaxOf(row.values), row.max);
        EXPECT_EQ(MinOf(row.values), row.min);
    }
}

TEST(Variants, AsNumbersAndTexts) {
    EXPECT_EQ(NumberOf(true), -1);
    EXPECT_EQ(NumberOf(Whole(7)), 7);
    EXPECT_EQ(NumberOf(2.5), 2.5);
    EXPECT_EQ(NumberOf(Date{38'000.25}), 38'000.25);
    EXPECT_EQ(NumberOf(std::string("12.5")), 12.5);
    EXPECT_THROW(static_cast<void>(NumberOf(Null{})), Failure);
    EXPECT_THROW(static_cast<void>(NumberOf(std::string("12x"))), Failure);
    EXPECT_THROW(static_cast<void>(NumberOf(std::string())), Failure);
    EXPECT_EQ(TextOf(std::string("جهاز 1")), "جهاز 1");
    EXPECT_EQ(TextOf(Whole(7)), "7");
    EXPECT_THROW(static_cast<void>(TextOf(Null{})), Failure);
}

TEST(Words, HalvesOfALong) {
    EXPECT_EQ(MakeLong(0x5678, 0x1234), 0x12345678);
    EXPECT_EQ(MakeLong(-1, 0), 0x0000FFFF);
    EXPECT_EQ(MakeLong(0, -1), static_cast<std::int32_t>(0xFFFF0000U));
    EXPECT_EQ(MakeLong(-1, -1), -1);
    EXPECT_EQ(LoWord(0x12345678), 0x5678);
    EXPECT_EQ(HiWord(0x12345678), 0x1234);
    EXPECT_EQ(LoWord(-2), -2);
    EXPECT_EQ(HiWord(-2), -1);
    EXPECT_EQ(LoWord(0x8000), INT16_MIN);
    EXPECT_EQ(HiWord(INT32_MIN), INT16_MIN);
    EXPECT_EQ(BitNot(0), -1);
    EXPECT_EQ(BitNot(INT32_MIN), INT32_MAX);
}

TEST(Words, Shifts) {
    EXPECT_EQ(ShiftLeft(3, 4), 48);
    EXPECT_EQ(ShiftLeft(3, 0), 6);
    EXPECT_EQ(ShiftLeft(3, -7), 6);
    EXPECT_EQ(ShiftLeft(-3, 2), -12);
    EXPECT_EQ(ShiftLeft(-1, 31), INT32_MIN);
    EXPECT_EQ(ShiftLeft(0, INT32_MAX), 0);
    EXPECT_THROW(static_cast<void>(ShiftLeft(1, 31)), Failure);
    EXPECT_THROW(static_cast<void>(ShiftLeft(-1, 32)), Failure);
    EXPECT_EQ(ShiftRight(48, 4), 3);
    EXPECT_EQ(ShiftRight(7, 0), 3);
    EXPECT_EQ(ShiftRight(-7, 1), -3);
    EXPECT_EQ(ShiftRight(-1, 1), 0);
    EXPECT_EQ(ShiftRight(INT32_MAX, INT32_MAX), 0);
}

TEST(Words, Rectangles) {
    EXPECT_EQ(RectWidth({10, 20, 110, 220}), 100);
    EXPECT_EQ(RectHeight({10, 20, 110, 220}), 200);
    EXPECT_EQ(RectWidth({110, 0, 10, 0}), -100);
    EXPECT_EQ(RectWidth({-1, 0, INT32_MAX - 1, 0}), INT32_MAX);
    EXPECT_THROW(static_cast<void>(RectWidth({-1, 0, INT32_MAX, 0})), Failure);
    EXPECT_THROW(static_cast<void>(RectHeight({0, INT32_MAX, 0, -2})), Failure);
}

TEST(Words, TextsAndBytes) {
    EXPECT_EQ(TrimAtNul(""), "");
    EXPECT_EQ(TrimAtNul("abc"), "abc");
    EXPECT_EQ(TrimAtNul(std::string("ab\0cd\0", 6)), "ab");
    EXPECT_EQ(TrimAtNul(std::string("\0cd", 3)), "");
    const std::array<std::uint8_t, 3> bytes = {1, 0, 255};
    EXPECT_EQ(BytesFromMemory(bytes.data(), 3), (std::vector<std::uint8_t>{1, 0, 255}));
    EXPECT_TRUE(BytesFromMemory(bytes.data(), 0).empty());
    EXPECT_TRUE(BytesFromMemory(bytes.data(), -1).empty());
    EXPECT_TRUE(BytesFromMemory(nullptr, 0).empty());
    EXPECT_THROW(static_cast<void>(BytesFromMemory(nullptr, 1)), Failure);
}

TEST_F(SupportTest, ControlReadingItemData) {
    fakes::FakeList list;
    EXPECT_EQ(GetItemData(list), 0);
    list.itemData = {7, 0, -9};
    EXPECT_EQ(GetItemData(list), 0);
    list.listIndex = 0;
    EXPECT_EQ(GetItemData(list), 7);
    list.listIndex = 1;
    EXPECT_EQ(GetItemData(list), 0);
    list.listIndex = 2;
    EXPECT_EQ(GetItemData(list), -9);
    list.itemData.clear();
    EXPECT_EQ(GetItemData(list), 0);
    list.itemData = {7};
    list.listIndex = 5; // the control itself refuses
    EXPECT_EQ(GetItemData(list), 0);
}

TEST_F(SupportTest, ControlReadingSelectedTab) {
    fakes::FakeTabs tabs;
    EXPECT_EQ(GetSelectedTab(tabs), 0);
    tabs.count = 3;
    EXPECT_EQ(GetSelectedTab(tabs), 0);
    tabs.selected = 1;
    EXPECT_EQ(GetSelectedTab(tabs), 1);
    tabs.selected = 3;
    EXPECT_EQ(GetSelectedTab(tabs), 3);
    tabs.broken = {1, 2};
    EXPECT_EQ(GetSelectedTab(tabs), 3);
    tabs.broken = {3};
    EXPECT_EQ(GetSelectedTab(tabs), 0);
    fakes::FakeTabs many;
    many.count = INT16_MAX;
    EXPECT_EQ(GetSelectedTab(many), 0);
}

} // namespace
} // namespace qbrpt
