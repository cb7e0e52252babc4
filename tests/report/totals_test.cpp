#include "fakes/memory_rows.h"
#include "report/totals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace qbrpt::report {
namespace {

using fakes::CellOf;

CellView ResultOf(Aggregate aggregate, const std::vector<Value>& values) {
    const std::vector<Total> totals = {{aggregate, 0}};
    TotalsBook book(totals);
    for (const Value& value : values)
        book.AddRow({CellOf(value)});
    return book.Result(0);
}

TEST(Totals, NullsTakeNoPart) {
    const std::vector<Value> values = {Null{}, 4.0, Null{}, 1.0, std::int64_t{1}};
    EXPECT_EQ(ResultOf(Aggregate::Sum, values).number, 6);
    EXPECT_EQ(ResultOf(Aggregate::Count, values).whole, 3);
    EXPECT_EQ(ResultOf(Aggregate::Average, values).number, 2);
    EXPECT_EQ(ResultOf(Aggregate::Minimum, values).number, 1);
    EXPECT_EQ(ResultOf(Aggregate::Maximum, values).number, 4);
}

TEST(Totals, AreEmptyWithNothingToAddUp) {
    for (const std::vector<Value>& values :
         {std::vector<Value>{}, std::vector<Value>{Null{}, Null{}}, std::vector<Value>{std::string("x")}}) {
        for (const Aggregate aggregate :
             {Aggregate::Sum, Aggregate::Average, Aggregate::Minimum, Aggregate::Maximum})
            EXPECT_EQ(ResultOf(aggregate, values).kind, ValueKind::Null);
    }
    EXPECT_EQ(ResultOf(Aggregate::Count, {}).whole, 0);
}

TEST(Totals, DatesKeepTheirKindWhereThatMakesSense) {
    const std::vector<Value> days = {Date{10}, Date{20}};
    EXPECT_EQ(ResultOf(Aggregate::Minimum, days).kind, ValueKind::Date);
    EXPECT_EQ(ResultOf(Aggregate::Maximum, days).number, 20);
    EXPECT_EQ(ResultOf(Aggregate::Average, days).kind, ValueKind::Date);
    EXPECT_EQ(ResultOf(Aggregate::Sum, days).kind, ValueKind::Number);
}

TEST(Totals, MinimumOfNegativesIsNotZero) {
    EXPECT_EQ(ResultOf(Aggregate::Maximum, {-5.0, -3.0}).number, -3);
    EXPECT_EQ(ResultOf(Aggregate::Minimum, {5.0, 3.0}).number, 3);
}

TEST(ExactSum, MoneyIsExact) {
    ExactSum sum;
    for (int i = 0; i < 1'000'000; ++i)
        sum.Add(0.01);
    EXPECT_EQ(sum.Result(), 10'000.0);
    for (int i = 0; i < 1'000'000; ++i)
        sum.Add(-0.01);
    EXPECT_EQ(sum.Result(), 0.0);
}

TEST(ExactSum, EqualsWholeArithmeticOnRandomMoney) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937_64 random(seed);
    std::int64_t cents = 0;
    ExactSum sum;
    for (int i = 0; i < 100'000; ++i) {
        const auto value = static_cast<std::int64_t>(random() % 200'000'000) - 100'000'000;
        cents += value;
        sum.Add(static_cast<double>(value) / 100);
    }
    EXPECT_EQ(sum.Result(), static_cast<double>(cents) / 100);
}

TEST(ExactSum, CarriesTheErrorOfOtherNumbers) {
    ExactSum sum;
    sum.Add(1e100);
    sum.Add(1);
    sum.Add(-1e100);
    EXPECT_EQ(sum.Result(), 1);
    ExactSum thirds;
    for (int i = 0; i < 300'000; ++i)
        thirds.Add(1.0 / 3);
    EXPECT_NEAR(thirds.Result(), 100'000, 1e-9);
    ExactSum wide;
    for (int i = 0; i < 100; ++i)
        wide.Add(9.9e10);
    EXPECT_EQ(wide.Result(), 9.9e12);
}

TEST(ExactSum, SumsPastTheExactRangeGoOnAsFloatingPoint) {
    ExactSum sum;
    for (int i = 0; i < 10'000; ++i)
        sum.Add(9e10 + 0.25);
    EXPECT_DOUBLE_EQ(sum.Result(), 9e14 + 2500);
}

TEST(Totals, ScopesAreClearedApart) {
    const std::vector<Total> totals = {{Aggregate::Sum, 0, Scope::Report},
                                       {Aggregate::Sum, 0, Scope::Group, 0},
                                       {Aggregate::Sum, 0, Scope::Group, 1},
                                       {Aggregate::Sum, 0, Scope::Page}};
    TotalsBook book(totals);
    const RowView one = {CellOf(1.0)};
    book.AddRow(one);
    book.AddRowToPage(one);
    book.ClearGroups(1);
    book.AddRow(one);
    book.ClearPage();
    book.AddRowToPage(one);
    EXPECT_EQ(book.Result(0).number, 2);
    EXPECT_EQ(book.Result(1).number, 2);
    EXPECT_EQ(book.Result(2).number, 1);
    EXPECT_EQ(book.Result(3).number, 1);
    book.ClearGroups(0);
    EXPECT_EQ(book.Result(1).kind, ValueKind::Null);
    EXPECT_EQ(book.Result(0).number, 2);
}

TEST(Totals, ConditionsChooseRows) {
    const std::vector<Total> totals = {
        {Aggregate::Count, 0, Scope::Report, 0, Condition{0, Condition::Test::Positive}}};
    TotalsBook book(totals);
    for (const double value : {0.0, 5.0, -1.0, 2.0})
        book.AddRow({CellOf(value)});
    EXPECT_EQ(book.Result(0).whole, 2);
}

TEST(Conditions, HoldByValue) {
    using Is = Condition::Test;
    struct Row {
        Value value;
        std::vector<Is> holding;
    };
    const std::vector<Row> rows = {{Null{}, {Is::Empty}},
                                   {std::string(), {Is::Empty}},
                                   {std::string("x"), {Is::Filled}},
                                   {0.0, {Is::Filled, Is::Zero}},
                                   {2.0, {Is::Filled, Is::Positive, Is::NotZero}},
                                   {-2.0, {Is::Filled, Is::Negative, Is::NotZero}},
                                   {true, {Is::Filled, Is::Positive, Is::NotZero}},
                                   {Date{5}, {Is::Filled, Is::Positive, Is::NotZero}}};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (const Is test : {Is::Positive, Is::Negative, Is::Zero, Is::NotZero, Is::Empty, Is::Filled}) {
            SCOPED_TRACE(testing::Message() << "row " << i << " test " << static_cast<int>(test));
            const auto& holding = rows[i].holding;
            EXPECT_EQ(Holds(test, CellOf(rows[i].value)),
                      std::find(holding.begin(), holding.end(), test) != holding.end());
        }
    }
}

} // namespace
} // namespace qbrpt::report
