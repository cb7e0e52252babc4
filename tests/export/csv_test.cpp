// Rows as comma-separated values.
#include "adapters/export/csv.h"
#include "base/failure.h"
#include "fakes/memory_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace qbrpt;

constexpr std::array<Field, 5> Fields = {{{"when", FieldKind::DateTime, 8, 0},
                                          {"amount", FieldKind::Number, 8, 8},
                                          {"pieces", FieldKind::WholeNumber, 4, 16},
                                          {"used", FieldKind::Boolean, 2, 20},
                                          {"details", FieldKind::String, 11, 22}}};

struct StringSink final : ByteSink {
    std::string bytes;
    std::size_t longest = 0;
    void Write(std::string_view more) override {
        bytes += more;
        longest = std::max(longest, more.size());
    }
};

std::string CsvOf(std::vector<fakes::Row> rows, std::span<const Field> fields = Fields) {
    report::Definition definition;
    definition.fields = fields;
    StringSink sink;
    WriteCsv(sink, definition, *std::make_shared<fakes::MemoryRows>(std::move(rows)));
    return sink.bytes;
}

const std::string Head = "\xEF\xBB\xBF"
                         "when,amount,pieces,used,details\r\n";

TEST(Csv, WithoutRowsThereIsTheHeaderAlone) {
    EXPECT_EQ(CsvOf({}), Head);
}

struct Cell {
    const char* name;
    std::size_t field;
    Value value;
    const char* written;
};
void PrintTo(const Cell& cell, std::ostream* stream) {
    *stream << cell.name;
}

class CsvCell : public testing::TestWithParam<Cell> {};

TEST_P(CsvCell, IsWritten) {
    fakes::Row row(5, Value{Null{}});
    row[GetParam().field] = GetParam().value;
    std::string line;
    for (std::size_t i = 0; i < 5; ++i)
        line += (i == 0 ? "" : ",") + std::string(i == GetParam().field ? GetParam().written : "");
    EXPECT_EQ(CsvOf({row}), Head + line + "\r\n");
}

// 45717 is 1 March 2025.
constexpr double Second = 1.0 / 86400;

INSTANTIATE_TEST_SUITE_P(
    Rows, CsvCell,
    testing::Values(Cell{"Null", 4, Null{}, ""}, Cell{"Midnight", 0, Date{45717}, "2025-03-01 00:00:00"},
                    Cell{"Evening", 0, Date{45717 + 79199 * Second}, "2025-03-01 21:59:59"},
                    Cell{"HalfASecondRoundsUp", 0, Date{45717 + 59.6 * Second}, "2025-03-01 00:01:00"},
                    Cell{"RoundsIntoTheNextDay", 0, Date{45717 + 86399.7 * Second}, "2025-03-02 00:00:00"},
                    Cell{"BeforeDayZero", 0, Date{-1.25}, "1899-12-29 06:00:00"},
                    Cell{"LastSecondOfAll", 0, Date{2958465 + 86399.9 * Second}, "9999-12-31 23:59:59"},
                    Cell{"FirstDay", 0, Date{-657434}, "0100-01-01 00:00:00"},
                    Cell{"NumberAsDate", 0, 45717.5, "2025-03-01 12:00:00"},
                    Cell{"Money", 1, 1234567.25, "1234567.25"}, Cell{"Tenth", 1, 0.1, "0.1"},
                    Cell{"Sum", 1, 0.1 + 0.2, "0.30000000000000004"}, Cell{"Negative", 1, -0.35, "-0.35"},
                    Cell{"NegativeZero", 1, -0.0, "0"}, Cell{"NegativeZeroAsWhole", 2, -0.0, "0"},
                    Cell{"Large", 1, 1e20, "1e+20"}, Cell{"WholeInNumber", 1, std::int64_t{-12}, "-12"},
                    Cell{"NotANumber", 1, std::numeric_limits<double>::quiet_NaN(), ""},
                    Cell{"Infinite", 1, std::numeric_limits<double>::infinity(), ""},
                    Cell{"Whole", 2, std::int64_t{2147483647}, "2147483647"},
                    Cell{"FractionStays", 2, 2.5, "2.5"}, Cell{"True", 3, true, "true"},
                    Cell{"False", 3, false, "false"}, Cell{"MinusOneIsTrue", 3, std::int64_t{-1}, "true"},
                    Cell{"Text", 4, std::string("ليلى"), "ليلى"}, Cell{"EmptyText", 4, std::string(), ""},
                    Cell{"Comma", 4, std::string("a,b"), "\"a,b\""},
                    Cell{"Quote", 4, std::string("a\"b"), "\"a\"\"b\""},
                    Cell{"LineFeed", 4, std::string("a\nb"), "\"a\nb\""},
                    Cell{"CarriageReturn", 4, std::string("a\rb"), "\"a\rb\""},
                    Cell{"Apostrophe", 4, std::string("a'b"), "a'b"},
                    Cell{"Formula", 4, std::string("=1+1"), "=1+1"},
                    Cell{"Blanks", 4, std::string(" a "), " a "},
                    Cell{"LongTextIsCut", 4, std::string("12345678901"), "1234567890"},
                    Cell{"BadBytes", 4, std::string("a\xFF"), "a\xEF\xBF\xBD"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Csv, MissingColumnsAreEmptyAndSurplusOnesDropped) {
    EXPECT_EQ(CsvOf({{Date{45717}}}), Head + "2025-03-01 00:00:00,,,,\r\n");
    EXPECT_EQ(CsvOf({{Null{}, 1.5, Null{}, Null{}, std::string("x"), std::string("surplus")}}),
              Head + ",1.5,,,x\r\n");
}

TEST(Csv, ComputedValuesAreNoFields) {
    report::Definition definition;
    definition.fields = Fields;
    definition.computed.push_back({"sum", report::Computed::Operation::Multiply, 1, 2});
    StringSink sink;
    WriteCsv(sink, definition, *std::make_shared<fakes::MemoryRows>(std::vector<fakes::Row>{{Null{}, 2.0}}));
    EXPECT_EQ(sink.bytes, Head + ",2,,,\r\n");
}

TEST(Csv, ManyRowsStreamInSmallPieces) {
    report::Definition definition;
    definition.fields = Fields;
    StringSink sink;
    const std::vector<fakes::Row> rows(50000, {Date{45717}, 1.5, std::int64_t{2}, true, std::string("abc")});
    std::size_t told = 0;
    WriteCsv(sink, definition, *std::make_shared<fakes::MemoryRows>(rows), [&](std::size_t, std::size_t all) {
        ++told;
        EXPECT_EQ(all, 50000U);
    });
    EXPECT_GT(told, 5U);
    EXPECT_LT(sink.longest, 100'000U);
    EXPECT_EQ(sink.bytes.size(),
              Head.size() + 50000 * std::string("2025-03-01 00:00:00,1.5,2,true,abc\r\n").size());
}

TEST(Csv, AFullDiskIsTheSinksFailure) {
    struct FullDisk final : ByteSink {
        void Write(std::string_view) override { throw Failure(FailureNumber::Output, "full"); }
    } sink;
    report::Definition definition;
    definition.fields = Fields;
    EXPECT_THROW(WriteCsv(sink, definition, *std::make_shared<fakes::MemoryRows>(std::vector<fakes::Row>{})),
                 Failure);
}

} // namespace
