#include "templates/field_tables.h"

#include "base/failure.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

namespace qbrpt {

namespace {

constexpr Field DateTime(std::string_view name) {
    return {name, FieldKind::DateTime, 8, 0};
}
constexpr Field Number(std::string_view name) {
    return {name, FieldKind::Number, 8, 0};
}
constexpr Field WholeNumber(std::string_view name) {
    return {name, FieldKind::WholeNumber, 4, 0};
}
constexpr Field Flag(std::string_view name) {
    return {name, FieldKind::Boolean, 2, 0};
}
/// A string field has one byte more than the letters it holds.
constexpr Field Text(std::string_view name, std::uint16_t letters) {
    return {name, FieldKind::String, static_cast<std::uint16_t>(letters + 1), 0};
}

/// Fields lie one behind the other, so their offsets follow from their widths.
template <std::size_t N>
consteval std::array<Field, N> LaidOut(const Field (&fields)[N]) {
    std::array<Field, N> row{};
    std::uint16_t offset = 0;
    for (std::size_t i = 0; i < N; ++i) {
        row[i] = fields[i];
        row[i].offset = offset;
        offset = static_cast<std::uint16_t>(offset + fields[i].width);
    }
    return row;
}

constexpr auto IncomeGrpRptFields = LaidOut({
    DateTime("mdate"),
    DateTime("edate"),
    Text("date", 50),
    Number("general_income"),
    Number("member_income"),
    Number("pp_income"),
    Number("other_income"),
    Number("discount"),
    Number("paid_out"),
    Number("total_income"),
    Number("print_count"),
    Number("pp_count"),
    Number("general_count"),
    Number("member_count"),
    Number("work_time"),
    Number("total_time"),
    Number("pc_count"),
});

constexpr auto IncomeRptFields = LaidOut({
    DateTime("mdate"),
    DateTime("edate"),
    Text("date", 50),
    Number("internet_time"),
    Number("members_time"),
    Number("local_time"),
    Number("total_time"),
    Number("net_income"),
    Number("print_count"),
    Number("print_income"),
    Number("member_income"),
    Number("pp_income"),
    Number("other_income"),
    Number("discount"),
    Number("paid_out"),
    Number("total_income"),
    Number("work_time"),
    Number("pc_count"),
});

constexpr auto pcIncomeRptFields = LaidOut({
    Text("pcname", 20),
    Number("memb_time"),
    Number("gen_time"),
    Number("total_use"),
    Number("net_income"),
    Number("print_count"),
    Number("print_incom"),
    Number("total_income"),
    Number("discount"),
    Number("net_total"),
    Number("use_percent"),
});

constexpr auto UsageRptFields = LaidOut({
    Text("host_name", 30),
    Text("user_name", 30),
    DateTime("use_begin"),
    Number("use_time"),
    Number("idletime"),
    Number("minutecost"),
    Number("printed"),
    Number("othercost"),
    Number("discount"),
    Number("cost"),
    Text("user", 30),
});

constexpr auto InternetTimerptFields = LaidOut({
    Text("device_name", 40),
    Text("use_Date", 30),
    WholeNumber("use_time"),
});

constexpr auto SPVIncomeFields = LaidOut({
    Number("userid"),
    DateTime("usedate"),
    Text("spvname", 50),
    Number("worktime"),
    Number("totaluse"),
    Number("localtime"),
    Number("memberstime"),
    Number("print"),
    Number("mainincome"),
    Number("discount"),
    Number("membersincome"),
    Number("otherincome"),
    Number("prepaid"),
});

constexpr auto MembersInfoFields = LaidOut({
    Text("Name", 50),
    Text("membership", 50),
    DateTime("begindate"),
    Number("usedTime"),
    Number("reminTime"),
    Number("totalpay"),
    Number("remincost"),
});

constexpr auto MemberUseRptFields = LaidOut({
    Text("user_name", 30),
    Text("membership", 30),
    DateTime("use_begin"),
    DateTime("use_end"),
    Number("use_time"),
    Number("cost"),
});

constexpr auto MembersPayFields = LaidOut({
    DateTime("paydate"),
    Text("name", 50),
    Number("amount"),
    Text("membership", 20),
});

constexpr auto PayOutRptFields = LaidOut({
    Number("amount"),
    DateTime("pay_date"),
    Text("details", 255),
});

constexpr auto ServicesRptFields = LaidOut({
    Text("details", 255),
    Number("itemCount"),
    Number("Price"),
    DateTime("pDate"),
    Text("hostname", 50),
});

constexpr auto rptAuditFields = LaidOut({
    Text("type", 90),
    DateTime("date"),
    Text("user_name", 50),
    Text("details", 255),
});

constexpr auto rptPrintLogFields = LaidOut({
    Text("printer", 90),
    Text("machine", 20),
    DateTime("date"),
    Number("pages"),
    Number("printed"),
    Text("usage", 30),
    Number("charged"),
    Text("docment", 150),
    Text("user", 40),
});

constexpr auto rptPPIncomeFields = LaidOut({
    Number("acctid"),
    Text("name", 40),
    Flag("srcdisabled"),
    DateTime("reg_date"),
    Number("pp_id"),
    Text("se_id", 20),
    Flag("disabled"),
    DateTime("use_date"),
    Flag("expired"),
    Number("use_time"),
    Number("use_type"),
    Number("used_time"),
    Number("expiry"),
});

constexpr auto rptPPCardsFields = LaidOut({
    Text("account", 50),
    Number("serial1"),
    Text("id1", 20),
    Text("pass1", 15),
    Number("serial2"),
    Text("id2", 20),
    Text("pass2", 15),
});

constexpr auto AccountRptFields = LaidOut({
    Text("accFrom", 100),
    Text("accTo", 100),
    Number("amount"),
    Text("descrip", 150),
    DateTime("tDate"),
});

constexpr auto SngAccountRptFields = LaidOut({
    Text("accName", 250),
    Number("amount"),
    Text("descrip", 250),
    DateTime("rDate"),
});
constexpr auto Family = std::to_array<TemplateFacts>({
    {"IncomeGrpRpt", "income_report.ttx", 16089, true, HotelHeading::TopBottom, IncomeGrpRptFields},
    {"IncomeRpt", "income_report.ttx", 16089, false, HotelHeading::TopBottom, IncomeRptFields},
    {"pcIncomeRpt", "pcUseReport.ttx", 16089, true, HotelHeading::TopBottom, pcIncomeRptFields},
    {"UsageRpt", "useinfo_report.ttx", 16089, true, HotelHeading::NameAddress, UsageRptFields},
    {"InternetTimerpt", "internetuse.ttx", 11178, false, HotelHeading::NameOnly, InternetTimerptFields},
    {"SPVIncome", "SPVIncome.ttx", 11178, true, HotelHeading::NameAddress, SPVIncomeFields},
    {"MembersInfo", "membersInfo.ttx", 11178, true, HotelHeading::NameOnly, MembersInfoFields},
    {"MemberUseRpt", "useinfo_report.ttx", 11178, false, HotelHeading::NameOnly, MemberUseRptFields},
    {"MembersPay", "membersPay.ttx", 8464, true, HotelHeading::NameAddress, MembersPayFields},
    {"PayOutRpt", "payout.ttx", 11178, false, HotelHeading::NameAddress, PayOutRptFields},
    {"OutIncome", "payout.ttx", 11178, false, HotelHeading::NameAddress, PayOutRptFields},
    {"ServicesRpt", "services.ttx", 11178, true, HotelHeading::NameAddress, ServicesRptFields},
    {"rptAudit", "audit_rpt.ttx", 11178, false, HotelHeading::NameAddress, rptAuditFields},
    {"rptPrintLog", "print_log.ttx", 11178, false, HotelHeading::NameAddress, rptPrintLogFields},
    {"rptPPIncome", "pp_summary.ttx", 11178, true, HotelHeading::NameAddress, rptPPIncomeFields},
    {"rptPPCards", "rptppcards2.ttx", 11178, true, HotelHeading::NameAddress, rptPPCardsFields},
    {"rptPPCardsCov", "rptppcards2.ttx", 11178, true, HotelHeading::NameAddress, rptPPCardsFields},
    {"AccountRpt", "accall.ttx", 11178, true, HotelHeading::None, AccountRptFields},
    {"SngAccountRpt", "accrpt.ttx", 11178, true, HotelHeading::None, SngAccountRptFields},
});

} // namespace

std::span<const TemplateFacts> AllTemplates() {
    return Family;
}

const TemplateFacts& FactsOf(std::string_view templateName) {
    const auto* facts = std::find_if(Family.begin(), Family.end(), [templateName](const TemplateFacts& one) {
        return one.name == templateName;
    });
    if (facts == Family.end())
        throw Failure(FailureNumber::NotInCollection,
                      "There is no report template \"" + std::string(templateName) + "\".");
    return *facts;
}

} // namespace qbrpt
