#include "fakes/memory_rows.h"
#include "report/binder.h"
#include "report/value_text.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace qbrpt::report {
namespace {

constexpr std::array<Field, 4> Fields = {{{"name", FieldKind::String, 6, 0},
                                          {"amount", FieldKind::Number, 8, 6},
                                          {"when", FieldKind::DateTime, 8, 14},
                                          {"open", FieldKind::Boolean, 2, 22}}};
constexpr std::array<Field, 1> WholeField = {{{"minutes", FieldKind::WholeNumber, 4, 0}}};

Definition Four() {
    Definition definition;
    definition.fields = Fields;
    return definition;
}

// What one value of a row becomes, as text with its kind in front.
std::string Bound(const Definition& definition, std::size_t field, const Value& value) {
    std::vector<Value> row(field + 1);
    row[field] = value;
    RowView raw;
    for (const Value& cell : row)
        raw.push_back(fakes::CellOf(cell));
    Binder binder(definition);
    RowView bound;
    binder.Bind(raw, bound);
    constexpr std::array<const char*, 6> Kinds = {"null", "boolean ", "whole ", "number ", "date ", "text "};
    ValueWriter writer;
    return Kinds[static_cast<std::size_t>(bound[field].kind)] +
           std::string(writer.Write(bound[field], ValueFormat::Text, {}).text);
}

struct CoercionRow {
    std::string name;
    std::size_t field;
    Value value;
    std::string bound;
};

class Coercion : public testing::TestWithParam<CoercionRow> {};

TEST_P(Coercion, GivesWhatTheFieldHolds) {
    EXPECT_EQ(Bound(Four(), GetParam().field, GetParam().value), GetParam().bound);
}

constexpr std::size_t Name = 0;
constexpr std::size_t Amount = 1;
constexpr std::size_t When = 2;
constexpr std::size_t Open = 3;
constexpr double March = 45717; // 1 March 2025

INSTANTIATE_TEST_SUITE_P(
    Rows, Coercion,
    testing::Values(
        CoercionRow{"TextStays", Name, std::string("abc"), "text abc"},
        CoercionRow{"TextOfFullLength", Name, std::string("abcde"), "text abcde"},
        CoercionRow{"TextTooLong", Name, std::string("abcdef"), "text abcde"},
        CoercionRow{"ArabicCountsCharacters", Name, std::string("مرحبا بك"), "text مرحبا"},
        CoercionRow{"MarkStaysWithItsLetter", Name, std::string("abcde\u0301f"), "text abcd"},
        CoercionRow{"MarkBeforeTheCutCounts", Name, std::string("abcd\u0301e"), "text abcd\u0301"},
        CoercionRow{"BrokenBytesAreNoCrash", Name, std::string("\xC3\xC3\xC3\xC3\xC3\xC3\xC3"),
                    "text \xC3\xC3\xC3\xC3\xC3"},
        CoercionRow{"EmptyText", Name, std::string(), "text "},
        CoercionRow{"NumberOnText", Name, 2.5, "text 2.5"},
        CoercionRow{"WholeOnText", Name, std::int64_t{42}, "text 42"},
        CoercionRow{"LongNumberOnTextIsCut", Name, std::int64_t{1234567}, "text 12345"},
        CoercionRow{"DateOnTextIsCut", Name, Date{March}, "text 01/03"},
        CoercionRow{"BooleanOnText", Name, true, "text نعم"}, CoercionRow{"NullOnText", Name, Null{}, "null"},
        CoercionRow{"NumberStays", Amount, 2.5, "number 2.5"},
        CoercionRow{"WholeOnNumber", Amount, std::int64_t{7}, "whole 7"},
        CoercionRow{"TextWithNumber", Amount, std::string(" 12.50 "), "number 12.5"},
        CoercionRow{"TextWithSign", Amount, std::string("+3"), "number 3"},
        CoercionRow{"OtherTextOnNumberStaysText", Amount, std::string("12 apples"), "text 12 apples"},
        CoercionRow{"BooleanOnNumber", Amount, true, "whole 1"},
        CoercionRow{"DateOnNumber", Amount, Date{2.5}, "number 2.5"},
        CoercionRow{"NotANumber", Amount, std::nan(""), "null"},
        CoercionRow{"InfinityText", Amount, std::string("inf"), "text inf"},
        CoercionRow{"DateStays", When, Date{March}, "date 01/03/2025 00:00"},
        CoercionRow{"NumberOnDate", When, March + 0.5, "date 01/03/2025 12:00"},
        CoercionRow{"WholeOnDate", When, static_cast<std::int64_t>(March), "date 01/03/2025 00:00"},
        CoercionRow{"NumberOutsideTheCalendar", When, 1e12, "null"},
        CoercionRow{"IsoText", When, std::string("2025-03-01T14:05"), "date 01/03/2025 14:05"},
        CoercionRow{"IsoTextWithSeconds", When, std::string("2025-03-01 14:05:30"), "date 01/03/2025 14:05"},
        CoercionRow{"NoSuchDay", When, std::string("2025-02-29"), "text 2025-02-29"},
        CoercionRow{"OtherTextOnDate", When, std::string("soon"), "text soon"},
        CoercionRow{"BooleanOnDate", When, true, "null"},
        CoercionRow{"BooleanStays", Open, false, "boolean لا"},
        CoercionRow{"MinusOneIsTrue", Open, std::int64_t{-1}, "boolean نعم"},
        CoercionRow{"ZeroIsFalse", Open, 0.0, "boolean لا"},
        CoercionRow{"TrueText", Open, std::string("TRUE"), "boolean نعم"},
        CoercionRow{"OtherTextOnBoolean", Open, std::string("maybe"), "text maybe"},
        CoercionRow{"DateOnBoolean", Open, Date{1}, "null"}),
    [](const auto& row) { return row.param.name; });

TEST(Binder, ANumberOnAWholeNumberFieldKeepsItsFraction) {
    Definition definition;
    definition.fields = WholeField;
    EXPECT_EQ(Bound(definition, 0, 1.75), "number 1.75");
}

TEST(Binder, MissingColumnsAreNullAndSurplusOnesAreDropped) {
    const Definition definition = Four();
    Binder binder(definition);
    RowView bound;
    const Value name = std::string("a"); // the bound text is a view of it
    binder.Bind({fakes::CellOf(name)}, bound);
    ASSERT_EQ(bound.size(), 4U);
    EXPECT_EQ(bound[0].text, "a");
    EXPECT_EQ(bound[3].kind, ValueKind::Null);
    binder.Bind(RowView(9, fakes::CellOf(std::int64_t{1})), bound);
    EXPECT_EQ(bound.size(), 4U);
    binder.Bind({}, bound);
    EXPECT_EQ(bound[0].kind, ValueKind::Null);
}

TEST(Binder, ComputedValuesStandBehindTheFields) {
    Definition definition = Four();
    using Operation = Computed::Operation;
    definition.computed = {{"square", Operation::Multiply, 1, 1},
                           {"ratio", Operation::Divide, 1, 2},
                           {"sum", Operation::Add, 1, 1},
                           {"difference", Operation::Subtract, 1, 1}};
    Binder binder(definition);
    RowView bound;
    binder.Bind({CellView{}, fakes::CellOf(1.5), CellView{}, CellView{}}, bound);
    ASSERT_EQ(bound.size(), 8U);
    EXPECT_EQ(bound[4].number, 2.25);
    EXPECT_EQ(bound[5].kind, ValueKind::Null) << "one side is empty";
    EXPECT_EQ(bound[6].number, 3);
    EXPECT_EQ(bound[7].number, 0);
    binder.Bind({CellView{}, fakes::CellOf(1.5), fakes::CellOf(Date{0}), CellView{}}, bound);
    EXPECT_EQ(bound[5].kind, ValueKind::Null) << "divided by zero";
}

} // namespace
} // namespace qbrpt::report
