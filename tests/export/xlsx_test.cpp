// A report as a spreadsheet, read back by another reader.
#include "adapters/export/xlsx.h"
#include "adapters/export/xlsx_table.h"
#include "base/failure.h"
#include "base/utf8.h"
#include "export/export_tools.h"

#include <gmock/gmock.h>

#include <cmath>

namespace qbrpt::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using ::testing::Not;
using ::testing::StartsWith;

std::vector<std::string> SheetOf(const ExportJob& job, std::uint32_t rowsPerSheet = SheetRows) {
    StringSink sink;
    WriteXlsx(sink, job, {}, rowsPerSheet);
    return DumpOf("dump_xlsx.py", sink.bytes);
}

TEST(Xlsx, ShowsHeadingCaptionsRowsAndTotals) {
    const report::Definition definition = UseDefinition(false);
    EXPECT_THAT(
        SheetOf(JobOf(definition,
                      {UseRow("1", 45717.5, 75.0, 1234.5, "a"), UseRow("1", 45718.25, Null{}, 0.0, "b")})),
        ElementsAre(
            "book title=استخدام <الأجهزة>",
            "sheet التقرير rtl=True frozen=A4 titles=$3:$3 portrait paper=9 fit=Nonex0 filter=A3:D5",
            "A1 s General 'استخدام <الأجهزة>'", "A3 s General 'البيان'", "B3 s General 'البدء'",
            "C3 s General 'المدة (س:د)'", "D3 s General 'المبلغ'", "A4 s General 'a'",
            "B4 d dd\\/mm\\/yyyy hh:mm 2025-03-01 12:00:00", "C4 d [h]:mm 1:15:00", "D4 n #,##0.00 1234.5",
            "A5 s General 'b'", "B5 d dd\\/mm\\/yyyy hh:mm 2025-03-02 06:00:00", "D5 n #,##0.00 0",
            "A6 s General 'المجموع'", "B6 s General 'قيدان'", "C6 f [h]:mm '=SUBTOTAL(9,C4:C5)' -> 1:15:00",
            "D6 f #,##0.00 '=SUBTOTAL(9,D4:D5)' -> 1234.5", "A7 s General 'المعدل'",
            "D7 f #,##0.00 '=SUBTOTAL(1,D4:D5)' -> 617.25", "width A 11", "width B 18", "width C 16",
            "width D 11"));
}

TEST(Xlsx, GroupsHaveHeadingsSubtotalsAndFoldedRows) {
    const report::Definition definition = UseDefinition(true);
    const auto lines =
        SheetOf(JobOf(definition, {UseRow("7", 45717, 10.0, 1.0, "a"), UseRow("7", 45717, 20.0, 2.0, "b"),
                                   UseRow("9", 45717, 30.0, 4.0, "c")}));
    EXPECT_THAT(lines, IsSupersetOf({"A4 s General 'جهاز 7'", "A5 s General 'a'", "A7 s General 'مجموع 7'",
                                     "B7 s General 'قيدان'", "D7 f #,##0.00 '=SUBTOTAL(9,D5:D6)' -> 3",
                                     "A8 s General 'جهاز 9'", "D10 f #,##0.00 '=SUBTOTAL(9,D9)' -> 4",
                                     "D11 f #,##0.00 '=SUBTOTAL(9,D5:D9)' -> 7", "fold 5 1", "fold 6 1",
                                     "fold 9 1"}));
    EXPECT_THAT(lines, Contains(HasSubstr("filter=None")));
}

TEST(Xlsx, RowsGoOnOnFurtherSheets) {
    const report::Definition definition = UseDefinition(false);
    std::vector<fakes::Row> rows;
    for (int i = 0; i < 10; ++i)
        rows.push_back(UseRow("7", 45717, 1.0, static_cast<double>(i), "a"));
    // Three rows of heading and captions leave room for four.
    const auto lines = SheetOf(JobOf(definition, rows), 7);
    EXPECT_THAT(lines, IsSupersetOf({StartsWith("sheet التقرير rtl=True frozen=A4"),
                                     StartsWith("sheet التقرير 2 rtl=True frozen=A4"),
                                     StartsWith("sheet التقرير 3 rtl=True frozen=A4")}));
    EXPECT_THAT(lines, Contains("D6 f #,##0.00 \"=SUBTOTAL(9,'التقرير'!D4:D7)+SUBTOTAL(9,'التقرير "
                                "2'!D4:D7)+SUBTOTAL(9,D4:D5)\" -> 45"));
    EXPECT_THAT(lines, Contains(StartsWith("D7 f #,##0.00 \"=(SUBTOTAL(9,'التقرير'!D4:D7)+")));
    EXPECT_THAT(lines, Contains(HasSubstr("/(SUBTOTAL(2,'التقرير'!D4:D7)+")));
}

TEST(Xlsx, AGroupThatGoesOnBearsItsHeadingAgain) {
    const report::Definition definition = UseDefinition(true);
    const std::vector<fakes::Row> rows(5, UseRow("7", 45717, 1.0, 1.0, "a"));
    const auto lines = SheetOf(JobOf(definition, rows), 7);
    EXPECT_THAT(lines,
                IsSupersetOf({"A4 s General 'جهاز 7'", "A4 s General 'جهاز 7 (تابع)'", "A5 s General 'a'"}));
    EXPECT_THAT(lines, Contains("D7 f #,##0.00 \"=SUBTOTAL(9,'التقرير'!D5:D7)+SUBTOTAL(9,D5:D6)\" -> 5"));
}

TEST(Xlsx, ASubreportHasASheetOfItsOwn) {
    const report::Definition definition = UseDefinition(false);
    report::Definition inside = UseDefinition(false);
    inside.sections[0].objects[0].text = "من [الحساب]: 1/2";
    ExportJob job = JobOf(definition, {});
    job.parts.push_back(JobOf(inside, {UseRow("1", 45717, 10.0, 1.0, "x")}).parts[0]);
    EXPECT_THAT(SheetOf(job),
                IsSupersetOf({StartsWith("sheet التقرير rtl"), StartsWith("sheet من  الحساب   1 2 rtl")}));
}

TEST(Xlsx, PaperIsThatOfTheReport) {
    const report::Definition definition = UseDefinition(false);
    ExportJob job = JobOf(definition, {});
    job.landscape = true;
    job.paperSize = 8;
    EXPECT_THAT(SheetOf(job), Contains(HasSubstr(" landscape paper=8 ")));
    job.paperSize = 265; // of the printer's own: the reader's printer chooses
    EXPECT_THAT(SheetOf(job), Contains(HasSubstr(" landscape paper=None ")));
}

TEST(Xlsx, NeighboursShareTheCaptionOfTheirTier) {
    report::Definition definition = UseDefinition(false);
    definition.tiers = {"الجلسة", "الحساب"};
    for (std::size_t i = 0; i < 4; ++i)
        definition.columns[i].tier = i < 3 ? 0 : 1;
    EXPECT_THAT(SheetOf(JobOf(definition, {})),
                IsSupersetOf({"merged A3:C3", "A3 s General 'الجلسة'", "D3 s General 'الحساب'"}));
}

struct Cell {
    const char* name;
    report::ValueFormat format;
    Value value;
    const char* read; ///< behind "A3 "; empty: the cell is empty
    const char* picture = "";
};
void PrintTo(const Cell& cell, std::ostream* stream) {
    *stream << cell.name;
}
class XlsxCell : public testing::TestWithParam<Cell> {};

TEST_P(XlsxCell, IsRead) {
    report::Definition definition;
    const Cell& cell = GetParam();
    const bool isText = KindOf(cell.value) == ValueKind::Text;
    const bool isDate = KindOf(cell.value) == ValueKind::Date;
    const bool isFlag = KindOf(cell.value) == ValueKind::Boolean;
    const std::array<Field, 1> fields = {{{"f",
                                           isText   ? FieldKind::String
                                           : isDate ? FieldKind::DateTime
                                           : isFlag ? FieldKind::Boolean
                                                    : FieldKind::Number,
                                           65'000, 0}}};
    definition.fields = fields;
    definition.columns = {ColumnOf(0, "c", cell.format)};
    definition.columns[0].picture = cell.picture;
    std::string found;
    for (const std::string& line : SheetOf(JobOf(definition, {{cell.value}})))
        if (line.starts_with("A2 ")) found = line.substr(3);
    EXPECT_EQ(found, cell.read);
}

using enum report::ValueFormat;

INSTANTIATE_TEST_SUITE_P(
    Rows, XlsxCell,
    testing::Values(
        Cell{"Null", Money, Null{}, ""}, Cell{"EmptyText", Text, std::string(), ""},
        Cell{"Formula", Text, std::string("=1+1"), "s General '=1+1'"},
        Cell{"Escape", Text, std::string("_x0041_"), "s General '_x0041_'"},
        Cell{"DigitsAsText", Text, std::string("007"), "s General '007'"},
        Cell{"Blanks", Text, std::string(" a "), "s General ' a '"},
        Cell{"Marks", Text, std::string("<&>\""), "s General '<&>\"'"},
        Cell{"Controls", Text, std::string("a\x01z\x7F"), "s General 'a z '"},
        Cell{"BadBytes", Text, std::string("a\xFF"), "s General 'a\uFFFD'"},
        Cell{"TwoLines", Text, std::string("a\r\nb"), "s General 'a\\nb'"},
        Cell{"Money", Money, 1234.5, "n #,##0.00 1234.5"},
        Cell{"Count", Count, std::int64_t{12}, "n #,##0 12"},
        Cell{"Decimal", Decimal, 12.25, "n #,##0.00 12.25"},
        Cell{"WholeDecimal", Decimal, 12.0, "n #,##0 12"}, Cell{"Tenth", Decimal, 12.5, "n #,##0.0 12.5"},
        Cell{"Share", Percent, 0.125, "n 0.0% 0.125"}, Cell{"Duration", Duration, 90.0, "d [h]:mm 1:30:00"},
        Cell{"LongDuration", Duration, 28'420.0, "d [h]:mm 19 days, 17:40:00"},
        Cell{"NegativeDuration", Duration, -90.0, "s General '-1:30'"},
        Cell{"Date", report::ValueFormat::Date, qbrpt::Date{45717}, "d dd\\/mm\\/yyyy 2025-03-01 00:00:00"},
        Cell{"Time", Time, qbrpt::Date{45717.5}, "d hh:mm 2025-03-01 12:00:00"},
        Cell{"NearlyTen", Time, qbrpt::Date{45717 + (36'000 - 0.2) / 86'400}, "d hh:mm 2025-03-01 10:00:00"},
        Cell{"OldDate", report::ValueFormat::Date, qbrpt::Date{60}, "s General '28/02/1900'"},
        Cell{"FirstCommonDate", report::ValueFormat::Date, qbrpt::Date{61},
             "d dd\\/mm\\/yyyy 1900-03-01 00:00:00"},
        Cell{"BeforeDayZero", DateTime, qbrpt::Date{-1.25}, "s General '29/12/1899 06:00'"},
        Cell{"DateAsText", Text, qbrpt::Date{45717.5}, "d dd\\/mm\\/yyyy hh:mm 2025-03-01 12:00:00"},
        Cell{"True", YesNo, true, "s General 'نعم'"}, Cell{"False", YesNo, false, "s General 'لا'"},
        Cell{"Infinite", Money, std::numeric_limits<double>::infinity(), ""},
        Cell{"LongNumber", Text, std::int64_t{9'007'199'254'740'993}, "s General '9007199254740993'"},
        Cell{"SharedPicture", Picture, 5.5, "n #,##.00# 5.5", "#,##.00#"},
        Cell{"OtherPicture", Picture, 5.5, "n General 5.5", "Currency;x"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Xlsx, LongTextsAreCutWhereASheetEnds) {
    EXPECT_EQ(CharacterCount(SheetText(std::string(40'000, 'a'))), 32'767U);
    std::string faces;
    for (int i = 0; i < 20'000; ++i)
        faces += "\U0001F600"; // two letters to a spreadsheet
    EXPECT_EQ(CharacterCount(SheetText(faces)), 16'383U);
}

TEST(Xlsx, WhereANumberBecameATextTheTotalIsNoFormula) {
    const report::Definition definition = UseDefinition(false);
    EXPECT_THAT(
        SheetOf(JobOf(definition, {UseRow("7", 45717, -30.0, 1.0, "a"), UseRow("7", 45717, 90.0, 2.0, "b")})),
        IsSupersetOf(
            {"C4 s General '-0:30'", "C6 d [h]:mm 1:00:00", "D6 f #,##0.00 '=SUBTOTAL(9,D4:D5)' -> 3"}));
}

TEST(Xlsx, WithoutRowsThereAreCaptionsAndAnEmptyTotal) {
    const report::Definition definition = UseDefinition(true);
    const auto lines = SheetOf(JobOf(definition, {}));
    EXPECT_THAT(lines, IsSupersetOf({"A3 s General 'البيان'", "A4 s General 'المجموع'"}));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("SUBTOTAL"))));
}

TEST(Xlsx, TheSameReportGivesTheSameBytes) {
    const report::Definition definition = UseDefinition(true);
    const ExportJob job = JobOf(definition, {UseRow("7", 45717, 10.0, 1.0, "a")});
    StringSink first;
    StringSink second;
    WriteXlsx(first, job);
    WriteXlsx(second, job);
    EXPECT_EQ(first.bytes, second.bytes);
}

TEST(Xlsx, StopsWhereItsListenerStopsIt) {
    const report::Definition definition = UseDefinition(false);
    StringSink sink;
    EXPECT_THROW(WriteXlsx(sink, JobOf(definition, std::vector(5'000, UseRow("7", 45717, 1.0, 1.0, "a"))),
                           [](std::size_t done, std::size_t) {
                               if (done > 0) throw Failure(FailureNumber::Cancelled, "enough");
                           }),
                 Failure);
    EXPECT_TRUE(sink.bytes.empty());
}

} // namespace
} // namespace qbrpt::test
