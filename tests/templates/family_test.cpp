// What each template bears: its members in their order, its sections, the objects that code finds by name.
#include "adapters/layout/library.h"
#include "templates/field_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace qbrpt;
using Names = std::vector<std::string>;

struct Template {
    const char* name;
    const char* members;  ///< in their order
    const char* sections; ///< numbers, in their order
    const char* objects;
};

void PrintTo(const Template& row, std::ostream* stream) {
    *stream << row.name;
}

constexpr const char* HeadTitleMembers = "ReportWidth SetHotelInfo SetLogo Report_Initialize SetHeadTitle";
constexpr const char* OtherTitleMembers = "ReportWidth SetHotelInfo SetOtherTitels SetLogo Report_Initialize";
constexpr const char* CardMembers =
    "ReportWidth SetHotelInfo SetCafeName SetLogo Report_Initialize SetHeadTitle Section3_Format";
constexpr const char* HeadTitleObjects = "HotelNameText HotelAddr1Text HotelAddr2Text HeadTitleText";
constexpr const char* OtherTitleObjects = "HotelNameText HotelAddr1Text HotelAddr2Text OtherTitleText";
constexpr const char* IncomeObjects =
    "HotelNameTextTop HotelNameTextBottom HotelAddr1Text HotelAddr2Text IncomeTitleText";
constexpr const char* CardObjects = "HotelNameText HotelAddr1Text HotelAddr2Text HeadTitleText CafeNameText1 "
                                    "CafeNameText2 CardPicture1 CardPicture2";

const std::vector<Template> Family = {
    {"IncomeGrpRpt", "ReportWidth Report_Initialize SetHotelInfo SetOtherTitle Section6_Format",
     "1 2 3 4 5 6 7 8", IncomeObjects},
    {"IncomeRpt", "ReportWidth Report_Initialize SetHotelInfo SetOtherTitle", "1 2 3 4 5 6 7", IncomeObjects},
    {"pcIncomeRpt", "ReportWidth Report_Initialize SetHotelInfo SetInfoData", "1 2 3 5 6", IncomeObjects},
    {"UsageRpt", OtherTitleMembers, "1 2 3 6 8 9", OtherTitleObjects},
    {"InternetTimerpt", "ReportWidth SetHotelInfo SetOtherTitels Report_Initialize SetGroup", "1 2 3 6 8 9",
     "HotelNameText OtherTitleText GroupColumnText"},
    {"SPVIncome", OtherTitleMembers, "1 2 3 4 5 6 8 9", OtherTitleObjects},
    {"MembersInfo", HeadTitleMembers, "1 2 3 6 8 9", "HotelNameText MembersTitleText"},
    {"MemberUseRpt", "ReportWidth SetHotelInfo SetLogo Report_Initialize", "1 2 3 4 6 7 8 9 11 12",
     "HotelNameText"},
    {"MembersPay", "ReportWidth SetHotelInfo SetLogo Report_Initialize", "1 2 3 4 5 8 9",
     "HotelNameText HotelAddr1Text HotelAddr2Text"},
    {"PayOutRpt", HeadTitleMembers, "1 2 3 4 5 6", HeadTitleObjects},
    {"OutIncome", HeadTitleMembers, "1 2 3 4 5 6", HeadTitleObjects},
    {"ServicesRpt", HeadTitleMembers, "1 2 3 4 5 6", HeadTitleObjects},
    {"rptAudit", HeadTitleMembers, "1 2 3 4 5 6", HeadTitleObjects},
    {"rptPrintLog", HeadTitleMembers, "1 2 3 4 5 6", HeadTitleObjects},
    {"rptPPIncome", "ReportWidth SetHotelInfo SetLogo Report_Initialize Section2_Format SetTitle",
     "1 2 3 4 5 6", HeadTitleObjects},
    {"rptPPCards", CardMembers, "1 2 3 4 5 6 7 8", CardObjects},
    {"rptPPCardsCov", CardMembers, "1 2 3 4 5 6 7 8", CardObjects},
    {"AccountRpt", "ReportWidth SetTitle SetLogo Report_Initialize", "1 2 3 4 5 7 10 11 12",
     "HotelNameText HeadTitleText"},
    {"SngAccountRpt", "ReportWidth SetTitle SetLogo Report_Initialize ShowAccountSection",
     "1 2 3 4 5 7 10 11 12", "HotelNameText HeadTitleText AccountSubTitleText AccountAmountText"},
};

Names Words(const char* text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

class FamilyMember : public testing::TestWithParam<Template> {
protected:
    [[nodiscard]] static std::shared_ptr<const report::Definition> Layout() {
        return layout::Library().Load(GetParam().name, FactsOf(GetParam().name).fields);
    }
};

// The order is part of the interface, and a header keeps it only by care.
TEST_P(FamilyMember, BearsItsMembersInTheirOrder) {
    std::ifstream file(std::string(QBRPT_SOURCE_DIR "/src/templates/") + GetParam().name + ".h");
    std::string header{std::istreambuf_iterator<char>(file), {}};
    header.erase(header.find("private:") == std::string::npos ? header.size() : header.find("private:"));
    static const std::regex member(R"(\n    (?:using \w+::|\w+ )(\w+)(?:;|\())");
    Names found;
    for (std::sregex_iterator at(header.begin(), header.end(), member), end; at != end; ++at)
        found.push_back((*at)[1]);
    EXPECT_EQ(found, Words(GetParam().members));
}

TEST_P(FamilyMember, HasItsSections) {
    Names expected;
    for (const std::string& number : Words(GetParam().sections))
        expected.push_back("Section" + number);
    Names found;
    const auto definition = Layout();
    for (const report::Section& section : definition->sections)
        found.push_back(section.name);
    EXPECT_EQ(found, expected);
}

TEST_P(FamilyMember, HasTheObjectsThatCodeFinds) {
    const auto definition = Layout();
    EXPECT_EQ(definition->width, FactsOf(GetParam().name).reportWidth);
    for (const std::string& name : Words(GetParam().objects)) {
        const report::Object* object = report::FindObject(*definition, name);
        ASSERT_NE(object, nullptr) << name;
        EXPECT_EQ(object->type,
                  name.starts_with("CardPicture") ? report::ObjectType::Picture : report::ObjectType::Text)
            << name;
    }
}

TEST(Family, IsWhole) {
    EXPECT_EQ(Family.size(), AllTemplates().size());
}

TEST(AccountOfOne, HasItsSidesAndTheReportInside) {
    report::Definition definition = *layout::Library().Load("SngAccountRpt", FactsOf("SngAccountRpt").fields);
    const auto kindOf = [&](const char* role) {
        const report::Section* section = report::FindSection(definition, role);
        return section == nullptr ? report::SectionKind::PageFooter : section->kind;
    };
    EXPECT_EQ(kindOf("AccountSection1"), report::SectionKind::GroupHeader);
    EXPECT_EQ(kindOf("AccountSection2"), report::SectionKind::Details);
    EXPECT_EQ(kindOf("AccountSection3"), report::SectionKind::GroupFooter);
    EXPECT_EQ(kindOf("AccountSection4"), report::SectionKind::ReportFooter);
    ASSERT_TRUE(definition.subreports.contains("rptFrom"));
    Names sections;
    for (const report::Section& section : definition.subreports.at("rptFrom")->sections)
        sections.push_back(section.name);
    EXPECT_THAT(sections, testing::ElementsAre("rptFrom_Section1", "rptFrom_Section3", "rptFrom_Section4",
                                               "rptFrom_Section6", "rptFrom_Section7", "rptFrom_Section10"));
    EXPECT_EQ(report::FindObject(definition, "rptFrom")->type, report::ObjectType::Subreport);
}

INSTANTIATE_TEST_SUITE_P(Templates, FamilyMember, testing::ValuesIn(Family),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
