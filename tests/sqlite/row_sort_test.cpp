// Rows put in order, in memory and in files.
#include "adapters/database/row_sort.h"
#include "fakes/memory_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace {

using namespace qbrpt;
using database::RowOrder;
using database::SortRows;

std::shared_ptr<const RowSource> Rows(std::vector<fakes::Row> rows) {
    return std::make_shared<fakes::MemoryRows>(std::move(rows));
}

/// The whole numbers of a column.
std::vector<std::int64_t> Numbers(const RowSource& rows, std::size_t column) {
    std::vector<std::int64_t> numbers;
    const auto cursor = rows.Open();
    for (RowView row; cursor->Next(row);)
        numbers.push_back(row.at(column).whole);
    return numbers;
}

struct Case {
    const char* name;
    std::vector<Value> values;
    bool descending;
    std::vector<std::int64_t> order; ///< places of the values, from 0
};

class OrderOfValues : public testing::TestWithParam<Case> {};

TEST_P(OrderOfValues, IsThatOfTheirKind) {
    std::vector<fakes::Row> rows;
    for (const Value& value : GetParam().values)
        rows.push_back({value, static_cast<std::int64_t>(rows.size())});
    const RowOrder order{0, GetParam().descending};
    EXPECT_EQ(Numbers(*SortRows(Rows(rows), {&order, 1}), 1), GetParam().order);
}

const std::string a = "a";
const std::string b = "b";
INSTANTIATE_TEST_SUITE_P(
    Rows, OrderOfValues,
    testing::Values(Case{"Numbers", {2.5, -1.0, 0.0, -1.5}, false, {3, 1, 2, 0}},
                    Case{"NumbersDown", {2.5, -1.0, 0.0, -1.5}, true, {0, 2, 1, 3}},
                    Case{"WholeAndNumber", {std::int64_t{3}, 2.5, std::int64_t{-7}}, false, {2, 1, 0}},
                    Case{"MinusZeroIsZero", {0.0, -0.0}, false, {0, 1}},
                    Case{"Dates", {Date{45000.5}, Date{45000.25}}, false, {1, 0}},
                    Case{"NothingFirst", {a, 1.0, Null{}}, false, {2, 1, 0}},
                    Case{"NothingLast", {Null{}, 1.0, a}, true, {2, 1, 0}},
                    Case{"LatinCase", {b, std::string("A"), a, std::string("B")}, false, {1, 2, 0, 3}},
                    Case{"ShorterFirst", {std::string("ab"), a}, false, {1, 0}},
                    Case{"LongerFirst", {a, std::string("ab")}, true, {1, 0}},
                    Case{"Arabic", {std::string("يوسف"), std::string("بدر")}, false, {1, 0}},
                    Case{"EqualAsTheyCome", {a, a, Null{}, a}, false, {2, 0, 1, 3}}),
    [](const auto& row) { return row.param.name; });

TEST(SortedRows, GoByTheNextColumnWhereTheFirstIsEqual) {
    const std::vector<RowOrder> order = {{0, false}, {1, true}};
    const auto rows = Rows({{b, std::int64_t{1}}, {a, std::int64_t{1}}, {a, std::int64_t{3}}});
    EXPECT_THAT(Numbers(*SortRows(rows, order), 1), testing::ElementsAre(3, 1, 1));
}

TEST(SortedRows, AreTheSameWhereTheyStandInOrder) {
    const RowOrder order{0, false};
    const auto rows = Rows({{a}, {a}, {b}});
    EXPECT_EQ(SortRows(rows, {&order, 1}), rows);
    EXPECT_EQ(SortRows(rows, {}), rows);
}

TEST(SortedRows, AColumnThatIsNotThereIsNothing) {
    const RowOrder order{7, false};
    const auto rows = Rows({{b}, {a}});
    EXPECT_EQ(SortRows(rows, {&order, 1}), rows);
}

TEST(SortedRows, ManyAreMergedFromFiles) {
    std::mt19937_64 random(20250312);
    std::vector<fakes::Row> rows;
    for (std::int64_t i = 0; i < 20'000; ++i)
        rows.push_back({std::string(random() % 40, 'x'), i});
    std::vector<std::int64_t> expected(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i)
        expected[i] = static_cast<std::int64_t>(i);
    std::stable_sort(expected.begin(), expected.end(), [&](std::int64_t x, std::int64_t y) {
        return std::get<std::string>(rows[static_cast<std::size_t>(x)][0]) <
               std::get<std::string>(rows[static_cast<std::size_t>(y)][0]);
    });
    database::RowStoreOptions options;
    options.memoryLimit = 50'000;
    options.blockSize = 1'000;
    const RowOrder order{0, false};
    std::size_t told = 0;
    const auto sorted = SortRows(Rows(rows), {&order, 1}, options, [&](std::size_t) { ++told; });
    EXPECT_EQ(Numbers(*sorted, 1), expected);
    EXPECT_EQ(sorted->RowCount(), rows.size());
    EXPECT_GT(told, 4U);
}

} // namespace
