// A report object as the system's code handles it.
#include "base/picture.h"
#include "runtime/live_fixture.h"
#include "samples/sample_rows.h"

#include <gmock/gmock.h>

namespace {

using namespace qbrpt;
using CrystalRuntime::ObjectKind;
using testing::HasSubstr;

TEST_F(LiveReports, AnUnsetRecordSetIsAFailure) {
    const auto report = NewReport("PayOutRpt");
    EXPECT_EQ(FailureOf([&] { report->SetDataSource({}, 3); }).Number(), FailureNumber::ObjectNotSet);
}

TEST_F(LiveReports, AnotherDataTagIsAFailure) {
    const auto report = NewReport("PayOutRpt");
    const auto rows = std::make_shared<fakes::FakeRecordset>(samples::Payments(1));
    EXPECT_EQ(FailureOf([&] { report->SetDataSource(rows, 1); }).Number(), FailureNumber::InvalidArgument);
}

TEST_F(LiveReports, ReadingWithoutADataSourceIsAFailure) {
    const auto report = NewReport("PayOutRpt");
    const Failure failure = FailureOf([&] { report->ReadRecords(); });
    EXPECT_EQ(failure.Number(), FailureNumber::Report);
    EXPECT_THAT(failure.Description(), HasSubstr("PayOutRpt"));
}

TEST_F(LiveReports, WithoutRowsThereIsOnePage) {
    EXPECT_EQ(NewReport("PayOutRpt")->NumberOfPages(), 1);
    EXPECT_EQ(Filled("PayOutRpt", {})->NumberOfPages(), 1);
}

TEST_F(LiveReports, PagesFollowTheRowsAndThePaper) {
    const auto report = Filled("PayOutRpt", samples::Payments(200));
    EXPECT_EQ(report->NumberOfPages(), 5);
    report->SetPaperOrientation(2);
    EXPECT_EQ(report->NumberOfPages(), 8);
    report->SetPaperSize(8);
    report->SetPaperOrientation(1);
    EXPECT_EQ(report->NumberOfPages(), 4);
}

TEST_F(LiveReports, AnUnknownPaperIsA4) {
    const auto report = Filled("PayOutRpt", samples::Payments(200));
    report->SetPaperSize(9999);
    EXPECT_EQ(report->NumberOfPages(), 5);
}

/// The table of a report as a file of this kind.
std::string TableOf(const Ref<CrystalRuntime::Report>& report, TableKind kind) {
    StringSink sink;
    OutputOf(report).WriteTable(kind, sink, {});
    return sink.bytes;
}

std::size_t CountOf(const std::string& text, const std::string& word) {
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
        ++count;
    return count;
}

TEST_F(LiveReports, RowsStandInTheOrderOfTheLayoutButInCsvFiles) {
    UseRealText();
    std::vector<fakes::Row> rows;
    for (const char* name : {"ليلى ", "بدر ", "ليلى ", "بدر "})
        rows.push_back({std::string(name), std::string("شهري"),
                        Date{45000.5 - static_cast<double>(rows.size())}, Date{45000.75}, 30.0});
    const auto report = Filled("MemberUseRpt", rows);
    EXPECT_EQ(CountOf(TableOf(report, TableKind::Html), "مجموع بدر"), 1U)
        << "a customer's rows stand together";
    StringSink pages;
    OutputOf(report).WritePdf(pages, {}, {});
    EXPECT_EQ(CountOf(pdf::test::TextOf(pages.bytes), "جلستان"), 2U);
    const std::string csv = TableOf(report, TableKind::Csv);
    EXPECT_LT(csv.find("ليلى"), csv.find("بدر"));
    EXPECT_LT(csv.find("بدر"), csv.rfind("ليلى"));
}

TEST_F(LiveReports, OtherRowsAreOrderedAnew) {
    const auto report = Filled("MemberUseRpt", std::vector<fakes::Row>(2, {std::string("ب")}));
    EXPECT_EQ(report->NumberOfPages(), 1);
    report->SetDataSource(
        std::make_shared<fakes::FakeRecordset>(std::vector<fakes::Row>(90, {std::string("ب")})), 3);
    report->ReadRecords();
    EXPECT_EQ(report->NumberOfPages(), 3);
}

TEST_F(LiveReports, SectionsAreCountedFromOneInTheirOrder) {
    const auto report = NewReport("IncomeGrpRpt");
    ASSERT_EQ(report->SectionCount(), 8);
    for (int i = 1; i <= 8; ++i)
        EXPECT_EQ(report->Sections(i)->Name(), "Section" + std::to_string(i));
    EXPECT_EQ(NewReport("IncomeRpt")->SectionCount(), 7);
    EXPECT_EQ(NewReport("PayOutRpt")->SectionCount(), 6);
    EXPECT_GT(report->Sections(1)->Height(), 0);
}

struct Missing {
    const char* name;
    std::function<void(CrystalRuntime::Report&)> ask;
    const char* told;
};
void PrintTo(const Missing& missing, std::ostream* stream) {
    *stream << missing.name;
}

class MissingThings : public LiveReports, public testing::WithParamInterface<Missing> {};

TEST_P(MissingThings, AreNamedWithTheTemplate) {
    const auto report = NewReport("IncomeGrpRpt");
    const Failure failure = FailureOf([&] { GetParam().ask(*report); });
    EXPECT_EQ(failure.Number(), FailureNumber::NotInCollection);
    EXPECT_THAT(failure.Description(), HasSubstr("IncomeGrpRpt"));
    EXPECT_THAT(failure.Description(), HasSubstr(GetParam().told));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, MissingThings,
    testing::Values(
        Missing{"SectionZero", [](auto& report) { static_cast<void>(report.Sections(0)); }, "section 0"},
        Missing{"SectionNine", [](auto& report) { static_cast<void>(report.Sections(9)); }, "section 9"},
        Missing{"SectionName", [](auto& report) { static_cast<void>(report.SectionNamed("Section9")); },
                "\"Section9\""},
        Missing{"ObjectName", [](auto& report) { static_cast<void>(report.ObjectNamed("HeadTitleText")); },
                "\"HeadTitleText\""},
        Missing{"ObjectZero", [](auto& report) { static_cast<void>(report.Sections(1)->ReportObjects(0)); },
                "object 0"},
        Missing{"ObjectBehindLast",
                [](auto& report) {
                    const auto section = report.Sections(1);
                    static_cast<void>(section->ReportObjects(section->ReportObjectCount() + 1));
                },
                "object 6"},
        Missing{"FormatOfUnknownSection", [](auto& report) { report.OnFormat("Section9", [] {}); },
                "\"Section9\""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(LiveReports, ObjectsHaveTheirKinds) {
    const auto report = NewReport("IncomeGrpRpt");
    EXPECT_EQ(report->ObjectNamed("HotelNameTextTop")->Kind(), ObjectKind::Text);
    EXPECT_EQ(report->ObjectNamed("total_income")->Kind(), ObjectKind::Field);
    EXPECT_EQ(report->ObjectNamed("total_income total")->Kind(), ObjectKind::Field);
    EXPECT_EQ(report->ObjectNamed("row line")->Kind(), ObjectKind::Line);
    EXPECT_EQ(report->ObjectNamed("total box")->Kind(), ObjectKind::Box);
}

TEST_F(LiveReports, AllWordsCarryTheArabicCharacterSet) {
    for (const char* name : {"IncomeGrpRpt", "IncomeRpt", "PayOutRpt"}) {
        const auto report = NewReport(name);
        for (int s = 1; s <= report->SectionCount(); ++s) {
            const auto section = report->Sections(s);
            for (int o = 1; o <= section->ReportObjectCount(); ++o) {
                const auto object = section->ReportObjects(o);
                if (object->Kind() != ObjectKind::Text && object->Kind() != ObjectKind::Field) continue;
                EXPECT_EQ(object->FontCharset(), 178) << name << " " << object->Name();
                EXPECT_THAT(object->FontName(), testing::StartsWith("Noto ")) << object->Name();
            }
        }
    }
}

TEST_F(LiveReports, TextsAreWrittenAndReadBack) {
    const auto report = NewReport("PayOutRpt");
    report->ObjectNamed("HeadTitleText")->SetText("عنوان {pages}");
    EXPECT_EQ(report->ObjectNamed("HeadTitleText")->Text(), "عنوان {pages}");
    EXPECT_EQ(OutputOf(report).Title(), "عنوان {pages}");
}

TEST_F(LiveReports, ATitleOfAFormatEventIsKnownBeforeThePages) {
    const auto report = NewReport("rptPPIncome");
    report->OnFormat("Section2", [&report] { report->ObjectNamed("HeadTitleText")->SetText("بطاقات"); });
    EXPECT_EQ(OutputOf(report).Title(), "بطاقات");
    EXPECT_EQ(report->PrintingStatus(), 0);
}

TEST_F(LiveReports, TheLayoutsOwnTitleStandsUntilThen) {
    EXPECT_EQ(OutputOf(NewReport("PayOutRpt")).Title(), "المصروفات الخارجية");
}

TEST_F(LiveReports, OneReportDoesNotChangeTheNext) {
    NewReport("PayOutRpt")->ObjectNamed("HeadTitleText")->SetText("x");
    EXPECT_EQ(NewReport("PayOutRpt")->ObjectNamed("HeadTitleText")->Text(), "المصروفات الخارجية");
}

TEST_F(LiveReports, AnOperationThatAKindLacksIsAFailure) {
    const auto report = NewReport("PayOutRpt");
    const auto line = report->ObjectNamed("row line");
    const auto text = report->ObjectNamed("HeadTitleText");
    EXPECT_THAT(FailureOf([&] { static_cast<void>(line->FontName()); }).Description(),
                HasSubstr("\"row line\" of the report template \"PayOutRpt\" has no font"));
    EXPECT_THAT(FailureOf([&] { line->SetText("x"); }).Description(), HasSubstr("has no text"));
    EXPECT_THAT(FailureOf([&] { static_cast<void>(text->OpenSubreport()); }).Description(),
                HasSubstr("has no subreport"));
    EXPECT_THAT(
        FailureOf([&] { text->SetFormattedPicture(std::make_shared<const Picture>()); }).Description(),
        HasSubstr("has no picture"));
    EXPECT_EQ(FailureOf([&] { text->SetFormattedPicture({}); }).Number(), FailureNumber::ObjectNotSet);
}

TEST_F(LiveReports, PlacesAreMeasuredFromTheLeft) {
    const auto report = NewReport("PayOutRpt");
    const auto title = report->ObjectNamed("HeadTitleText");
    EXPECT_EQ(title->Left(), 260);
    EXPECT_EQ(title->Width(), 11178 - 2 * 260);
    title->SetWidth(1000);
    EXPECT_EQ(title->Left(), 260);
    title->SetLeft(3000);
    EXPECT_EQ(title->Left(), 3000);
    EXPECT_EQ(title->Width(), 1000);
}

TEST_F(LiveReports, ASuppressedSectionLeavesItsRoom) {
    const auto report = Filled("PayOutRpt", samples::Payments(200));
    report->SectionNamed("Section4")->SetSuppress(true);
    EXPECT_TRUE(report->SectionNamed("Section4")->Suppress());
    EXPECT_EQ(report->NumberOfPages(), 1);
}

TEST_F(LiveReports, FormatHandlersKnowTheirPage) {
    const auto report = Filled("IncomeGrpRpt", samples::IncomeDays(60));
    std::vector<std::int32_t> first;
    std::vector<std::int32_t> later;
    report->OnFormat("Section1", [&] { first.push_back(report->PrintingStatus()); });
    report->OnFormat("Section2", [&] { later.push_back(report->PrintingStatus()); });
    EXPECT_EQ(report->PrintingStatus(), 0);
    ASSERT_EQ(report->NumberOfPages(), 3);
    EXPECT_THAT(first, testing::AllOf(testing::Not(testing::IsEmpty()), testing::Each(1)));
    EXPECT_THAT(later, testing::AllOf(testing::Contains(2), testing::Contains(3)));
    EXPECT_EQ(report->PrintingStatus(), 0);
}

TEST_F(LiveReports, AFailingFormatHandlerEndsTheCountAndLeavesNoPage) {
    const auto report = NewReport("PayOutRpt");
    report->OnFormat("Section1", [] { throw Failure(FailureNumber::Report, "handler"); });
    EXPECT_EQ(FailureOf([&] { static_cast<void>(report->NumberOfPages()); }).Description(), "handler");
    EXPECT_EQ(report->PrintingStatus(), 0);
    report->OnFormat("Section1", {});
    EXPECT_EQ(report->NumberOfPages(), 1);
}

TEST_F(LiveReports, PrintOutHandsOverWhatTheJobIs) {
    const auto report = Filled("PayOutRpt", samples::Payments(200));
    report->SelectPrinter("driver", "printer", "port");
    report->SetPaperSize(9);
    report->SetPaperOrientation(2);
    report->PrintOut(false, {3, true, 2, 4});
    ASSERT_EQ(delivery->jobs.size(), 1U);
    const PrintJob& job = delivery->jobs.front();
    EXPECT_EQ(job.device, "printer");
    EXPECT_EQ(job.title, "المصروفات الخارجية");
    EXPECT_EQ(job.paperSize, 9);
    EXPECT_EQ(job.orientation, 2);
    EXPECT_EQ(job.copies, 3);
    EXPECT_EQ(job.pages.first, 2);
    EXPECT_EQ(job.pages.last, 4);
    EXPECT_EQ(delivery->pageCounts.front(), 8);
}

TEST_F(LiveReports, PrintOutAloneIsAllPagesOnce) {
    NewReport("PayOutRpt")->PrintOut(false);
    ASSERT_EQ(delivery->jobs.size(), 1U);
    EXPECT_EQ(delivery->jobs.front().copies, 1);
    EXPECT_FALSE(delivery->jobs.front().pages.first);
    EXPECT_FALSE(delivery->jobs.front().pages.last);
}

TEST_F(LiveReports, CsvHoldsTheBoundRows) {
    StringSink sink;
    OutputOf(Filled("PayOutRpt", {{12.5, Date{45717.5}, std::string("a \"b\"")}}))
        .WriteTable(TableKind::Csv, sink, {});
    EXPECT_EQ(sink.bytes, "\xEF\xBB\xBF"
                          "amount,pay_date,details\r\n12.5,2025-03-01 12:00:00,\"a \"\"b\"\"\"\r\n");
}

TEST_F(LiveReports, CsvWithoutRowsHasItsHeader) {
    StringSink sink;
    OutputOf(NewReport("PayOutRpt")).WriteTable(TableKind::Csv, sink, {});
    EXPECT_EQ(sink.bytes, "\xEF\xBB\xBF"
                          "amount,pay_date,details\r\n");
}

TEST_F(LiveReports, PdfWithoutFontsIsAFailure) {
    StringSink sink;
    const auto report = NewReport("PayOutRpt");
    EXPECT_EQ(FailureOf([&] { OutputOf(report).WritePdf(sink, {}, {}); }).Number(), FailureNumber::Output);
    EXPECT_TRUE(sink.bytes.empty());
}

TEST_F(LiveReports, AnUnknownTemplateHasNoReport) {
    EXPECT_THROW(static_cast<void>(Platform::Current().reports->NewReport("NoRpt", {})), Failure);
}

} // namespace
