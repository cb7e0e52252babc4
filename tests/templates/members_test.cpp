// What the members of templates write, and what they tell the observers.
#include "fakes/call_log.h"
#include "fakes/fake_platform.h"
#include "templates/IncomeGrpRpt.h"
#include "templates/IncomeRpt.h"
#include "templates/PayOutRpt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace qbrpt;
using testing::ElementsAre;

class Members : public testing::Test {
protected:
    Members() { fakes::FakePlatform::Observe(log); }

    [[nodiscard]] std::vector<std::string> Written() const {
        return log->LinesOf({"member", "CrystalRuntime.ReportObject.SetText"});
    }

    fakes::FakePlatform platform;
    std::shared_ptr<fakes::CallLog> log = std::make_shared<fakes::CallLog>();
};

TEST_F(Members, HeadingOfTheIncomeSheetStandsAtTopAndBottom) {
    IncomeGrpRpt report;
    report.SetHotelInfo("مقهى", "شارع", "هاتف");
    EXPECT_THAT(Written(),
                ElementsAre("member SetHotelInfo(\"مقهى\", \"شارع\", \"هاتف\")",
                            "CrystalRuntime.ReportObject.SetText(\"HotelNameTextTop\", \"مقهى\")",
                            "CrystalRuntime.ReportObject.SetText(\"HotelNameTextBottom\", \"مقهى\")",
                            "CrystalRuntime.ReportObject.SetText(\"HotelAddr1Text\", \"شارع\")",
                            "CrystalRuntime.ReportObject.SetText(\"HotelAddr2Text\", \"هاتف\")"));
}

TEST_F(Members, HeadingOfThePaymentsListHasOneName) {
    PayOutRpt report;
    report.SetHotelInfo("مقهى", "شارع", "");
    EXPECT_THAT(Written(), ElementsAre("member SetHotelInfo(\"مقهى\", \"شارع\", \"\")",
                                       "CrystalRuntime.ReportObject.SetText(\"HotelNameText\", \"مقهى\")",
                                       "CrystalRuntime.ReportObject.SetText(\"HotelAddr1Text\", \"شارع\")",
                                       "CrystalRuntime.ReportObject.SetText(\"HotelAddr2Text\", \"\")"));
}

TEST_F(Members, TitlesGoToTheTitleObject) {
    IncomeGrpRpt grouped;
    IncomeRpt plain;
    PayOutRpt payments;
    grouped.SetOtherTitle("أ");
    plain.SetOtherTitle("ب");
    payments.SetHeadTitle("ج");
    EXPECT_THAT(Written(), ElementsAre("member SetOtherTitle(\"أ\")",
                                       "CrystalRuntime.ReportObject.SetText(\"IncomeTitleText\", \"أ\")",
                                       "member SetOtherTitle(\"ب\")",
                                       "CrystalRuntime.ReportObject.SetText(\"IncomeTitleText\", \"ب\")",
                                       "member SetHeadTitle(\"ج\")",
                                       "CrystalRuntime.ReportObject.SetText(\"HeadTitleText\", \"ج\")"));
}

TEST_F(Members, WidthsAreThoseOfTheFamily) {
    EXPECT_EQ(IncomeGrpRpt().ReportWidth(), 16089);
    EXPECT_EQ(IncomeRpt().ReportWidth(), 16089);
    EXPECT_EQ(PayOutRpt().ReportWidth(), 11178);
}

TEST_F(Members, FontPassRunsOnlyWhereTheTemplateWantsIt) {
    const auto fontCalls = [this] { return log->LinesOf({"CrystalRuntime.Report.SectionCount"}).size(); };
    const IncomeRpt plain;
    EXPECT_EQ(fontCalls(), 0U);
    const IncomeGrpRpt grouped;
    EXPECT_EQ(fontCalls(), 1U);
}

TEST_F(Members, InitializeReadsTheFirstSection) {
    const IncomeRpt report;
    EXPECT_THAT(log->LinesOf({"CrystalRuntime.Report.Sections", "CrystalRuntime.Section.Height"}),
                ElementsAre("CrystalRuntime.Report.Sections(1)", "CrystalRuntime.Section.Height()"));
}

TEST_F(Members, FormatOfTheTotalsReadsThePrintingStatus) {
    const IncomeGrpRpt report;
    platform.runtime->latest.lock()->formatHandlers.at("Section6")();
    EXPECT_THAT(log->LinesOf({"CrystalRuntime.Report.PrintingStatus"}),
                ElementsAre("CrystalRuntime.Report.PrintingStatus()"));
}

TEST_F(Members, FormatBehindTheTemplatesLifeDoesNothing) {
    Ref<CrystalRuntime::Report> kept;
    {
        const IncomeGrpRpt report;
        kept = report.Report();
    }
    platform.runtime->latest.lock()->formatHandlers.at("Section6")();
    EXPECT_THAT(log->LinesOf({"CrystalRuntime.Report.PrintingStatus"}), ElementsAre());
}

TEST_F(Members, LogoIsKeptWithoutAWord) {
    PayOutRpt report;
    report.SetLogo(std::make_shared<const Picture>());
    EXPECT_THAT(log->LinesOf({"member", "MessageBoxes"}), ElementsAre("member SetLogo()"));
}

} // namespace
