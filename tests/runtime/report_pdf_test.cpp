// Reports as PDF files, read back by another program.
#include "runtime/live_fixture.h"
#include "samples/sample_rows.h"
#include "templates/IncomeGrpRpt.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace {

using namespace qbrpt;
using testing::HasSubstr;

using pdf::test::Look;
using pdf::test::TextOf;

/// `text` without blanks, which extraction puts where it likes.
std::string Packed(std::string text) {
    std::erase_if(text, [](char letter) { return letter == ' ' || letter == '\n' || letter == '\f'; });
    return text;
}

class ReportPdf : public LiveReports {
protected:
    ReportPdf() { UseRealText(); }

    static std::string PdfOf(const Ref<CrystalRuntime::Report>& report, const PageRange& range = {}) {
        StringSink sink;
        OutputOf(report).WritePdf(sink, range, {});
        return sink.bytes;
    }
    static std::string InfoOf(const std::string& pdf) { return Look(pdf, {"pdfinfo", "{}"}); }
};

TEST_F(ReportPdf, HoldsTitleHeadingFiguresAndTotals) {
    IncomeGrpRpt income;
    income.SetOtherTitle("تقرير بالإيراد من السبت 01 مارس إلى الخميس 20 مارس 2025");
    income.SetHotelInfo("مقهى نسمة للإنترنت", "شارع الميناء", "هاتف 011-4455667");
    income.Report()->SetDataSource(std::make_shared<fakes::FakeRecordset>(samples::IncomeMonth()), 3);
    income.Report()->ReadRecords();
    const std::string pdf = PdfOf(income.Report());
    const std::string text = TextOf(pdf);
    EXPECT_THAT(Packed(text), HasSubstr(Packed("تقرير بالإيراد من السبت 01 مارس إلى الخميس 20 مارس 2025")));
    EXPECT_THAT(Packed(text), HasSubstr(Packed("مقهى نسمة للإنترنت")));
    EXPECT_THAT(text, HasSubstr("011-4455667"));
    EXPECT_THAT(Packed(text), HasSubstr(Packed("المعدل اليومي")));
    for (const char* figure : {"22,111.50", "34,063.00", "1,703.15", "334:49"})
        EXPECT_THAT(text, HasSubstr(figure));
    const std::string info = InfoOf(pdf);
    EXPECT_THAT(info, HasSubstr("تقرير بالإيراد من السبت 01 مارس إلى الخميس 20 مارس 2025"));
    EXPECT_THAT(info, HasSubstr("841.9 x 595.3 pts (A4)"));
    EXPECT_THAT(Look(pdf, {"qpdf", "--check", "{}"}), HasSubstr("No syntax or stream encoding errors"));
}

TEST_F(ReportPdf, OnlyThePagesAskedForAreInIt) {
    const auto report = Filled("PayOutRpt", samples::Payments(200));
    const std::string pdf = PdfOf(report, {2, 3});
    EXPECT_THAT(InfoOf(pdf), HasSubstr("Pages:           2"));
    EXPECT_THAT(Packed(TextOf(pdf)), HasSubstr(Packed("صفحة 2 من 5")));
    EXPECT_THAT(InfoOf(PdfOf(report, {4, 99})), HasSubstr("Pages:           2"));
}

TEST_F(ReportPdf, PagesThatAreNotThereAreAFailure) {
    const auto report = Filled("PayOutRpt", samples::Payments(1));
    StringSink sink;
    const Failure failure = FailureOf([&] { OutputOf(report).WritePdf(sink, {2, 3}, {}); });
    EXPECT_EQ(failure.Number(), FailureNumber::InvalidArgument);
    EXPECT_THAT(failure.Description(), HasSubstr("2 to 3"));
}

TEST_F(ReportPdf, ProgressCountsToTheLastPageAndMayStop) {
    const auto report = Filled("PayOutRpt", samples::Payments(200));
    StringSink sink;
    std::size_t last = 0;
    std::size_t whole = 0;
    OutputOf(report).WritePdf(sink, {}, [&](std::size_t done, std::size_t all) {
        last = done;
        whole = all;
    });
    EXPECT_EQ(last, 5U);
    EXPECT_EQ(whole, 5U);
    const Failure failure = FailureOf([&] {
        OutputOf(report).WritePdf(
            sink, {}, [](std::size_t, std::size_t) { throw Failure(FailureNumber::Cancelled, "stopped"); });
    });
    EXPECT_EQ(failure.Number(), FailureNumber::Cancelled);
}

TEST_F(ReportPdf, TheSameReportGivesTheSameBytes) {
    const std::string first = PdfOf(Filled("PayOutRpt", samples::Payments(60)));
    UseRealText();
    EXPECT_EQ(first, PdfOf(Filled("PayOutRpt", samples::Payments(60))));
}

TEST_F(ReportPdf, ACharacterThatNoFaceHasIsWarnedOfOnce) {
    std::vector<std::string> warnings;
    RuntimeServices services = ServicesOf(std::make_shared<text::TextEngine>(), delivery);
    services.warn = [&](const std::string& warning) { warnings.push_back(warning); };
    Use(std::move(services));
    for (int i = 0; i < 2; ++i)
        static_cast<void>(PdfOf(Filled("PayOutRpt", {{1.0, Date{45717}, std::string("\xF3\xB0\x80\x80")}})));
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_THAT(warnings.front(), HasSubstr("U+F0000"));
}

} // namespace
