// The report on one account: a list, and another one in a subreport.
#include "runtime/live_fixture.h"
#include "samples/report_rows.h"
#include "templates/SngAccountRpt.h"

#include <gmock/gmock.h>

namespace {

using namespace qbrpt;
using testing::HasSubstr;
using testing::Not;

constexpr const char* Incoming = "الوارد إلى الحساب";
constexpr const char* Outgoing = "الصادر من الحساب";

Ref<DAO::Recordset> Moves(std::size_t count) {
    return std::make_shared<fakes::FakeRecordset>(samples::Moves(count));
}

class AccountReport : public LiveReports {
protected:
    AccountReport() { UseRealText(); }

    static void Fill(const Ref<CrystalRuntime::Report>& report, std::size_t count) {
        report->SetDataSource(Moves(count), 3);
        report->ReadRecords();
    }
    static Ref<CrystalRuntime::Report> From(const SngAccountRpt& account) {
        return account.Report()->ObjectNamed("rptFrom")->OpenSubreport();
    }
    static std::string PagesOf(const SngAccountRpt& account) {
        StringSink sink;
        OutputOf(account.Report()).WritePdf(sink, {}, {});
        return pdf::test::TextOf(sink.bytes);
    }
};

TEST_F(AccountReport, ShowsBothSidesAndTheSumOfWhatWentOut) {
    SngAccountRpt account;
    account.ShowAccountSection(false, false);
    Fill(account.Report(), 11);
    Fill(From(account), 8);
    account.SetTitle("", "حركة القيد الخاصة بحساب الصندوق", "ليوم السبت 01 مارس 2025", 11935);
    const std::string text = PagesOf(account);
    for (const char* expected : {Incoming, Outgoing, "11 قيدًا", "8 قيود", "11,935.00", "حساب الصندوق"})
        EXPECT_THAT(text, HasSubstr(expected));
}

struct Side {
    const char* name;
    std::size_t in, out;
    const char* shown;
    const char* hidden;
};

class AccountSide : public AccountReport, public testing::WithParamInterface<Side> {};

TEST_P(AccountSide, WithoutEntriesIsLeftOut) {
    const Side& side = GetParam();
    SngAccountRpt account;
    account.ShowAccountSection(side.in == 0, side.out == 0);
    if (side.in > 0) Fill(account.Report(), side.in);
    if (side.out > 0) Fill(From(account), side.out);
    account.SetTitle("", "حركة القيد", "", 0);
    const std::string text = PagesOf(account);
    EXPECT_THAT(text, HasSubstr(side.shown));
    EXPECT_THAT(text, Not(HasSubstr(side.hidden)));
    EXPECT_THAT(text, HasSubstr(".00")) << "the sum stands there all the same";
}

INSTANTIATE_TEST_SUITE_P(Accounts, AccountSide,
                         testing::Values(Side{"NothingCameIn", 0, 5, Outgoing, Incoming},
                                         Side{"NothingWentOut", 5, 0, Incoming, Outgoing}),
                         [](const auto& row) { return row.param.name; });

TEST_F(AccountReport, GoesOnOverPagesUnderItsHeadings) {
    SngAccountRpt account;
    Fill(account.Report(), 60);
    EXPECT_EQ(account.Report()->NumberOfPages(), 2);
    Fill(From(account), 120);
    EXPECT_GE(account.Report()->NumberOfPages(), 5) << "rows read into the subreport count at once";
    EXPECT_THAT(PagesOf(account), HasSubstr("(تابع)"));
}

TEST_F(AccountReport, TheSubreportIsOneObjectHoweverOftenItIsOpened) {
    SngAccountRpt account;
    Fill(From(account), 3);
    EXPECT_EQ(From(account)->SectionCount(), 6);
    EXPECT_EQ(From(account)->SectionNamed("rptFrom_Section4")->Name(), "rptFrom_Section4");
    From(account)->SectionNamed("rptFrom_Section4")->SetSuppress(true);
    EXPECT_TRUE(From(account)->SectionNamed("rptFrom_Section4")->Suppress());
}

TEST_F(AccountReport, ASubreportWithoutRowsShowsNothing) {
    SngAccountRpt account;
    Fill(account.Report(), 2);
    static_cast<void>(From(account));
    EXPECT_THAT(PagesOf(account), Not(HasSubstr(Outgoing)));
}

TEST_F(AccountReport, TablesShowBothSides) {
    SngAccountRpt account;
    account.ShowAccountSection(false, false);
    Fill(account.Report(), 3);
    Fill(From(account), 2);
    account.SetTitle("", "حركة القيد الخاصة بحساب الصندوق", "ليوم السبت 01 مارس 2025", 11935);
    StringSink page;
    OutputOf(account.Report()).WriteTable(TableKind::Html, page, {});
    EXPECT_THAT(page.bytes,
                AllOf(HasSubstr("حركة القيد الخاصة بحساب الصندوق"), HasSubstr(">الوارد إلى الحساب<"),
                      HasSubstr(">من حساب<"), HasSubstr(">الصادر من الحساب<"), HasSubstr(">إلى حساب<"),
                      HasSubstr(">حركة القيد الخاصة بحساب الصندوق</h1>")));
    StringSink book;
    OutputOf(account.Report()).WriteTable(TableKind::Xlsx, book, {});
    EXPECT_THAT(book.bytes,
                AllOf(HasSubstr("xl/worksheets/sheet1.xml"), HasSubstr("xl/worksheets/sheet2.xml"),
                      Not(HasSubstr("xl/worksheets/sheet3.xml"))));
}

TEST_F(AccountReport, TablesLeaveOutTheSideThatIsHidden) {
    for (const bool hideIncoming : {true, false}) {
        SngAccountRpt account;
        account.ShowAccountSection(hideIncoming, !hideIncoming);
        Fill(account.Report(), 3);
        Fill(From(account), 2);
        account.SetTitle("", "حركة القيد الخاصة بحساب الصندوق", "ليوم السبت 01 مارس 2025", 11935);
        StringSink page;
        OutputOf(account.Report()).WriteTable(TableKind::Html, page, {});
        EXPECT_THAT(page.bytes, HasSubstr("حركة القيد الخاصة بحساب الصندوق"));
        EXPECT_THAT(page.bytes, HasSubstr(hideIncoming ? Outgoing : Incoming));
        EXPECT_THAT(page.bytes, Not(HasSubstr(hideIncoming ? Incoming : Outgoing)));
    }
}

TEST_F(AccountReport, ASubreportOutlivedByItsObjectIsAFailure) {
    Ref<CrystalRuntime::ReportObject> object;
    {
        SngAccountRpt account;
        object = account.Report()->ObjectNamed("rptFrom");
    }
    EXPECT_EQ(FailureOf([&] { static_cast<void>(object->OpenSubreport()); }).Number(),
              FailureNumber::ObjectNotSet);
}

struct Amount {
    std::int32_t amount;
    const char* text;
};

TEST_F(AccountReport, TheSumIsWrittenByItsPicture) {
    for (const Amount& row : {Amount{0, ".00"}, Amount{5, "5.00"}, Amount{1234567, "1,234,567.00"},
                              Amount{-2147483647 - 1, "-2,147,483,648.00"}}) {
        SngAccountRpt account;
        account.SetTitle("", "", "", row.amount);
        EXPECT_EQ(account.Report()->ObjectNamed("AccountAmountText")->Text(), row.text);
    }
}

} // namespace
