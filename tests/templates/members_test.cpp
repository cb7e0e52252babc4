// What the members of templates write, and what they tell the observers.
#include "fakes/call_log.h"
#include "fakes/fake_platform.h"
#include "fakes/fault_observer.h"
#include "templates/AccountRpt.h"
#include "templates/IncomeGrpRpt.h"
#include "templates/IncomeRpt.h"
#include "templates/InternetTimerpt.h"
#include "templates/MemberUseRpt.h"
#include "templates/MembersInfo.h"
#include "templates/MembersPay.h"
#include "templates/OutIncome.h"
#include "templates/PayOutRpt.h"
#include "templates/SPVIncome.h"
#include "templates/ServicesRpt.h"
#include "templates/SngAccountRpt.h"
#include "templates/UsageRpt.h"
#include "templates/pcIncomeRpt.h"
#include "templates/rptAudit.h"
#include "templates/rptPPCards.h"
#include "templates/rptPPCardsCov.h"
#include "templates/rptPPIncome.h"
#include "templates/rptPrintLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

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

std::string Wrote(const std::string& object, const std::string& text) {
    return "CrystalRuntime.ReportObject.SetText(\"" + object + "\", \"" + text + "\")";
}

/// What SetHotelInfo of a new template wrote.
template <class Template>
std::vector<std::string> HeadingOf(fakes::CallLog& log) {
    Template report;
    const std::size_t before = log.LinesOf({"CrystalRuntime.ReportObject.SetText"}).size();
    report.SetHotelInfo("مقهى", "شارع", "");
    std::vector<std::string> lines = log.LinesOf({"CrystalRuntime.ReportObject.SetText"});
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(before));
    return lines;
}

TEST_F(Members, HeadingsHaveThreeShapes) {
    const auto nameOnly = ElementsAre(Wrote("HotelNameText", "مقهى"));
    const auto nameAndAddress = ElementsAre(Wrote("HotelNameText", "مقهى"), Wrote("HotelAddr1Text", "شارع"),
                                            Wrote("HotelAddr2Text", ""));
    const auto topAndBottom =
        ElementsAre(Wrote("HotelNameTextTop", "مقهى"), Wrote("HotelNameTextBottom", "مقهى"),
                    Wrote("HotelAddr1Text", "شارع"), Wrote("HotelAddr2Text", ""));
    EXPECT_THAT(HeadingOf<InternetTimerpt>(*log), nameOnly);
    EXPECT_THAT(HeadingOf<MembersInfo>(*log), nameOnly);
    EXPECT_THAT(HeadingOf<MemberUseRpt>(*log), nameOnly);
    EXPECT_THAT(HeadingOf<UsageRpt>(*log), nameAndAddress);
    EXPECT_THAT(HeadingOf<SPVIncome>(*log), nameAndAddress);
    EXPECT_THAT(HeadingOf<rptPrintLog>(*log), nameAndAddress);
    EXPECT_THAT(HeadingOf<rptPPCards>(*log), nameAndAddress);
    EXPECT_THAT(HeadingOf<rptPPCardsCov>(*log), nameAndAddress);
    EXPECT_THAT(HeadingOf<ServicesRpt>(*log), nameAndAddress);
    EXPECT_THAT(HeadingOf<rptPPIncome>(*log), nameAndAddress);
    EXPECT_THAT(HeadingOf<PayOutRpt>(*log), nameAndAddress);
    EXPECT_THAT(HeadingOf<OutIncome>(*log), nameAndAddress);
    EXPECT_THAT(HeadingOf<rptAudit>(*log), nameAndAddress);
    EXPECT_THAT(HeadingOf<MembersPay>(*log), nameAndAddress);
    EXPECT_THAT(HeadingOf<IncomeGrpRpt>(*log), topAndBottom);
    EXPECT_THAT(HeadingOf<IncomeRpt>(*log), topAndBottom);
    EXPECT_THAT(HeadingOf<pcIncomeRpt>(*log), topAndBottom);
    EXPECT_EQ(log->LinesOf({"member"}).at(0), "member SetHotelInfo(\"مقهى\", \"شارع\", \"\")");
}

TEST_F(Members, ATemplateWithoutAHeadingSaysSo) {
    AccountRpt report;
    EXPECT_THROW(report.SetHotelInfoByName("", "", ""), Failure);
}

TEST_F(Members, TitlesGoToTheTitleObject) {
    const auto expectTitle = [this](auto&& report, auto setTitle, const std::string& member,
                                    const std::string& object) {
        setTitle(report);
        const std::vector<std::string> lines = Written();
        ASSERT_GE(lines.size(), 2U);
        EXPECT_EQ(lines[lines.size() - 2], "member " + member + "(\"أ\")");
        EXPECT_EQ(lines.back(), Wrote(object, "أ"));
    };
    const auto head = [](auto& report) { report.SetHeadTitle("أ"); };
    const auto other = [](auto& report) { report.SetOtherTitle("أ"); };
    const auto info = [](auto& report) { report.SetInfoData("أ"); };
    const auto others = [](auto& report) { report.SetOtherTitels("أ"); };
    expectTitle(PayOutRpt(), head, "SetHeadTitle", "HeadTitleText");
    expectTitle(OutIncome(), head, "SetHeadTitle", "HeadTitleText");
    expectTitle(ServicesRpt(), head, "SetHeadTitle", "HeadTitleText");
    expectTitle(rptAudit(), head, "SetHeadTitle", "HeadTitleText");
    expectTitle(rptPrintLog(), head, "SetHeadTitle", "HeadTitleText");
    expectTitle(rptPPCards(), head, "SetHeadTitle", "HeadTitleText");
    expectTitle(rptPPCardsCov(), head, "SetHeadTitle", "HeadTitleText");
    expectTitle(MembersInfo(), head, "SetHeadTitle", "MembersTitleText");
    expectTitle(IncomeGrpRpt(), other, "SetOtherTitle", "IncomeTitleText");
    expectTitle(IncomeRpt(), other, "SetOtherTitle", "IncomeTitleText");
    expectTitle(pcIncomeRpt(), info, "SetInfoData", "IncomeTitleText");
    expectTitle(UsageRpt(), others, "SetOtherTitels", "OtherTitleText");
    expectTitle(InternetTimerpt(), others, "SetOtherTitels", "OtherTitleText");
    expectTitle(SPVIncome(), others, "SetOtherTitels", "OtherTitleText");
}

TEST_F(Members, OnlyTheMisspeltTitleIsSilentWhereItsObjectIsMissing) {
    UsageRpt report;
    PayOutRpt payments;
    const auto position = log->Lines().size();
    fakes::FakePlatform::Observe(
        std::make_shared<fakes::FaultObserver>(1, fakes::FaultObserver::Reach::FromThenOn));
    EXPECT_NO_THROW(report.SetOtherTitels("أ"));
    EXPECT_EQ(log->Lines().size(), position + 2); // the member and the search for its object
    EXPECT_THROW(payments.SetHeadTitle("أ"), Failure);
}

TEST_F(Members, AccountsTakeNameAndTitle) {
    AccountRpt report;
    report.SetTitle("مقهى", "حركة");
    EXPECT_THAT(Written(), ElementsAre("member SetTitle(\"مقهى\", \"حركة\")", Wrote("HotelNameText", "مقهى"),
                                       Wrote("HeadTitleText", "حركة")));
}

TEST_F(Members, OneAccountTakesTitlesAndASum) {
    SngAccountRpt report;
    report.SetTitle("", "حركة", "ليوم", 1250);
    EXPECT_THAT(Written(),
                ElementsAre("member SetTitle(\"\", \"حركة\", \"ليوم\", 1250)", Wrote("HotelNameText", ""),
                            Wrote("HeadTitleText", "حركة"), Wrote("AccountSubTitleText", "ليوم"),
                            Wrote("AccountAmountText", "1,250.00")));
}

TEST_F(Members, OneAccountLeavesOutItsSides) {
    SngAccountRpt report;
    for (const char* side : {"AccountSection1", "AccountSection2", "AccountSection3", "AccountSection4"})
        platform.runtime->latest.lock()->sections.push_back(std::make_shared<fakes::FakeSection>(side));
    report.ShowAccountSection(true, false);
    const std::string call = "CrystalRuntime.Section.SetSuppress(\"AccountSection";
    EXPECT_THAT(log->LinesOf({"member", "CrystalRuntime.Section.SetSuppress"}),
                ElementsAre("member ShowAccountSection(true, false)", call + "1\", true)",
                            call + "2\", true)", call + "3\", true)", call + "4\", false)"));
}

TEST_F(Members, CafeNameStandsOnBothCards) {
    rptPPCards report;
    report.SetCafeName("مقهى");
    EXPECT_THAT(Written(), ElementsAre("member SetCafeName(\"مقهى\")", Wrote("CafeNameText1", "مقهى"),
                                       Wrote("CafeNameText2", "مقهى")));
}

TEST_F(Members, GroupingRenamesTheColumn) {
    InternetTimerpt report;
    report.SetGroup(false);
    EXPECT_THAT(Written(), ElementsAre("member SetGroup(false)"));
    report.SetGroup(true);
    EXPECT_EQ(Written().back(), Wrote("GroupColumnText", "عدد الأيام"));
}

TEST_F(Members, TitleOfTheCardListWaitsForItsSection) {
    rptPPIncome report;
    const auto format = [this] { platform.runtime->latest.lock()->formatHandlers.at("Section2")(); };
    format();
    report.SetTitle("");
    format();
    EXPECT_THAT(Written(), ElementsAre("member SetTitle(\"\")"));
    report.SetTitle("بطاقات");
    EXPECT_THAT(Written(), ElementsAre("member SetTitle(\"\")", "member SetTitle(\"بطاقات\")"));
    format();
    format();
    EXPECT_THAT(log->LinesOf({"CrystalRuntime.ReportObject.SetText"}),
                ElementsAre(Wrote("HeadTitleText", "بطاقات"), Wrote("HeadTitleText", "بطاقات")));
}

TEST_F(Members, WidthsAreThoseOfTheFamily) {
    EXPECT_EQ(IncomeGrpRpt().ReportWidth(), 16089);
    EXPECT_EQ(PayOutRpt().ReportWidth(), 11178);
    EXPECT_EQ(MembersPay().ReportWidth(), 8464);
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
