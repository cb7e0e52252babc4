// Rows come out of the store as they went in, from memory and from the file.
#include "adapters/database/row_store.h"
#include "sqlite/sqlite_tools.h"
#include "tools/temp_folder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cmath>
#include <csignal>
#include <cstring>
#include <limits>
#include <random>

namespace qbrpt::database {
namespace {

using test::FailureOf;

CellView Cell(ValueKind kind, double number) {
    CellView cell;
    cell.kind = kind;
    cell.number = number;
    return cell;
}

CellView Whole(std::int64_t value) {
    return {ValueKind::Whole, value, static_cast<double>(value), {}};
}

CellView Truth(bool value) {
    return {ValueKind::Boolean, value ? 1 : 0, 0, {}};
}

CellView Text(std::string_view text) {
    return {ValueKind::Text, 0, 0, text};
}

// Equal to the last bit, so that a negative zero is not taken for a zero.
void ExpectSame(const CellView& got, const CellView& wanted) {
    ASSERT_EQ(got.kind, wanted.kind);
    switch (wanted.kind) {
    case ValueKind::Null:
        break;
    case ValueKind::Boolean:
        EXPECT_EQ(got.whole, wanted.whole);
        break;
    case ValueKind::Whole:
        EXPECT_EQ(got.whole, wanted.whole);
        EXPECT_EQ(got.number, wanted.number);
        break;
    case ValueKind::Number:
    case ValueKind::Date:
        EXPECT_EQ(std::memcmp(&got.number, &wanted.number, sizeof(double)), 0);
        break;
    case ValueKind::Text:
        EXPECT_EQ(got.text, wanted.text);
        break;
    }
}

std::vector<ColumnInfo> Columns(std::size_t count) {
    return std::vector<ColumnInfo>(count, ColumnInfo{"c", ValueKind::Null});
}

RowStoreOptions Small(const std::string& folder = {}) {
    return {256, 64, folder};
}

struct NamedCell {
    std::string name;
    CellView cell;
};

std::vector<NamedCell> EdgeCells() {
    static const std::string longText(300, 'x');
    static const std::string hugeText(200000, 'y');
    static const std::string edgeText(239, 'z');
    static const std::string overEdgeText(240, 'z');
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    return {{"null", {}},
            {"true", Truth(true)},
            {"false", Truth(false)},
            {"whole zero", Whole(0)},
            {"whole minus one", Whole(-1)},
            {"largest whole", Whole(std::numeric_limits<std::int64_t>::max())},
            {"smallest whole", Whole(std::numeric_limits<std::int64_t>::min())},
            {"number zero", Cell(ValueKind::Number, 0.0)},
            {"number minus zero", Cell(ValueKind::Number, -0.0)},
            {"number whole", Cell(ValueKind::Number, 1500)},
            {"number fraction", Cell(ValueKind::Number, 0.1)},
            {"number at the exact limit", Cell(ValueKind::Number, 9007199254740992.0)},
            {"number beyond whole", Cell(ValueKind::Number, 1e300)},
            {"number tiny", Cell(ValueKind::Number, std::numeric_limits<double>::denorm_min())},
            {"infinity", Cell(ValueKind::Number, infinity)},
            {"minus infinity", Cell(ValueKind::Number, -infinity)},
            {"not a number", Cell(ValueKind::Number, std::nan(""))},
            {"date", Cell(ValueKind::Date, 45658.4164699074)},
            {"date zero", Cell(ValueKind::Date, 0)},
            {"date negative", Cell(ValueKind::Date, -2.75)},
            {"empty text", Text("")},
            {"Arabic text", Text("عبد الله")},
            {"text with a zero byte", Text(std::string_view("a\0b", 3))},
            {"longest short text", Text(edgeText)},
            {"shortest long text", Text(overEdgeText)},
            {"long text", Text(longText)},
            {"text larger than a block", Text(hugeText)}};
}

TEST(RowStore, KeepsEveryKindOfValueInMemoryAndInTheFile) {
    const auto cells = EdgeCells();
    for (const std::size_t limit : {std::size_t{1} << 30U, std::size_t{0}}) {
        SCOPED_TRACE(limit == 0 ? "file" : "memory");
        RowStoreBuilder builder(Columns(2), {limit, 64, {}});
        for (const auto& each : cells)
            builder.Add({each.cell, Whole(7)});
        const auto rows = builder.Finish();
        ASSERT_EQ(rows->RowCount(), cells.size());
        const auto cursor = rows->Open();
        RowView row;
        for (const auto& each : cells) {
            SCOPED_TRACE(each.name);
            ASSERT_TRUE(cursor->Next(row));
            ASSERT_EQ(row.size(), 2U);
            ExpectSame(row[0], each.cell);
            ExpectSame(row[1], Whole(7));
        }
        EXPECT_FALSE(cursor->Next(row));
        EXPECT_FALSE(cursor->Next(row));
    }
}

TEST(RowStore, AnEmptySetHasNoRows) {
    RowStoreBuilder builder(Columns(3), Small());
    const auto rows = builder.Finish();
    EXPECT_EQ(rows->RowCount(), 0U);
    EXPECT_EQ(rows->Columns().size(), 3U);
    const auto cursor = rows->Open();
    RowView row;
    EXPECT_FALSE(cursor->Next(row));
    cursor->Seek(0);
    EXPECT_FALSE(cursor->Next(row));
    cursor->Seek(10);
    EXPECT_FALSE(cursor->Next(row));
}

TEST(RowStore, SeeksAnywhereInAnyOrder) {
    for (const std::size_t limit : {std::size_t{1} << 30U, std::size_t{0}}) {
        SCOPED_TRACE(limit == 0 ? "file" : "memory");
        constexpr int count = 1000;
        RowStoreBuilder builder(Columns(1), {limit, 100, {}});
        for (int i = 0; i < count; ++i)
            builder.Add({Whole(i)});
        const auto rows = builder.Finish();
        const auto cursor = rows->Open();
        std::mt19937 random(20250101);
        RowView row;
        for (int i = 0; i < 5000; ++i) {
            const int wanted = static_cast<int>(random() % count);
            cursor->Seek(static_cast<std::size_t>(wanted));
            for (int next = wanted; next < std::min(wanted + 3, count); ++next) {
                ASSERT_TRUE(cursor->Next(row));
                ASSERT_EQ(row[0].whole, next);
            }
        }
        cursor->Seek(count);
        EXPECT_FALSE(cursor->Next(row));
        cursor->Seek(count - 1);
        EXPECT_TRUE(cursor->Next(row));
        EXPECT_FALSE(cursor->Next(row));
    }
}

TEST(RowStore, SeveralCursorsWalkOnTheirOwn) {
    RowStoreBuilder builder(Columns(1), Small());
    for (int i = 0; i < 500; ++i)
        builder.Add({Whole(i)});
    const auto rows = builder.Finish();
    const auto first = rows->Open();
    const auto second = rows->Open();
    second->Seek(250);
    RowView a;
    RowView b;
    for (int i = 0; i < 250; ++i) {
        ASSERT_TRUE(first->Next(a));
        ASSERT_TRUE(second->Next(b));
        EXPECT_EQ(a[0].whole, i);
        EXPECT_EQ(b[0].whole, 250 + i);
    }
}

TEST(RowStore, ACursorOutlivesItsRows) {
    RowStoreBuilder builder(Columns(1), Small());
    for (int i = 0; i < 500; ++i)
        builder.Add({Text("نص")});
    auto rows = builder.Finish();
    const auto cursor = rows->Open();
    rows.reset();
    RowView row;
    int count = 0;
    while (cursor->Next(row))
        ++count;
    EXPECT_EQ(count, 500);
}

TEST(RowStore, LeavesNoNameInTheFolder) {
    const test::TempFolder folder;
    RowStoreBuilder builder(Columns(1), Small(folder.Path().string()));
    for (int i = 0; i < 500; ++i)
        builder.Add({Whole(i)});
    EXPECT_TRUE(folder.Names().empty());
    const auto rows = builder.Finish();
    EXPECT_TRUE(folder.Names().empty());
    EXPECT_EQ(rows->RowCount(), 500U);
}

TEST(RowStore, AColumnOfUnknownKindTakesTheKindOfItsValues) {
    RowStoreBuilder builder({{"dates", ValueKind::Null},
                             {"mixed", ValueKind::Null},
                             {"nothing", ValueKind::Null},
                             {"declared", ValueKind::Number}});
    builder.Add({{}, Whole(1), {}, {}});
    builder.Add({Cell(ValueKind::Date, 1), Text("x"), {}, Text("y")});
    const auto columns = builder.Finish()->Columns();
    EXPECT_EQ(columns[0].kind, ValueKind::Date);
    EXPECT_EQ(columns[1].kind, ValueKind::Null);
    EXPECT_EQ(columns[2].kind, ValueKind::Null);
    EXPECT_EQ(columns[3].kind, ValueKind::Number);
}

TEST(RowStore, ARowOfAnotherWidthIsRefused) {
    RowStoreBuilder builder(Columns(2));
    EXPECT_NE(FailureOf(FailureNumber::InvalidArgument, [&] { builder.Add({Whole(1)}); }), "");
}

TEST(RowStore, AMissingFolderIsNamed) {
    RowStoreBuilder builder(Columns(1), Small("/nowhere/at/all"));
    const std::string text = FailureOf(FailureNumber::FileAccess, [&] {
        for (int i = 0; i < 500; ++i)
            builder.Add({Whole(i)});
    });
    EXPECT_NE(text.find("/nowhere/at/all"), std::string::npos) << text;
    EXPECT_NE(text.find("TMPDIR"), std::string::npos) << text;
}

TEST(RowStore, AFullDiskIsAFailure) {
    const test::TempFolder folder;
    std::signal(SIGXFSZ, SIG_IGN);
    constexpr rlim_t fewBytes = 1000;
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit limit{fewBytes, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    RowStoreBuilder builder(Columns(1), Small(folder.Path().string()));
    const std::string text = FailureOf(FailureNumber::FileAccess, [&] {
        for (int i = 0; i < 5000; ++i)
            builder.Add({Whole(i)});
    });
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_NE(text.find("written"), std::string::npos) << text;
}

TEST(RowStore, RandomRowsComeBack) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    RecordProperty("seed", static_cast<int>(seed));
    std::mt19937_64 random(seed);
    const auto edges = EdgeCells();
    const std::size_t columns = 1 + random() % 20;
    std::vector<std::vector<CellView>> wanted;
    RowStoreBuilder builder(Columns(columns), {random() % 100000, 1 + random() % 5000, {}});
    const std::size_t count = random() % 400;
    for (std::size_t i = 0; i < count; ++i) {
        std::vector<CellView> row(columns);
        for (CellView& cell : row) {
            if (random() % 4 == 0) {
                cell = edges[random() % (edges.size() - 1)].cell; // not the huge text: time
            } else {
                const auto bits = random();
                cell = Whole(static_cast<std::int64_t>(bits >> (bits % 64)));
            }
        }
        builder.Add(row);
        wanted.push_back(row);
    }
    const auto rows = builder.Finish();
    ASSERT_EQ(rows->RowCount(), wanted.size());
    const auto cursor = rows->Open();
    RowView row;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (random() % 10 == 0) cursor->Seek(i);
        ASSERT_TRUE(cursor->Next(row));
        for (std::size_t c = 0; c < columns; ++c)
            ExpectSame(row[c], wanted[i][c]);
        if (HasFatalFailure()) return;
    }
}

} // namespace
} // namespace qbrpt::database
