// The field tables, row by row: names, kinds, widths and offsets.
#include "base/failure.h"
#include "templates/field_tables.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

using qbrpt::AllTemplates;
using qbrpt::FactsOf;
using qbrpt::FieldKind;

struct ExpectedField {
    std::string_view name;
    FieldKind kind;
    int width;
    int offset;
};

struct ExpectedTemplate {
    std::string_view name;
    std::string_view dataDefinition;
    std::int32_t width;
    bool fontPass;
    std::vector<ExpectedField> fields;
};

void PrintTo(const ExpectedTemplate& expected, std::ostream* stream) {
    *stream << expected.name;
}

constexpr auto Moment = FieldKind::DateTime;
constexpr auto Text = FieldKind::String;
constexpr auto Number = FieldKind::Number;
constexpr auto Whole = FieldKind::WholeNumber;
constexpr auto Flag = FieldKind::Boolean;

// clang-format off
const std::vector<ExpectedTemplate> Family = {
    {"IncomeGrpRpt", "income_report.ttx", 16089, true, {
        {"mdate", Moment, 8, 0},
        {"edate", Moment, 8, 8},
        {"date", Text, 51, 16},
        {"general_income", Number, 8, 67},
        {"member_income", Number, 8, 75},
        {"pp_income", Number, 8, 83},
        {"other_income", Number, 8, 91},
        {"discount", Number, 8, 99},
        {"paid_out", Number, 8, 107},
        {"total_income", Number, 8, 115},
        {"print_count", Number, 8, 123},
        {"pp_count", Number, 8, 131},
        {"general_count", Number, 8, 139},
        {"member_count", Number, 8, 147},
        {"work_time", Number, 8, 155},
        {"total_time", Number, 8, 163},
        {"pc_count", Number, 8, 171},
    }},
    {"IncomeRpt", "income_report.ttx", 16089, false, {
        {"mdate", Moment, 8, 0},
        {"edate", Moment, 8, 8},
        {"date", Text, 51, 16},
        {"internet_time", Number, 8, 67},
        {"members_time", Number, 8, 75},
        {"local_time", Number, 8, 83},
        {"total_time", Number, 8, 91},
        {"net_income", Number, 8, 99},
        {"print_count", Number, 8, 107},
        {"print_income", Number, 8, 115},
        {"member_income", Number, 8, 123},
        {"pp_income", Number, 8, 131},
        {"other_income", Number, 8, 139},
        {"discount", Number, 8, 147},
        {"paid_out", Number, 8, 155},
        {"total_income", Number, 8, 163},
        {"work_time", Number, 8, 171},
        {"pc_count", Number, 8, 179},
    }},
    {"pcIncomeRpt", "pcUseReport.ttx", 16089, true, {
        {"pcname", Text, 21, 0},
        {"memb_time", Number, 8, 21},
        {"gen_time", Number, 8, 29},
        {"total_use", Number, 8, 37},
        {"net_income", Number, 8, 45},
        {"print_count", Number, 8, 53},
        {"print_incom", Number, 8, 61},
        {"total_income", Number, 8, 69},
        {"discount", Number, 8, 77},
        {"net_total", Number, 8, 85},
        {"use_percent", Number, 8, 93},
    }},
    {"UsageRpt", "useinfo_report.ttx", 16089, true, {
        {"host_name", Text, 31, 0},
        {"user_name", Text, 31, 31},
        {"use_begin", Moment, 8, 62},
        {"use_time", Number, 8, 70},
        {"idletime", Number, 8, 78},
        {"minutecost", Number, 8, 86},
        {"printed", Number, 8, 94},
        {"othercost", Number, 8, 102},
        {"discount", Number, 8, 110},
        {"cost", Number, 8, 118},
        {"user", Text, 31, 126},
    }},
    {"InternetTimerpt", "internetuse.ttx", 11178, false, {
        {"device_name", Text, 41, 0},
        {"use_Date", Text, 31, 41},
        {"use_time", Whole, 4, 72},
    }},
    {"SPVIncome", "SPVIncome.ttx", 11178, true, {
        {"userid", Number, 8, 0},
        {"usedate", Moment, 8, 8},
        {"spvname", Text, 51, 16},
        {"worktime", Number, 8, 67},
        {"totaluse", Number, 8, 75},
        {"localtime", Number, 8, 83},
        {"memberstime", Number, 8, 91},
        {"print", Number, 8, 99},
        {"mainincome", Number, 8, 107},
        {"discount", Number, 8, 115},
        {"membersincome", Number, 8, 123},
        {"otherincome", Number, 8, 131},
        {"prepaid", Number, 8, 139},
    }},
    {"MembersInfo", "membersInfo.ttx", 11178, true, {
        {"Name", Text, 51, 0},
        {"membership", Text, 51, 51},
        {"begindate", Moment, 8, 102},
        {"usedTime", Number, 8, 110},
        {"reminTime", Number, 8, 118},
        {"totalpay", Number, 8, 126},
        {"remincost", Number, 8, 134},
    }},
    {"MemberUseRpt", "useinfo_report.ttx", 11178, false, {
        {"user_name", Text, 31, 0},
        {"membership", Text, 31, 31},
        {"use_begin", Moment, 8, 62},
        {"use_end", Moment, 8, 70},
        {"use_time", Number, 8, 78},
        {"cost", Number, 8, 86},
    }},
    {"MembersPay", "membersPay.ttx", 8464, true, {
        {"paydate", Moment, 8, 0},
        {"name", Text, 51, 8},
        {"amount", Number, 8, 59},
        {"membership", Text, 21, 67},
    }},
    {"PayOutRpt", "payout.ttx", 11178, false, {
        {"amount", Number, 8, 0},
        {"pay_date", Moment, 8, 8},
        {"details", Text, 256, 16},
    }},
    {"OutIncome", "payout.ttx", 11178, false, {
        {"amount", Number, 8, 0},
        {"pay_date", Moment, 8, 8},
        {"details", Text, 256, 16},
    }},
    {"ServicesRpt", "services.ttx", 11178, true, {
        {"details", Text, 256, 0},
        {"itemCount", Number, 8, 256},
        {"Price", Number, 8, 264},
        {"pDate", Moment, 8, 272},
        {"hostname", Text, 51, 280},
    }},
    {"rptAudit", "audit_rpt.ttx", 11178, false, {
        {"type", Text, 91, 0},
        {"date", Moment, 8, 91},
        {"user_name", Text, 51, 99},
        {"details", Text, 256, 150},
    }},
    {"rptPrintLog", "print_log.ttx", 11178, false, {
        {"printer", Text, 91, 0},
        {"machine", Text, 21, 91},
        {"date", Moment, 8, 112},
        {"pages", Number, 8, 120},
        {"printed", Number, 8, 128},
        {"usage", Text, 31, 136},
        {"charged", Number, 8, 167},
        {"docment", Text, 151, 175},
        {"user", Text, 41, 326},
    }},
    {"rptPPIncome", "pp_summary.ttx", 11178, true, {
        {"acctid", Number, 8, 0},
        {"name", Text, 41, 8},
        {"srcdisabled", Flag, 2, 49},
        {"reg_date", Moment, 8, 51},
        {"pp_id", Number, 8, 59},
        {"se_id", Text, 21, 67},
        {"disabled", Flag, 2, 88},
        {"use_date", Moment, 8, 90},
        {"expired", Flag, 2, 98},
        {"use_time", Number, 8, 100},
        {"use_type", Number, 8, 108},
        {"used_time", Number, 8, 116},
        {"expiry", Number, 8, 124},
    }},
    {"rptPPCards", "rptppcards2.ttx", 11178, true, {
        {"account", Text, 51, 0},
        {"serial1", Number, 8, 51},
        {"id1", Text, 21, 59},
        {"pass1", Text, 16, 80},
        {"serial2", Number, 8, 96},
        {"id2", Text, 21, 104},
        {"pass2", Text, 16, 125},
    }},
    {"rptPPCardsCov", "rptppcards2.ttx", 11178, true, {
        {"account", Text, 51, 0},
        {"serial1", Number, 8, 51},
        {"id1", Text, 21, 59},
        {"pass1", Text, 16, 80},
        {"serial2", Number, 8, 96},
        {"id2", Text, 21, 104},
        {"pass2", Text, 16, 125},
    }},
    {"AccountRpt", "accall.ttx", 11178, true, {
        {"accFrom", Text, 101, 0},
        {"accTo", Text, 101, 101},
        {"amount", Number, 8, 202},
        {"descrip", Text, 151, 210},
        {"tDate", Moment, 8, 361},
    }},
    {"SngAccountRpt", "accrpt.ttx", 11178, true, {
        {"accName", Text, 251, 0},
        {"amount", Number, 8, 251},
        {"descrip", Text, 251, 259},
        {"rDate", Moment, 8, 510},
    }},
};
// clang-format on

class FieldTable : public testing::TestWithParam<ExpectedTemplate> {};

TEST_P(FieldTable, HoldsItsFields) {
    const ExpectedTemplate& expected = GetParam();
    const auto& facts = FactsOf(expected.name);
    EXPECT_EQ(facts.dataDefinition, expected.dataDefinition);
    EXPECT_EQ(facts.reportWidth, expected.width);
    EXPECT_EQ(facts.fontPass, expected.fontPass);
    ASSERT_EQ(facts.fields.size(), expected.fields.size());
    for (std::size_t i = 0; i < expected.fields.size(); ++i) {
        SCOPED_TRACE(expected.fields[i].name);
        EXPECT_EQ(facts.fields[i].name, expected.fields[i].name);
        EXPECT_EQ(facts.fields[i].kind, expected.fields[i].kind);
        EXPECT_EQ(facts.fields[i].width, expected.fields[i].width);
        EXPECT_EQ(facts.fields[i].offset, expected.fields[i].offset);
    }
}

INSTANTIATE_TEST_SUITE_P(Templates, FieldTable, testing::ValuesIn(Family),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(FieldTables, ListTheWholeFamilyInOrder) {
    ASSERT_EQ(AllTemplates().size(), Family.size());
    for (std::size_t i = 0; i < Family.size(); ++i)
        EXPECT_EQ(AllTemplates()[i].name, Family[i].name);
}

TEST(FieldTables, OffsetsLeaveNoGaps) {
    for (const auto& facts : AllTemplates()) {
        SCOPED_TRACE(facts.name);
        int offset = 0;
        for (const qbrpt::Field& field : facts.fields) {
            EXPECT_EQ(field.offset, offset) << field.name;
            offset += field.width;
        }
    }
}

TEST(FieldTables, AnUnknownTemplateIsAFailure) {
    try {
        static_cast<void>(FactsOf("NoRpt"));
        FAIL();
    } catch (const qbrpt::Failure& failure) {
        EXPECT_EQ(failure.Number(), qbrpt::FailureNumber::NotInCollection);
        EXPECT_NE(failure.Description().find("NoRpt"), std::string::npos);
    }
}

} // namespace
